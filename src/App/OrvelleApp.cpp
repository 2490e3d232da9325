#include "App/OrvelleApp.h"

#include "Platform/Linux/ProcessInstance.h"

namespace orvelle {

OrvelleApp::OrvelleApp(Platform& platform)
    : views_(platform), delegate_(views_, platform),
      signals_([&platform] { platform.application().terminate(); }) {}

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
