#include "App/OrvelleApp.h"

#include "Platform/Linux/ProcessInstance.h"

namespace orvelle {

namespace {

/// From a signal to the end: what was changed just now is saved before the windows go, which a
/// display that has stopped holds up.
constexpr Seconds savingTime = 0.1;

} // namespace

OrvelleApp::OrvelleApp(Platform& platform)
    : views_(platform), delegate_(views_, platform), signals_([this, &platform] {
          ending_ = platform.runLoop().after(savingTime,
                                             [&platform] { platform.application().terminate(); });
      }) {}

OrvelleApp::~OrvelleApp() {
    delegate_.applicationWillTerminate();
}

void OrvelleApp::listen(ProcessInstance& instance) {
    instance.listen([this] { delegate_.reopen(); });
}

void OrvelleApp::launch() {
    delegate_.applicationDidFinishLaunching();
}

} // namespace orvelle
