#pragma once

#include "App/HeldRunLoop.h"
#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/StandardConsole.h"
#include "Platform/Linux/StandardLog.h"
#include "Platform/Platform.h"
#include "Platform/Qt/QtFileIcons.h"
#include "Platform/Qt/QtImageCodec.h"
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
#include "Platform/Simulated/SimulatedSound.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"

namespace orvelle {

/// A made-up machine on the real display. Touches neither the user's files nor the network.
class DemoPlatform : public Platform {
public:
    DemoPlatform();

    Appearance& appearance() override { return appearance_; }
    Application& application() override { return desktop_.application; }
    AudioHardware& audioHardware() override { return audioHardware_; }
    CameraService& camera() override { return camera_; }
    Console& console() override { return console_; }
    DisplayBrightness& displayBrightness() override { return displayBrightness_; }
    DistributedNotificationCenter& distributedNotifications() override {
        return distributedNotifications_;
    }
    EventMonitors& eventMonitors() override { return desktop_.eventMonitors; }
    EventStore& eventStore() override { return eventStore_; }
    FileCopier& fileCopier() override { return fileCopier_; }
    FileIcons& fileIcons() override { return fileIcons_; }
    FileSystem& fileSystem() override { return fileSystem_; }
    FileViewer& fileViewer() override { return fileViewer_; }
    Formatting& formatting() override { return formatting_; }
    FrontmostApplication& frontmostApplication() override { return frontmostApplication_; }
    Geocoder& geocoder() override { return geocoder_; }
    HostStatistics& hostStatistics() override { return hostStatistics_; }
    HttpClient& httpClient() override { return httpClient_; }
    ImageCodec& imageCodec() override { return imageCodec_; }
    LocationService& locationService() override { return locationService_; }
    LogSink& log() override { return log_; }
    LoginItem& loginItem() override { return loginItem_; }
    NowPlayingService& nowPlaying() override { return nowPlaying_; }
    PanelWindows& panelWindows() override { return desktop_.panelWindows; }
    Pasteboard& pasteboard() override { return pasteboard_; }
    PowerSources& powerSources() override { return powerSources_; }
    ProcessLauncher& processLauncher() override { return processLauncher_; }
    RunLoop& runLoop() override { return runLoop_; }
    RunningApplications& runningApplications() override { return runningApplications_; }
    Screens& screens() override { return desktop_.screens; }
    ScriptExecutor& scriptExecutor() override { return scriptExecutor_; }
    SharePicker& sharePicker() override { return sharePicker_; }
    SMCService& smc() override { return smc_; }
    Sound& sound() override { return sound_; }
    StatusBar& statusBar() override { return desktop_.statusBar; }
    UrlData& urlData() override { return urlData_; }
    UserDefaults& userDefaults() override { return userDefaults_; }
    UserNotifications& userNotifications() override { return userNotifications_; }
    Workspace& workspace() override { return workspace_; }

    LinuxDesktop& desktop() { return desktop_; }

private:
    StandardConsole console_;
    SimulatedDistributedNotificationCenter distributedNotifications_;
    QtFileIcons fileIcons_;
    QtImageCodec imageCodec_;
    StandardLog log_;
    HeldRunLoop runLoop_;
    SimulatedCameraService camera_{runLoop_};
    SimulatedEventStore eventStore_{runLoop_};
    SimulatedRunningApplications runningApplications_;
    SimulatedScriptExecutor scriptExecutor_;
    SimulatedUrlData urlData_;
    SimulatedUserDefaults userDefaults_;
    LinuxDesktop desktop_{userDefaults_, runLoop_};
    IcuFormatting formatting_;
    SimulatedAppearance appearance_;
    SimulatedAudioHardware audioHardware_;
    SimulatedDisplayBrightness displayBrightness_;
    SimulatedFileSystem fileSystem_;
    SimulatedFileCopier fileCopier_{fileSystem_};
    SimulatedFileViewer fileViewer_;
    SimulatedFrontmostApplication frontmostApplication_;
    SimulatedHostStatistics hostStatistics_;
    SimulatedLoginItem loginItem_;
    SimulatedGeocoder geocoder_{runLoop_};
    SimulatedHttpClient httpClient_{runLoop_};
    SimulatedLocationService locationService_{runLoop_};
    SimulatedNowPlayingService nowPlaying_;
    SimulatedPasteboard pasteboard_;
    SimulatedSharePicker sharePicker_;
    SimulatedPowerSources powerSources_;
    SimulatedProcessLauncher processLauncher_;
    SimulatedSMCService smc_;
    SimulatedSound sound_;
    SimulatedUserNotifications userNotifications_;
    SimulatedWorkspace workspace_;
};

} // namespace orvelle
