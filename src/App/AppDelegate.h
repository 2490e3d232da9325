#pragma once

#include "Core/HoverLayoutManager.h"
#include "Core/NotchEnvironment.h"
#include "Core/NotchWindow/NotchWindowController.h"
#include "Core/PanelOrderManager.h"
#include "Core/PluginRegistry.h"
#include "Core/SettingsEnvironment.h"
#include "Core/StatusBarMenu.h"
#include "Core/UndoOffer.h"
#include "Core/ViewHost.h"
#include "Features/Battery/BatteryManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Todo/TodoManager.h"
#include "Features/UpdateChecker/UpdateChecker.h"
#include "Features/Weather/WeatherManager.h"
#include "Models/NotchState.h"
#include "Platform/Application.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Settings/SettingsKeys.h"

#include <functional>
#include <memory>
#include <vector>

namespace orvelle {

/// Owns every long-lived object of the process, and starts and stops all of it.
class AppDelegate {
public:
    explicit AppDelegate(ViewHost& views, Platform& platform = Platform::shared());

private:
    ViewHost& views_;
    Platform& platform_;
    Logger log_;

public:
    // Built in this order, once, for the life of the process.
    NotchState notchState;
    UpdateChecker updateChecker;
    MediaManager mediaManager;
    FileShelfManager fileShelfManager;
    HUDManager hudManager; ///< without a notch state: its level display stays off the panel
    CalendarManager calendarManager;
    BatteryManager batteryManager;
    ClipboardManager clipboardManager;
    SystemMonitorManager systemMonitorManager;
    WeatherManager weatherManager;
    PomodoroManager pomodoroManager;
    TodoManager todoManager;
    NotesManager notesManager;
    StockTickerManager stockTickerManager;
    TimeManager timeManager;
    ThemeManager themeManager;
    MirrorManager mirrorManager;
    HoverLayoutManager hoverLayoutManager;
    PanelOrderManager panelOrderManager;
    PluginRegistry pluginRegistry;
    // Before the managers, these end what is held back.
    PanelUndoOffer panelUndo;
    UndoOffer settingsUndo;

    std::unique_ptr<NotchWindowController> notchWindowController;
    std::unique_ptr<StatusItem> statusBarItem;
    std::unique_ptr<AppWindow> settingsWindow;
    std::unique_ptr<AppWindow> onboardingWindow;
    std::unique_ptr<StatusBarMenu> statusBarMenu;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    void showNotch();
    /// What another start of the program asks of this one: opens the panel with the keyboard in it,
    /// so that a shortcut of the desktop's leads there without a pointer. While the first wizard is
    /// open, that comes to the front instead.
    void reopen();
    void openSettings();
    void runSetupWizard();
    void reportBug();
    void checkForUpdates();
    void quitApp();

    NotchEnvironment environment();
    SettingsEnvironment settingsEnvironment();

private:
    /// A feature with its setting. The order of the table is that of starting and stopping.
    struct FeatureSwitch {
        SettingKey<bool> key;
        FeatureModule& module;
        std::function<void()> stop;
        bool switchesItself = false; ///< assigning `isEnabled` is all that its switch does
        bool isOn = false;           ///< as the setting was seen last
    };

    std::vector<FeatureSwitch> makeFeatureSwitches();
    bool stored(const SettingKey<bool>& key) const;
    void logScreens();
    void setupStatusBar();
    void showOnboarding();
    void onboardingCompleted(bool setupIsDue);
    void settingsWindowWillClose();
    void onboardingWindowWillClose();
    void offerUpdate();
    void completeSetup();
    void bringUpNotchAndFeatures();
    void setupNotchWindow();
    void applyFeatureDefaults();
    void startAllFeatures();
    void stopFeatures();
    void observeRequireRealNotch();
    void followRequireRealNotch();
    /// Starts and stops the features whose settings have changed.
    void followFeatureSwitches();
    void followClickWidget();
    void showNoScreenAlert();

    std::vector<FeatureSwitch> featureSwitches_;
    Subscription requireRealNotchObserver_;
    Lifetime lifetime_;
};

} // namespace orvelle
