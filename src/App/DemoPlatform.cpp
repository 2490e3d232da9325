#include "App/DemoPlatform.h"

#include "Platform/Simulated/DemoMachine.h"

namespace orvelle {

DemoPlatform::DemoPlatform() {
    DemoMachine::switchEverythingOn(userDefaults_);
    DemoMachine::fill(fileSystem_);
    DemoMachine::script(powerSources_);
    DemoMachine::script(hostStatistics_);
    DemoMachine::script(smc_);
}

} // namespace orvelle
