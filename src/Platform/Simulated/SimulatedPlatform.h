#pragma once

#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Platform.h"
#include "Platform/Simulated/SimulatedHttpClient.h"
#include "Platform/Simulated/SimulatedLocation.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedMedia.h"
#include "Platform/Simulated/SimulatedPasteboard.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Platform/Simulated/SimulatedSound.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Platform/Simulated/SimulatedWindows.h"

namespace orvelle {

/// A machine for tests: every port is scripted, time is virtual, texts are English in New York.
class SimulatedPlatform : public Platform {
public:
    SimulatedRunLoop runLoopPort; ///< first: other ports answer through it
    SimulatedAppearance appearancePort;
    SimulatedApplication applicationPort;
    SimulatedDistributedNotificationCenter distributedNotificationsPort;
    SimulatedEventMonitors eventMonitorsPort;
    SimulatedFileSystem fileSystemPort;
    IcuFormatting formattingPort{"en_US", "America/New_York"};
    SimulatedFrontmostApplication frontmostApplicationPort;
    SimulatedGeocoder geocoderPort{runLoopPort};
    SimulatedHostStatistics hostStatisticsPort;
    SimulatedHttpClient httpClientPort{runLoopPort};
    SimulatedImageCodec imageCodecPort;
    SimulatedLocationService locationServicePort{runLoopPort};
    SimulatedLog logPort;
    SimulatedNowPlayingService nowPlayingPort;
    SimulatedPanelWindows panelWindowsPort;
    SimulatedPasteboard pasteboardPort;
    SimulatedPowerSources powerSourcesPort;
    SimulatedProcessLauncher processLauncherPort;
    SimulatedRunningApplications runningApplicationsPort;
    SimulatedScreens screensPort;
    SimulatedScriptExecutor scriptExecutorPort;
    SimulatedSMCService smcPort;
    SimulatedSound soundPort;
    SimulatedUrlData urlDataPort;
    SimulatedUserDefaults userDefaultsPort;
    SimulatedUserNotifications userNotificationsPort;
    SimulatedWorkspace workspacePort;

    Appearance& appearance() override { return appearancePort; }
    Application& application() override { return applicationPort; }
    DistributedNotificationCenter& distributedNotifications() override {
        return distributedNotificationsPort;
    }
    EventMonitors& eventMonitors() override { return eventMonitorsPort; }
    FileSystem& fileSystem() override { return fileSystemPort; }
    Formatting& formatting() override { return formattingPort; }
    FrontmostApplication& frontmostApplication() override { return frontmostApplicationPort; }
    Geocoder& geocoder() override { return geocoderPort; }
    HostStatistics& hostStatistics() override { return hostStatisticsPort; }
    HttpClient& httpClient() override { return httpClientPort; }
    ImageCodec& imageCodec() override { return imageCodecPort; }
    LocationService& locationService() override { return locationServicePort; }
    LogSink& log() override { return logPort; }
    NowPlayingService& nowPlaying() override { return nowPlayingPort; }
    PanelWindows& panelWindows() override { return panelWindowsPort; }
    Pasteboard& pasteboard() override { return pasteboardPort; }
    PowerSources& powerSources() override { return powerSourcesPort; }
    ProcessLauncher& processLauncher() override { return processLauncherPort; }
    RunLoop& runLoop() override { return runLoopPort; }
    RunningApplications& runningApplications() override { return runningApplicationsPort; }
    Screens& screens() override { return screensPort; }
    ScriptExecutor& scriptExecutor() override { return scriptExecutorPort; }
    SMCService& smc() override { return smcPort; }
    Sound& sound() override { return soundPort; }
    UrlData& urlData() override { return urlDataPort; }
    UserDefaults& userDefaults() override { return userDefaultsPort; }
    UserNotifications& userNotifications() override { return userNotificationsPort; }
    Workspace& workspace() override { return workspacePort; }
};

} // namespace orvelle
