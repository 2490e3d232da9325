#include "App/DemoPlatform.h"

#include "Platform/Simulated/DemoMachine.h"
#include "Platform/Simulated/DemoMedia.h"

namespace orvelle {

DemoPlatform::DemoPlatform() {
    DemoMachine::switchEverythingOn(userDefaults_);
    DemoMachine::script(audioHardware_);
    DemoMachine::script(displayBrightness_);
    DemoMachine::script(nowPlaying_, runLoop_);
    DemoMachine::script(powerSources_);
    DemoMachine::script(hostStatistics_);
    DemoMachine::script(smc_);
}

} // namespace orvelle
