#pragma once

#include "Platform/FileUserDefaults.h"
#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Linux/BusFileViewer.h"
#include "Platform/Linux/HwmonSMCService.h"
#include "Platform/Linux/InotifyFileWatch.h"
#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/LinuxProcessLauncher.h"
#include "Platform/Linux/LinuxSharePicker.h"
#include "Platform/Linux/LinuxUserNotifications.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Platform/Linux/PortalAppearance.h"
#include "Platform/Linux/PosixFileCopier.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Linux/ProcHostStatistics.h"
#include "Platform/Linux/SilentMedia.h"
#include "Platform/Linux/StandardConsole.h"
#include "Platform/Linux/StandardLog.h"
#include "Platform/Linux/UPowerPowerSources.h"
#include "Platform/Platform.h"
#include "Platform/Qt/QtFileIcons.h"
#include "Platform/Qt/QtImageCodec.h"
#include "Platform/Qt/QtPasteboard.h"
#include "Platform/Qt/QtRunLoop.h"

namespace orvelle {

/// The running Linux desktop.
class LinuxPlatform : public Platform {
public:
    LinuxPlatform();
    /// Saves what is not saved yet.
    ~LinuxPlatform() override;

    Appearance& appearance() override { return appearance_; }
    Application& application() override { return desktop_.application; }
    Console& console() override { return console_; }
    DistributedNotificationCenter& distributedNotifications() override {
        return distributedNotifications_;
    }
    EventMonitors& eventMonitors() override { return desktop_.eventMonitors; }
    FileCopier& fileCopier() override { return fileCopier_; }
    FileIcons& fileIcons() override { return fileIcons_; }
    FileSystem& fileSystem() override { return fileSystem_; }
    FileViewer& fileViewer() override { return fileViewer_; }
    Formatting& formatting() override { return formatting_; }
    HostStatistics& hostStatistics() override { return hostStatistics_; }
    ImageCodec& imageCodec() override { return imageCodec_; }
    LogSink& log() override { return log_; }
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
    UrlData& urlData() override { return urlData_; }
    UserDefaults& userDefaults() override { return userDefaults_; }
    UserNotifications& userNotifications() override { return userNotifications_; }
    Workspace& workspace() override { return workspace_; }

private:
    StandardConsole console_;
    StandardLog log_;
    PosixFileCopier fileCopier_;
    PosixFileSystem fileSystem_;
    QtRunLoop runLoop_;
    InotifyFileWatch fileWatch_;
    FileUserDefaults userDefaults_{fileSystem_, runLoop_, fileWatch_, log_};
    LinuxDesktop desktop_{userDefaults_};
    IcuFormatting formatting_;
    PortalAppearance appearance_;
    ProcHostStatistics hostStatistics_;
    HwmonSMCService smc_;
    SilentNowPlayingService nowPlaying_;
    SilentDistributedNotificationCenter distributedNotifications_;
    QtFileIcons fileIcons_;
    QtImageCodec imageCodec_;
    QtPasteboard pasteboard_;
    LinuxSharePicker sharePicker_{pasteboard_};
    SilentRunningApplications runningApplications_;
    SilentScriptExecutor scriptExecutor_;
    SilentUrlData urlData_;
    UPowerPowerSources powerSources_;
    LinuxProcessLauncher processLauncher_;
    LinuxUserNotifications userNotifications_;
    LinuxWorkspace workspace_{log_, LinuxWorkspace::Environment::ofProcess()};
    BusFileViewer fileViewer_;
};

} // namespace orvelle
