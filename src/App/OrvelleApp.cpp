#include "App/OrvelleApp.h"

#include "Platform/Linux/ProcessInstance.h"

#include <QCoreApplication>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace orvelle {

OrvelleApp::OrvelleApp(Platform& platform)
    : platform_(platform), views_(platform), delegate_(views_, platform) {
    followSignals();
}

OrvelleApp::~OrvelleApp() {
    delegate_.applicationWillTerminate();
    if (signals_ >= 0)
        close(signals_);
}

void OrvelleApp::listen(ProcessInstance& instance) {
    instance.listen([this] { delegate_.reopen(); });
}

void OrvelleApp::launch() {
    delegate_.applicationDidFinishLaunching();
}

void OrvelleApp::followSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    signals_ = signalfd(-1, &ending, SFD_NONBLOCK | SFD_CLOEXEC);
    if (signals_ < 0) {
        sigprocmask(SIG_UNBLOCK, &ending, nullptr);
        return;
    }
    signalNotifier_ = std::make_unique<QSocketNotifier>(signals_, QSocketNotifier::Read);
    QObject::connect(signalNotifier_.get(), &QSocketNotifier::activated, signalNotifier_.get(),
                     [this] { platform_.application().terminate(); });
}

} // namespace orvelle
