#include "App/OrvelleApp.h"

#include "Platform/Linux/ProcessInstance.h"

#include <QCoreApplication>

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>

namespace orvelle {

namespace {

int signalEvents = -1; ///< an eventfd; -1 while nobody follows the signals

/// Called in whichever thread the signal meets.
void noteSignal(int) {
    const int before = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(signalEvents, &one, sizeof one);
    errno = before;
}

} // namespace

OrvelleApp::OrvelleApp(Platform& platform)
    : platform_(platform), views_(platform), delegate_(views_, platform) {
    followSignals();
}

OrvelleApp::~OrvelleApp() {
    delegate_.applicationWillTerminate();
}

void OrvelleApp::listen(ProcessInstance& instance) {
    instance.listen([this] { delegate_.showNotch(); });
}

void OrvelleApp::launch() {
    delegate_.applicationDidFinishLaunching();
}

// By handlers, since blocked signals would be blocked for the programs that this one starts too.
void OrvelleApp::followSignals() {
    signalEvents = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (signalEvents < 0)
        return;
    signalNotifier_ = std::make_unique<QSocketNotifier>(signalEvents, QSocketNotifier::Read);
    QObject::connect(signalNotifier_.get(), &QSocketNotifier::activated, signalNotifier_.get(),
                     [this] {
                         signalNotifier_->setEnabled(false);
                         platform_.application().terminate();
                     });
    struct sigaction note = {};
    note.sa_handler = noteSignal;
    note.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // as nohup has asked for
            sigaction(signal, &note, nullptr);
    }
}

} // namespace orvelle
