#include "App/AppDelegate.h"

#include "App/Constants.h"
#include "Core/BugReport.h"
#include "Core/Describe.h"
#include "Core/NotchWindow/NotchDetector.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"
#include "Platform/RunLoop.h"
#include "Platform/Screens.h"
#include "Platform/UserDefaults.h"
#include "Platform/UserNotifications.h"
#include "Platform/Workspace.h"
#include "Settings/SettingsKeys.h"

namespace orvelle {

AppDelegate::AppDelegate(ViewHost& views, Platform& platform)
    : views_(views), platform_(platform), log_(platform.log(), "AppDelegate"), notchState(platform),
      updateChecker(platform), mediaManager(platform), fileShelfManager(platform),
      hudManager({}, platform), calendarManager(platform), batteryManager(platform),
      clipboardManager(platform), systemMonitorManager(platform), weatherManager(platform),
      pomodoroManager(platform), todoManager(platform), notesManager(platform),
      stockTickerManager(platform), timeManager(platform), themeManager(platform),
      mirrorManager(platform), hoverLayoutManager(platform), panelOrderManager(platform),
      panelUndo(notchState, platform.runLoop()), settingsUndo(platform.runLoop()),
      featureSwitches_(makeFeatureSwitches()) {}

NotchEnvironment AppDelegate::environment() {
    return {notchState,
            mediaManager,
            fileShelfManager,
            hudManager,
            calendarManager,
            batteryManager,
            clipboardManager,
            systemMonitorManager,
            weatherManager,
            pomodoroManager,
            todoManager,
            notesManager,
            stockTickerManager,
            timeManager,
            themeManager,
            mirrorManager,
            hoverLayoutManager,
            panelOrderManager,
            panelUndo,
            [this] { openSettings(); },
            {},
            [this](std::string_view key) {
                return statusBarMenu && statusBarMenu->performShortcut(key);
            }};
}

SettingsEnvironment AppDelegate::settingsEnvironment() {
    return {environment(), updateChecker, settingsUndo, [this] { reportBug(); }};
}

void AppDelegate::applicationDidFinishLaunching() {
    auto& application = platform_.application();
    const auto version = application.operatingSystemVersion();
    log_.info(format("Orvelle launching — macOS %ld.%ld.%ld, arch %s", version.major, version.minor,
                     version.patch, application.architecture().c_str()));
    logScreens();

    log_.info("Setting up status bar (before activation policy change)");
    setupStatusBar();
    application.setActivationPolicy(ActivationPolicy::accessory);
    log_.info("Activation policy set to .accessory");
    updateChecker.start();

    if (!platform_.userDefaults().boolean(Settings::hasCompletedOnboarding.name)) {
        log_.info("First launch — showing onboarding");
        showOnboarding();
        return;
    }
    log_.info("Normal launch — onboarding completed previously");
    bringUpNotchAndFeatures();
    log_.info("Launch complete — all features started");
}

void AppDelegate::applicationWillTerminate() {
    panelUndo.finish();
    stopFeatures();
}

void AppDelegate::showNotch() {
    notchState.expandedState = NotchExpandedState::expanded;
}

void AppDelegate::reopen() {
    if (!notchWindowController && onboardingWindow) {
        showOnboarding();
        return;
    }
    showNotch();
    auto* window = notchWindowController ? notchWindowController->window() : nullptr;
    if (window && window->isVisible()) {
        window->orderFront(); // another program may have closed it
        window->makeKey();
    }
}

void AppDelegate::logScreens() {
    const auto screens = platform_.screens().screens();
    log_.info(format("Screens: %zu, main=%s", screens.size(),
                     describe(platform_.screens().main().has_value())));
    for (std::size_t index = 0; index < screens.size(); ++index)
        log_.info(format("  Screen[%zu]: %s, frame=%s, safeArea.top=%f", index,
                         screens[index].localizedName.c_str(),
                         describe(screens[index].frame).c_str(),
                         screens[index].safeAreaInsets.top));
}

void AppDelegate::setupStatusBar() {
    log_.info("Setting up status bar");
    statusBarItem = platform_.statusBar().makeStatusItem();
    const StatusItem::Image image{std::string("rectangle.topthird.inset.filled"_symbol), "Orvelle",
                                  14};
    statusBarItem->setImage(image, lifetime_.guard([this](bool hasButton) {
        if (hasButton)
            log_.info("Status bar icon set");
        else
            log_.error("Failed to get status bar button — menu bar icon will be invisible");
    }));
    statusBarMenu = std::make_unique<StatusBarMenu>(
        StatusBarMenu::Commands{[this] { showNotch(); }, [this] { openSettings(); },
                                [this] { runSetupWizard(); }, [this] { reportBug(); },
                                [this] { checkForUpdates(); }, [this] { quitApp(); }},
        systemMonitorManager, batteryManager, platform_);
    statusBarItem->setMenu(statusBarMenu->items());
}

void AppDelegate::openSettings() {
    if (settingsWindow && settingsWindow->isVisible()) {
        settingsWindow->makeKeyAndOrderFront();
        return;
    }
    settingsWindow =
        views_.showSettings({"Orvelle Settings", {500, 400}, AppConstants::Notch::expandedHeight},
                            settingsEnvironment(), [this] { settingsWindowWillClose(); });
    platform_.application().setActivationPolicy(ActivationPolicy::regular);
}

void AppDelegate::settingsWindowWillClose() {
    settingsUndo.finish();
    settingsWindow.reset();
    platform_.application().setActivationPolicy(ActivationPolicy::accessory);
}

void AppDelegate::runSetupWizard() {
    platform_.userDefaults().set(Settings::hasCompletedOnboarding.name, false);
    showOnboarding();
}

void AppDelegate::reportBug() {
    const BugReport report{platform_.application().operatingSystemVersionString(),
                           platform_.application().architecture()};
    platform_.workspace().open(report.mailAddress());
}

void AppDelegate::checkForUpdates() {
    updateChecker.check(lifetime_.guard([this] { offerUpdate(); }));
}

void AppDelegate::offerUpdate() {
    if (!updateChecker.updateAvailable || !updateChecker.latestVersion.get())
        return;
    statusBarMenu->showUpdate(*updateChecker.latestVersion.get());
    if (const auto& url = updateChecker.downloadURL.get())
        platform_.workspace().openFromNetwork(*url);
}

void AppDelegate::quitApp() {
    platform_.application().terminate();
}

void AppDelegate::showOnboarding() {
    if (onboardingWindow && onboardingWindow->isVisible()) {
        onboardingWindow->makeKeyAndOrderFront();
        return;
    }
    const bool setupIsDue = notchWindowController == nullptr;
    onboardingWindow = views_.showOnboarding(
        {"Welcome to Orvelle", {480, 380}, AppConstants::Notch::expandedHeight}, environment(),
        [this, setupIsDue] { onboardingCompleted(setupIsDue); },
        [this] { onboardingWindowWillClose(); });
    platform_.application().setActivationPolicy(ActivationPolicy::regular);
}

void AppDelegate::onboardingCompleted(bool setupIsDue) {
    platform_.userDefaults().set(Settings::hasCompletedOnboarding.name, true);
    onboardingWindow.reset();
    if (setupIsDue)
        completeSetup();
    platform_.application().setActivationPolicy(ActivationPolicy::accessory);
}

// The user closed the wizard by its close button, which counts as finishing it.
void AppDelegate::onboardingWindowWillClose() {
    onboardingCompleted(notchWindowController == nullptr);
}

void AppDelegate::completeSetup() {
    log_.info("Completing post-onboarding setup");
    bringUpNotchAndFeatures();
    log_.info("Post-onboarding setup complete — all features started");
}

void AppDelegate::bringUpNotchAndFeatures() {
    setupNotchWindow();
    applyFeatureDefaults();
    startAllFeatures();
    observeRequireRealNotch();
}

void AppDelegate::setupNotchWindow() {
    if (notchWindowController)
        return;
    const auto info = NotchDetector::detectNotch(platform_);
    log_.info(format("NotchDetector: hasNotch=%s, size=%fx%f, pos=(%f, %f), screen=%s",
                     describe(info.hasNotch), info.notchSize.width, info.notchSize.height,
                     info.notchPosition.x, info.notchPosition.y,
                     info.screen ? info.screen->localizedName.c_str() : "nil"));
    if (!info.screen) {
        log_.error("No screen available — cannot create notch window. Showing alert.");
        showNoScreenAlert();
        return;
    }
    log_.info(format("Using screen: %s, frame=%s", info.screen->localizedName.c_str(),
                     describe(info.screen->frame).c_str()));
    notchState.hasNotch = info.hasNotch;
    notchState.notchSize = info.notchSize;
    notchState.notchPosition = info.notchPosition;
    notchState.currentScreen = info.screen;

    notchWindowController =
        std::make_unique<NotchWindowController>(environment(), views_, platform_);
    notchWindowController->showWindow();
    const auto* window = notchWindowController->window();
    log_.info(format("Notch window created and shown at frame=%s",
                     window ? describe(window->frame()).c_str() : "nil"));
}

void AppDelegate::showNoScreenAlert() {
    auto& application = platform_.application();
    log_.info(format("showNoScreenAlert — NSScreen.screens=%zu, main=%s",
                     platform_.screens().screens().size(),
                     describe(platform_.screens().main().has_value())));
    application.setActivationPolicy(ActivationPolicy::regular);
    const Alert alert{"Orvelle Cannot Start",
                      "No display was detected. Please ensure a screen is connected and try "
                      "again.\n\nmacOS " +
                          application.operatingSystemVersionString(),
                      {"Retry", "Quit"}};
    constexpr std::size_t retry = 0;
    if (application.runModal(alert) != retry) {
        application.terminate();
        return;
    }
    application.setActivationPolicy(ActivationPolicy::accessory);
    setupNotchWindow();
    if (notchWindowController) {
        applyFeatureDefaults();
        startAllFeatures();
    }
}

std::vector<AppDelegate::FeatureSwitch> AppDelegate::makeFeatureSwitches() {
    const auto nothing = [] {};
    return {
        {.key = Settings::mediaEnabled,
         .module = mediaManager,
         .stop = [this] { mediaManager.stop(); },
         .switchesItself = true},
        {.key = Settings::fileShelfEnabled,
         .module = fileShelfManager,
         .stop = [this] { fileShelfManager.cleanupTimer.reset(); },
         .switchesItself = true},
        {Settings::hudEnabled, hudManager,
         [this] {
             hudManager.isMonitoring = false;
             hudManager.stopIntercepting();
         }},
        {Settings::calendarEnabled, calendarManager,
         [this] { calendarManager.notificationObserver.reset(); }},
        {Settings::batteryEnabled, batteryManager, [this] { batteryManager.updateTimer.reset(); }},
        {Settings::clipboardEnabled, clipboardManager,
         [this] { clipboardManager.pollTimer.reset(); }},
        {Settings::systemMonitorEnabled, systemMonitorManager,
         [this] {
             systemMonitorManager.updateTimer.reset();
             systemMonitorManager.previousCPUInfo.reset();
             systemMonitorManager.previousNetworkBytes.reset();
         }},
        {Settings::weatherEnabled, weatherManager, [this] { weatherManager.stop(); }},
        {Settings::pomodoroEnabled, pomodoroManager, [this] { pomodoroManager.pauseTimer(); }},
        {Settings::todoEnabled, todoManager, nothing},
        {Settings::notesEnabled, notesManager, nothing},
        {.key = Settings::stockTickerEnabled,
         .module = stockTickerManager,
         .stop = [this] { stockTickerManager.refreshTimer.reset(); },
         .switchesItself = true},
        {Settings::timeEnabled, timeManager, [this] { timeManager.timer.reset(); }},
        {Settings::mirrorEnabled, mirrorManager, [this] { mirrorManager.stopSession(); }},
    };
}

bool AppDelegate::stored(const SettingKey<bool>& key) const {
    return platform_.userDefaults().storedBoolean(key.name).value_or(key.defaultValue);
}

void AppDelegate::applyFeatureDefaults() {
    for (auto& feature : featureSwitches_) {
        feature.isOn = stored(feature.key);
        feature.module.isEnabled = feature.isOn;
    }
    notchState.clickWidgetNavigatesToPanel = stored(Settings::clickWidgetNavigatesToPanel);
}

// Each manager decides for itself whether its switch lets it run.
void AppDelegate::startAllFeatures() {
    for (auto& feature : featureSwitches_) {
        feature.module.start();
        if (&feature.module == &pomodoroManager)
            platform_.userNotifications().requestAuthorization();
    }
}

void AppDelegate::stopFeatures() {
    for (auto& feature : featureSwitches_)
        feature.stop();
}

void AppDelegate::followFeatureSwitches() {
    for (auto& feature : featureSwitches_) {
        if (feature.isOn == stored(feature.key))
            continue;
        feature.isOn = !feature.isOn;
        feature.module.isEnabled = feature.isOn;
        if (feature.switchesItself)
            continue;
        if (feature.isOn)
            feature.module.start();
        else
            feature.stop();
    }
}

// The setting follows the state; the state follows a setting that was changed from outside.
void AppDelegate::followClickWidget() {
    const bool navigates = stored(Settings::clickWidgetNavigatesToPanel);
    if (notchState.clickWidgetNavigatesToPanel != navigates)
        notchState.clickWidgetNavigatesToPanel = navigates;
}

void AppDelegate::observeRequireRealNotch() {
    // Any setting may have changed; the detector looks for itself.
    requireRealNotchObserver_ = platform_.userDefaults().observeChanges([this] {
        platform_.runLoop().post(lifetime_.guard([this] {
            followRequireRealNotch();
            followFeatureSwitches();
            followClickWidget();
        }));
    });
}

void AppDelegate::followRequireRealNotch() {
    const bool hasScreen = NotchDetector::detectNotch(platform_).screen.has_value();
    if (!notchWindowController) {
        if (hasScreen)
            setupNotchWindow();
        return;
    }
    auto* window = notchWindowController->window();
    if (!window)
        return;
    if (hasScreen)
        window->orderFront();
    else
        window->orderOut();
}

} // namespace orvelle
