#include "App/TerminationSignals.h"

#include <xcb/xcb.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace orvelle {

namespace {

constexpr auto displayPatience = std::chrono::milliseconds(1500);

/// All that the handler may touch.
std::atomic<int> counter{-1};
std::atomic<int> watcher{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void count(int) {
    const int error = errno;
    constexpr std::uint64_t one = 1;
    for (const int arrivals : {counter.load(), watcher.load()})
        [[maybe_unused]] const auto written = write(arrivals, &one, sizeof one);
    errno = error;
}

void endUnlessDisplayAnswers(int arrivals) {
    std::uint64_t arrived = 0;
    if (read(arrivals, &arrived, sizeof arrived) != sizeof arrived)
        return;
    auto answer = std::make_shared<std::promise<void>>();
    std::thread([answer] {
        xcb_disconnect(xcb_connect(nullptr, nullptr));
        answer->set_value();
    }).detach();
    if (answer->get_future().wait_for(displayPatience) == std::future_status::timeout)
        _exit(EXIT_SUCCESS);
}

/// Once for the process. The main thread may wait for the display, and so cannot watch it.
void watchDisplay() {
    static const bool isWatched = [] {
        const int arrivals = eventfd(0, EFD_CLOEXEC);
        if (arrivals < 0)
            return false;
        std::thread(endUnlessDisplayAnswers, arrivals).detach();
        watcher = arrivals;
        return true;
    }();
    static_cast<void>(isWatched);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> received)
    : received_(std::move(received)), arrivals_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (arrivals_ >= 0)
        listen();
}

TerminationSignals::~TerminationSignals() {
    counter = -1;
    notifier_.reset();
    if (arrivals_ >= 0)
        close(arrivals_);
}

void TerminationSignals::listen() {
    notifier_ = std::make_unique<QSocketNotifier>(arrivals_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        std::uint64_t arrived = 0;
        if (read(arrivals_, &arrived, sizeof arrived) == sizeof arrived)
            received_();
    });
    watchDisplay();
    counter = arrivals_;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = count;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

} // namespace orvelle
