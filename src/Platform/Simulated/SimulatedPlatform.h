#pragma once

#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Platform.h"
#include "Platform/Simulated/SimulatedAudioHardware.h"
#include "Platform/Simulated/SimulatedCameraService.h"
#include "Platform/Simulated/SimulatedDisplayBrightness.h"
#include "Platform/Simulated/SimulatedEventStore.h"
#include "Platform/Simulated/SimulatedFiles.h"
#include "Platform/Simulated/SimulatedHttpClient.h"
#include "Platform/Simulated/SimulatedLocation.h"
#include "Platform/Simulated/SimulatedLoginItem.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedMedia.h"
#include "Platform/Simulated/SimulatedPasteboard.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Platform/Simulated/SimulatedSound.h"
#include "Platform/Simulated/SimulatedStatusBar.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Platform/Simulated/SimulatedWindows.h"

namespace orvelle {

/// A machine for tests: every port is scripted, time is virtual, texts are English in New York.
class SimulatedPlatform : public Platform {
public:
    SimulatedPlatform();
    ~SimulatedPlatform() override;

    SimulatedRunLoop runLoopPort; ///< first: other ports answer through it
    SimulatedFileSystem fileSystemPort;
    SimulatedAppearance appearancePort;
    SimulatedApplication applicationPort;
    SimulatedAudioHardware audioHardwarePort;
    SimulatedCameraService cameraPort{runLoopPort};
    SimulatedConsole consolePort;
    SimulatedDisplayBrightness displayBrightnessPort;
    SimulatedDistributedNotificationCenter distributedNotificationsPort;
    SimulatedEventMonitors eventMonitorsPort;
    SimulatedEventStore eventStorePort{runLoopPort};
    SimulatedFileCopier fileCopierPort{fileSystemPort};
    SimulatedFileIcons fileIconsPort;
    SimulatedFileViewer fileViewerPort;
    IcuFormatting formattingPort{"en_US", "America/New_York"};
    SimulatedFrontmostApplication frontmostApplicationPort;
    SimulatedGeocoder geocoderPort{runLoopPort};
    SimulatedHostStatistics hostStatisticsPort;
    SimulatedHttpClient httpClientPort{runLoopPort};
    SimulatedImageCodec imageCodecPort;
    SimulatedLocationService locationServicePort{runLoopPort};
    SimulatedLog logPort;
    SimulatedLoginItem loginItemPort;
    SimulatedNowPlayingService nowPlayingPort;
    SimulatedPanelWindows panelWindowsPort;
    SimulatedPasteboard pasteboardPort;
    SimulatedPowerSources powerSourcesPort;
    SimulatedProcessLauncher processLauncherPort;
    SimulatedRunningApplications runningApplicationsPort;
    SimulatedScreens screensPort;
    SimulatedScriptExecutor scriptExecutorPort;
    SimulatedSharePicker sharePickerPort;
    SimulatedSMCService smcPort;
    SimulatedSound soundPort;
    SimulatedStatusBar statusBarPort;
    SimulatedUrlData urlDataPort;
    SimulatedUserDefaults userDefaultsPort;
    SimulatedUserNotifications userNotificationsPort;
    SimulatedWorkspace workspacePort;

    Appearance& appearance() override { return appearancePort; }
    Application& application() override { return applicationPort; }
    AudioHardware& audioHardware() override { return audioHardwarePort; }
    CameraService& camera() override { return cameraPort; }
    Console& console() override { return consolePort; }
    DisplayBrightness& displayBrightness() override { return displayBrightnessPort; }
    DistributedNotificationCenter& distributedNotifications() override {
        return distributedNotificationsPort;
    }
    EventMonitors& eventMonitors() override { return eventMonitorsPort; }
    EventStore& eventStore() override { return eventStorePort; }
    FileCopier& fileCopier() override { return fileCopierPort; }
    FileIcons& fileIcons() override { return fileIconsPort; }
    FileSystem& fileSystem() override { return fileSystemPort; }
    FileViewer& fileViewer() override { return fileViewerPort; }
    Formatting& formatting() override { return formattingPort; }
    FrontmostApplication& frontmostApplication() override { return frontmostApplicationPort; }
    Geocoder& geocoder() override { return geocoderPort; }
    HostStatistics& hostStatistics() override { return hostStatisticsPort; }
    HttpClient& httpClient() override { return httpClientPort; }
    ImageCodec& imageCodec() override { return imageCodecPort; }
    LocationService& locationService() override { return locationServicePort; }
    LogSink& log() override { return logPort; }
    LoginItem& loginItem() override { return loginItemPort; }
    NowPlayingService& nowPlaying() override { return nowPlayingPort; }
    PanelWindows& panelWindows() override { return panelWindowsPort; }
    Pasteboard& pasteboard() override { return pasteboardPort; }
    PowerSources& powerSources() override { return powerSourcesPort; }
    ProcessLauncher& processLauncher() override { return processLauncherPort; }
    RunLoop& runLoop() override { return runLoopPort; }
    RunningApplications& runningApplications() override { return runningApplicationsPort; }
    Screens& screens() override { return screensPort; }
    ScriptExecutor& scriptExecutor() override { return scriptExecutorPort; }
    SharePicker& sharePicker() override { return sharePickerPort; }
    SMCService& smc() override { return smcPort; }
    Sound& sound() override { return soundPort; }
    StatusBar& statusBar() override { return statusBarPort; }
    UrlData& urlData() override { return urlDataPort; }
    UserDefaults& userDefaults() override { return userDefaultsPort; }
    UserNotifications& userNotifications() override { return userNotificationsPort; }
    Workspace& workspace() override { return workspacePort; }
};

} // namespace orvelle
