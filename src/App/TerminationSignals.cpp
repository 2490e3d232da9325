#include "App/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

namespace orvelle {

namespace {

/// All that the handler may touch.
std::atomic<int> counter{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void count(int) {
    const int error = errno;
    constexpr std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(counter, &one, sizeof one);
    errno = error;
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
