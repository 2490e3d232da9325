#pragma once

#include "Platform/UnsavedChanges.h"

namespace orvelle {

class Appearance;
class Application;
class AudioHardware;
class CameraService;
class Console;
class DisplayBrightness;
class DistributedNotificationCenter;
class EventMonitors;
class EventStore;
class FileCopier;
class FileIcons;
class FileViewer;
class Formatting;
class FrontmostApplication;
class Geocoder;
class HostStatistics;
class HttpClient;
class ImageCodec;
class LocationService;
class LoginItem;
class LogSink;
class NowPlayingService;
class PanelWindows;
class Pasteboard;
class PowerSources;
class ProcessLauncher;
class RunLoop;
class RunningApplications;
class Screens;
class ScriptExecutor;
class SharePicker;
class SMCService;
class Sound;
class StatusBar;
class UrlData;
class UserDefaults;
class UserNotifications;
class Workspace;

/// Everything that the program needs of the machine it runs on: one port each. Ports outlive all
/// who use them.
class Platform {
public:
    virtual ~Platform() = default;

    virtual Appearance& appearance() = 0;
    virtual Application& application() = 0;
    virtual AudioHardware& audioHardware() = 0;
    virtual CameraService& camera() = 0;
    virtual Console& console() = 0;
    virtual DisplayBrightness& displayBrightness() = 0;
    virtual DistributedNotificationCenter& distributedNotifications() = 0;
    virtual EventMonitors& eventMonitors() = 0;
    virtual EventStore& eventStore() = 0;
    virtual FileCopier& fileCopier() = 0;
    virtual FileIcons& fileIcons() = 0;
    virtual FileSystem& fileSystem() = 0;
    virtual FileViewer& fileViewer() = 0;
    virtual Formatting& formatting() = 0;
    virtual FrontmostApplication& frontmostApplication() = 0;
    virtual Geocoder& geocoder() = 0;
    virtual HostStatistics& hostStatistics() = 0;
    virtual HttpClient& httpClient() = 0;
    virtual ImageCodec& imageCodec() = 0;
    virtual LocationService& locationService() = 0;
    virtual LogSink& log() = 0;
    virtual LoginItem& loginItem() = 0;
    virtual NowPlayingService& nowPlaying() = 0;
    virtual PanelWindows& panelWindows() = 0;
    virtual Pasteboard& pasteboard() = 0;
    virtual PowerSources& powerSources() = 0;
    virtual ProcessLauncher& processLauncher() = 0;
    virtual RunLoop& runLoop() = 0;
    virtual RunningApplications& runningApplications() = 0;
    virtual Screens& screens() = 0;
    virtual ScriptExecutor& scriptExecutor() = 0;
    virtual SharePicker& sharePicker() = 0;
    virtual SMCService& smc() = 0;
    virtual Sound& sound() = 0;
    virtual StatusBar& statusBar() = 0;
    virtual UrlData& urlData() = 0;
    virtual UserDefaults& userDefaults() = 0;
    virtual UserNotifications& userNotifications() = 0;
    virtual Workspace& workspace() = 0;

    /// The same on every machine: whoever saves tells it what the disk refuses.
    UnsavedChanges& unsavedChanges() { return unsavedChanges_; }

    /// The process's platform, which constructors take when they are given none. The composition
    /// root sets it before it builds anything; using it earlier is a programming error and aborts.
    static Platform& shared();
    static void setShared(Platform* platform);

private:
    UnsavedChanges unsavedChanges_;
};

} // namespace orvelle
