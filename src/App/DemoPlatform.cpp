#include "App/DemoPlatform.h"

#include "Platform/Simulated/DemoMachine.h"

namespace orvelle {

DemoPlatform::DemoPlatform() {
    DemoMachine::switchEverythingOn(userDefaults_);
    DemoMachine::script(powerSources_);
    DemoMachine::script(hostStatistics_);
    DemoMachine::script(smc_);
    DemoMachine::script(fileSystem_, runLoop_.now());
    DemoMachine::script(pasteboard_, frontmostApplication_);
}

} // namespace orvelle
