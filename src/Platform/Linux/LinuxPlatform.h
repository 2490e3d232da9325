#pragma once

#include "Platform/FileUserDefaults.h"
#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Linux/HwmonSMCService.h"
#include "Platform/Linux/InotifyFileWatch.h"
#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/LinuxProcessLauncher.h"
#include "Platform/Linux/LinuxUserNotifications.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Platform/Linux/MprisApplications.h"
#include "Platform/Linux/MprisNowPlayingService.h"
#include "Platform/Linux/MprisScriptExecutor.h"
#include "Platform/Linux/PortalAppearance.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Linux/ProcHostStatistics.h"
#include "Platform/Linux/PulseAudioHardware.h"
#include "Platform/Linux/StandardLog.h"
#include "Platform/Linux/SysfsDisplayBrightness.h"
#include "Platform/Linux/UPowerPowerSources.h"
#include "Platform/Platform.h"
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
    DisplayBrightness& displayBrightness() override { return displayBrightness_; }
    DistributedNotificationCenter& distributedNotifications() override {
        return distributedNotifications_;
    }
    EventMonitors& eventMonitors() override { return desktop_.eventMonitors; }
    FileSystem& fileSystem() override { return fileSystem_; }
    Formatting& formatting() override { return formatting_; }
    HostStatistics& hostStatistics() override { return hostStatistics_; }
    ImageCodec& imageCodec() override { return imageCodec_; }
    LogSink& log() override { return log_; }
    NowPlayingService& nowPlaying() override { return nowPlaying_; }
    PanelWindows& panelWindows() override { return desktop_.panelWindows; }
    PowerSources& powerSources() override { return powerSources_; }
    ProcessLauncher& processLauncher() override { return processLauncher_; }
    RunLoop& runLoop() override { return runLoop_; }
    RunningApplications& runningApplications() override { return runningApplications_; }
    Screens& screens() override { return desktop_.screens; }
    ScriptExecutor& scriptExecutor() override { return scriptExecutor_; }
    SMCService& smc() override { return smc_; }
    UrlData& urlData() override { return urlData_; }
    UserDefaults& userDefaults() override { return userDefaults_; }
    UserNotifications& userNotifications() override { return userNotifications_; }
    Workspace& workspace() override { return workspace_; }

private:
    StandardLog log_;
    PosixFileSystem fileSystem_;
    // Work in the background uses these as long as the run loop lives.
    QtImageCodec imageCodec_;
    MprisRunningApplications runningApplications_;
    QtUrlData urlData_;
    MprisScriptExecutor scriptExecutor_;
    QtRunLoop runLoop_;
    InotifyFileWatch fileWatch_;
    FileUserDefaults userDefaults_{fileSystem_, runLoop_, fileWatch_, log_};
    LinuxDesktop desktop_{userDefaults_};
    IcuFormatting formatting_;
    PortalAppearance appearance_;
    PulseAudioHardware audioHardware_{runLoop_};
    SysfsDisplayBrightness displayBrightness_;
    ProcHostStatistics hostStatistics_;
    HwmonSMCService smc_;
    MprisPlayers players_;
    MprisNowPlayingService nowPlaying_{runLoop_, players_, urlData_};
    MprisNotificationCenter distributedNotifications_{runLoop_, players_, runningApplications_};
    UPowerPowerSources powerSources_;
    LinuxProcessLauncher processLauncher_;
    LinuxUserNotifications userNotifications_;
    LinuxWorkspace workspace_{log_, LinuxWorkspace::Environment::ofProcess()};
};

} // namespace orvelle
