#include "App/DemoPlatform.h"

#include "Platform/Simulated/DemoFeeds.h"
#include "Platform/Simulated/DemoMachine.h"

namespace orvelle {

DemoPlatform::DemoPlatform() {
    DemoMachine::switchEverythingOn(userDefaults_);
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
