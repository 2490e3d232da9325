#pragma once

#include "Platform/FileUserDefaults.h"
#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Linux/BusFileViewer.h"
#include "Platform/Linux/CanberraSound.h"
#include "Platform/Linux/GWeatherGeocoder.h"
#include "Platform/Linux/GeoClueLocationService.h"
#include "Platform/Linux/HwmonSMCService.h"
#include "Platform/Linux/IcalEventStore.h"
#include "Platform/Linux/InotifyFileWatch.h"
#include "Platform/Linux/LinuxCameraService.h"
#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/LinuxProcessLauncher.h"
#include "Platform/Linux/LinuxScriptExecutor.h"
#include "Platform/Linux/LinuxSharePicker.h"
#include "Platform/Linux/LinuxUserNotifications.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Platform/Linux/MprisApplications.h"
#include "Platform/Linux/MprisNowPlayingService.h"
#include "Platform/Linux/MprisRunningPrograms.h"
#include "Platform/Linux/PortalAppearance.h"
#include "Platform/Linux/PosixFileCopier.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Linux/ProcHostStatistics.h"
#include "Platform/Linux/PulseAudioHardware.h"
#include "Platform/Linux/StandardConsole.h"
#include "Platform/Linux/StandardLog.h"
#include "Platform/Linux/SysfsDisplayBrightness.h"
#include "Platform/Linux/UPowerPowerSources.h"
#include "Platform/Linux/X11FrontmostApplication.h"
#include "Platform/Linux/X11Pasteboard.h"
#include "Platform/Linux/XdgLoginItem.h"
#include "Platform/Platform.h"
#include "Platform/Qt/QtFileIcons.h"
#include "Platform/Qt/QtHttpClient.h"
#include "Platform/Qt/QtImageCodec.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Qt/QtUrlData.h"

namespace orvelle {

/// The running Linux desktop.
class LinuxPlatform : public Platform {
public:
    LinuxPlatform();
    /// Saves what is not saved yet.
    ~LinuxPlatform() override;

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
    UrlData& urlData() override { return covers_; }
    UserDefaults& userDefaults() override { return userDefaults_; }
    UserNotifications& userNotifications() override { return userNotifications_; }
    Workspace& workspace() override { return workspace_; }

    LinuxDesktop& desktop() { return desktop_; }

private:
    StandardConsole console_;
    StandardLog log_;
    PosixFileCopier fileCopier_;
    PosixFileSystem fileSystem_;
    // Work in the background uses these as long as the run loop lives.
    QtImageCodec imageCodec_;
    MprisRunningApplications runningApplications_;
    QtUrlData urlData_;
    MprisCovers covers_{urlData_};
    LinuxScriptExecutor scriptExecutor_;
    QtRunLoop runLoop_;
    InotifyFileWatch fileWatch_;
    FileUserDefaults userDefaults_{fileSystem_, runLoop_, fileWatch_, log_, unsavedChanges()};
    LinuxDesktop desktop_{userDefaults_, runLoop_};
    IcuFormatting formatting_;
    IcalEventStore eventStore_{runLoop_, formatting_, userDefaults_, log_};
    LinuxCameraService camera_{runLoop_};
    PortalAppearance appearance_;
    PulseAudioHardware audioHardware_{runLoop_};
    SysfsDisplayBrightness displayBrightness_;
    X11FrontmostApplication frontmostApplication_;
    X11Pasteboard pasteboard_;
    CanberraSound sound_;
    GWeatherGeocoder geocoder_{runLoop_};
    ProcHostStatistics hostStatistics_;
    QtHttpClient httpClient_;
    GeoClueLocationService locationService_;
    HwmonSMCService smc_;
    MprisPlayers players_;
    MprisNowPlayingService nowPlaying_{runLoop_, players_, covers_};
    MprisNotificationCenter distributedNotifications_{runLoop_, players_, runningApplications_};
    XdgLoginItem loginItem_;
    QtFileIcons fileIcons_;
    LinuxSharePicker sharePicker_{pasteboard_};
    UPowerPowerSources powerSources_;
    LinuxProcessLauncher processLauncher_;
    LinuxUserNotifications userNotifications_;
    MprisRunningPrograms runningPrograms_{players_};
    LinuxWorkspace workspace_{runLoop_, log_, LinuxWorkspace::Environment::ofProcess(),
                              [this](const std::string& url) { fileViewer_.select({url}); },
                              &runningPrograms_};
    BusFileViewer fileViewer_;
};

} // namespace orvelle
