#include "App/DemoPlatform.h"

#include "Platform/Simulated/DemoFeeds.h"
#include "Platform/Simulated/DemoMachine.h"
#include "Platform/Simulated/DemoMedia.h"

namespace orvelle {

DemoPlatform::DemoPlatform() {
    DemoMachine::switchEverythingOn(userDefaults_);
    DemoMachine::script(audioHardware_);
    DemoMachine::script(displayBrightness_);
    DemoMachine::script(nowPlaying_, runLoop_);
    DemoMachine::script(camera_);
    DemoMachine::script(eventStore_);
    DemoMachine::fill(fileSystem_);
    DemoMachine::script(powerSources_);
    DemoMachine::script(hostStatistics_);
    DemoMachine::script(smc_);
    DemoMachine::script(fileSystem_, runLoop_.now());
    DemoMachine::script(pasteboard_, frontmostApplication_);
    DemoFeeds::savePlaces(userDefaults_);
    DemoFeeds::saveTickers(fileSystem_);
    DemoFeeds::script(httpClient_);
    DemoFeeds::script(locationService_, geocoder_);
}

} // namespace orvelle
