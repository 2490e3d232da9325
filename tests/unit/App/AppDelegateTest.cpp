#include "Support/AppFixture.h"

#include <algorithm>

namespace orvelle {
namespace {

using Policies = std::vector<ActivationPolicy>;
constexpr auto accessory = ActivationPolicy::accessory;
constexpr auto regular = ActivationPolicy::regular;

class AppDelegateTest : public AppFixture {
protected:
    bool notchIsShown() {
        return app.notchWindowController && app.notchWindowController->window()->isVisible();
    }
    std::vector<std::string> logged() {
        std::vector<std::string> messages;
        for (const auto& line : platform.logPort.lines)
            if (line.category == "AppDelegate")
                messages.push_back(line.message);
        return messages;
    }
    int detections() {
        return static_cast<int>(std::count_if(
            platform.logPort.lines.begin(), platform.logPort.lines.end(),
            [](const auto& line) { return line.message.starts_with("Detecting notch"); }));
    }
};

TEST_F(AppDelegateTest, ANormalLaunchLogsItsStepsInOrder) {
    launchNormally();
    const std::vector<std::string> expected{
        "Orvelle launching — macOS 12.5.0, arch x86_64",
        "Screens: 1, main=true",
        "  Screen[0]: Simulated Display, frame={{0, 0}, {1512, 982}}, safeArea.top=0.000000",
        "Setting up status bar (before activation policy change)",
        "Setting up status bar",
        "Status bar icon set",
        "Activation policy set to .accessory",
        "Normal launch — onboarding completed previously",
        "NotchDetector: hasNotch=false, size=180.000000x24.000000, pos=(666.000000, 958.000000), "
        "screen=Simulated Display",
        "Using screen: Simulated Display, frame={{0, 0}, {1512, 982}}",
        "Notch window created and shown at frame={{666, 958}, {180, 24}}",
        "Launch complete — all features started"};
    EXPECT_EQ(logged(), expected);
    EXPECT_EQ(platform.applicationPort.policies, Policies{accessory});
    EXPECT_TRUE(notchIsShown());
}

TEST_F(AppDelegateTest, AFirstLaunchBringsUpNothingButStatusItemUpdateCheckerAndWizard) {
    app.applicationDidFinishLaunching();
    EXPECT_EQ(logged().back(), "First launch — showing onboarding");
    EXPECT_EQ(platform.statusBarPort.itemCount, 1);
    EXPECT_TRUE(views.onboarding.isShown);
    EXPECT_EQ(views.onboarding.description.title, "Welcome to Orvelle");
    EXPECT_EQ(views.onboarding.description.contentSize, (Size{480, 380}));
    EXPECT_EQ(platform.applicationPort.policies, (Policies{accessory, regular}));
    EXPECT_EQ(app.notchWindowController, nullptr);
    EXPECT_EQ(platform.httpClientPort.requests.size(), 1u) << "the update checker's";
    EXPECT_TRUE(app.updateChecker.timer);
    EXPECT_EQ(featureTimers(), 0u);
    EXPECT_TRUE(platform.nowPlayingPort.registrations.empty());
    EXPECT_EQ(platform.userNotificationsPort.authorizationRequests, 0);
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), std::nullopt);
}

TEST_F(AppDelegateTest, TheEndOfTheFirstWizardBringsUpNotchAndFeatures) {
    app.applicationDidFinishLaunching();
    views.onboarding.onComplete();
    const auto messages = logged();
    const std::vector<std::string> wanted{"First launch — showing onboarding",
                                          "Completing post-onboarding setup",
                                          "Post-onboarding setup complete — all features started"};
    auto from = messages.begin();
    for (const auto& message : wanted) {
        from = std::find(from, messages.end(), message);
        EXPECT_NE(from, messages.end()) << message;
    }
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), true);
    EXPECT_FALSE(views.onboarding.isShown);
    EXPECT_EQ(platform.applicationPort.policies, (Policies{accessory, regular, accessory}));
    EXPECT_TRUE(notchIsShown());
    EXPECT_TRUE(app.batteryManager.updateTimer);
}

TEST_F(AppDelegateTest, ClosingTheFirstWizardCountsAsFinishingIt) {
    app.applicationDidFinishLaunching();
    views.onboarding.close();
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), true);
    EXPECT_EQ(app.onboardingWindow, nullptr);
    EXPECT_TRUE(notchIsShown());
    EXPECT_TRUE(app.timeManager.timer);
    EXPECT_EQ(platform.applicationPort.policies, (Policies{accessory, regular, accessory}));
}

TEST_F(AppDelegateTest, TheWizardRunAgainLeavesTheNotchUntouched) {
    launchNormally();
    const auto* controller = app.notchWindowController.get();
    app.runSetupWizard();
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), false);
    app.runSetupWizard();
    EXPECT_EQ(views.onboarding.madeCount, 1);
    EXPECT_EQ(views.onboarding.frontCount, 1) << "the open one comes to the front";
    views.onboarding.onComplete();
    EXPECT_EQ(defaults().storedBoolean("hasCompletedOnboarding"), true);
    EXPECT_EQ(app.notchWindowController.get(), controller);
    EXPECT_EQ(platform.panelWindowsPort.count, 1);
    EXPECT_EQ(platform.userNotificationsPort.authorizationRequests, 1) << "no second setup";
}

TEST_F(AppDelegateTest, SettingsTwiceIsOneWindowBroughtToTheFront) {
    launchNormally();
    app.openSettings();
    EXPECT_EQ(views.settings.description.title, "Orvelle Settings");
    EXPECT_EQ(views.settings.description.contentSize, (Size{500, 400}));
    EXPECT_EQ(platform.applicationPort.policies, (Policies{accessory, regular}));
    app.openSettings();
    EXPECT_EQ(views.settings.madeCount, 1);
    EXPECT_EQ(views.settings.frontCount, 1);
}

TEST_F(AppDelegateTest, ClosedSettingsTurnTheProcessIntoAnAccessoryAndCanBeOpenedAgain) {
    launchNormally();
    app.openSettings();
    views.settings.close();
    EXPECT_EQ(platform.applicationPort.policies.back(), accessory);
    app.openSettings();
    EXPECT_EQ(views.settings.madeCount, 2);
    EXPECT_TRUE(views.settings.isShown);
}

TEST_F(AppDelegateTest, RequireRealNotchWithoutANotchAlertsAtLaunchAndAgainAfterRetry) {
    defaults().set("requireRealNotch", true);
    int answers = 0;
    platform.applicationPort.answer = [&](const Alert& alert) {
        EXPECT_EQ(alert.messageText, "Orvelle Cannot Start");
        EXPECT_EQ(alert.informativeText,
                  "No display was detected. Please ensure a screen is connected and try "
                  "again.\n\nmacOS Simulated 12.5");
        EXPECT_EQ(alert.buttons, (std::vector<std::string>{"Retry", "Quit"}));
        return static_cast<std::size_t>(++answers < 3 ? 0 : 1);
    };
    launchNormally();
    EXPECT_EQ(answers, 3);
    EXPECT_EQ(platform.applicationPort.terminateCount, 1);
    EXPECT_EQ(app.notchWindowController, nullptr);
    EXPECT_EQ(platform.applicationPort.policies,
              (Policies{accessory, regular, accessory, regular, accessory, regular}));
}

TEST_F(AppDelegateTest, ASuccessfulRetryStartsTheFeaturesTwiceWithoutHarm) {
    defaults().set("requireRealNotch", true);
    platform.applicationPort.answer = [&](const Alert&) {
        defaults().set("requireRealNotch", false);
        return std::size_t{0};
    };
    launchNormally();
    EXPECT_TRUE(notchIsShown());
    EXPECT_EQ(platform.userNotificationsPort.authorizationRequests, 2);
    const auto reads = platform.powerSourcesPort.snapshotCount;
    advance(30);
    EXPECT_EQ(platform.powerSourcesPort.snapshotCount, reads + 1)
        << "a second start replaces the first one's timer";
}

TEST_F(AppDelegateTest, AnyLaterChangeOfASettingDetectsTheNotchOnceMore) {
    launchNormally();
    runPosted();
    const int before = detections();
    defaults().set("customAccentHue", 0.3);
    EXPECT_EQ(detections(), before) << "only after the present event";
    runPosted();
    EXPECT_EQ(detections(), before + 1);
}

TEST_F(AppDelegateTest, RequireRealNotchTakesTheWindowAwayAndBringsItBack) {
    launchNormally();
    defaults().set("requireRealNotch", true);
    runPosted();
    EXPECT_FALSE(notchIsShown());
    EXPECT_TRUE(app.batteryManager.updateTimer) << "features keep running";
    defaults().set("requireRealNotch", false);
    runPosted();
    EXPECT_TRUE(notchIsShown());
    EXPECT_EQ(platform.panelWindowsPort.count, 1) << "the window object stays";
}

TEST_F(AppDelegateTest, AChangeOfScreensWhileTheWindowIsAwayLeavesAPanelThatWorks) {
    launchNormally();
    defaults().set("requireRealNotch", true);
    runPosted();
    const Screen other{"Other", {{0, 0}, {1920, 1080}}, {{0, 0}, {1920, 1056}}, {}, {}, {}};
    platform.screensPort.list = {other};
    platform.screensPort.mainScreen = other;
    platform.screensPort.notifyChanged();
    runPosted();
    EXPECT_FALSE(notchIsShown());

    defaults().set("requireRealNotch", false);
    runPosted();
    EXPECT_TRUE(notchIsShown());
    EXPECT_EQ(window().frame(), (Rect{{870, 1056}, {180, 24}})) << "on the present screen";
    setState(NotchExpandedState::expanded);
    EXPECT_EQ(window().frame(), (Rect{{677, 860}, {566, 220}}));
}

TEST_F(AppDelegateTest, ASettingThatLeavesNoScreenKeepsTheFrame) {
    launchNormally();
    platform.screensPort.list.clear();
    platform.screensPort.mainScreen.reset();
    platform.screensPort.notifyChanged();
    runPosted();
    const auto frame = window().frame();
    defaults().set("customAccentHue", 0.3);
    runPosted();
    EXPECT_EQ(window().frame(), frame);
}

TEST_F(AppDelegateTest, ASettingCanBringUpTheNotchThatLaunchCouldNot) {
    defaults().set("requireRealNotch", true);
    platform.applicationPort.answer = [](const Alert&) { return std::size_t{1}; };
    launchNormally();
    runPosted();
    ASSERT_EQ(app.notchWindowController, nullptr);
    defaults().set("requireRealNotch", false);
    runPosted();
    EXPECT_TRUE(notchIsShown());
}

TEST_F(AppDelegateTest, MediaSwitchedOffIsStoppedAndItsLaterStartDoesNothing) {
    defaults().set("mediaEnabled", false);
    launchNormally();
    EXPECT_EQ(platform.nowPlayingPort.registrations, std::vector<bool>{false});
    EXPECT_FALSE(app.mediaManager.isEnabled);
}

TEST_F(AppDelegateTest, MediaIsStartedByItsSwitchAndAgainWithAllFeatures) {
    launchNormally();
    EXPECT_EQ(platform.nowPlayingPort.registrations, (std::vector<bool>{true, true}));
}

TEST_F(AppDelegateTest, UnsetSwitchesTakeTheirOwnDefaults) {
    launchNormally();
    const auto on = {&app.mediaManager.isEnabled,   &app.fileShelfManager.isEnabled,
                     &app.hudManager.isEnabled,     &app.calendarManager.isEnabled,
                     &app.batteryManager.isEnabled, &app.timeManager.isEnabled};
    const auto off = {&app.clipboardManager.isEnabled,   &app.systemMonitorManager.isEnabled,
                      &app.weatherManager.isEnabled,     &app.pomodoroManager.isEnabled,
                      &app.todoManager.isEnabled,        &app.notesManager.isEnabled,
                      &app.stockTickerManager.isEnabled, &app.mirrorManager.isEnabled};
    for (const auto* isEnabled : on)
        EXPECT_TRUE(isEnabled->get());
    for (const auto* isEnabled : off)
        EXPECT_FALSE(isEnabled->get());
    EXPECT_TRUE(app.notchState.clickWidgetNavigatesToPanel);
}

TEST_F(AppDelegateTest, StoredSwitchesAreTakenAndOtherTypesCountAsUnset) {
    defaults().set("timeEnabled", false);
    defaults().set("notesEnabled", true);
    defaults().set("batteryEnabled", std::int64_t{0});
    defaults().set("clickWidgetNavigatesToPanel", false);
    launchNormally();
    EXPECT_FALSE(app.timeManager.isEnabled);
    EXPECT_TRUE(app.notesManager.isEnabled);
    EXPECT_TRUE(app.batteryManager.isEnabled);
    EXPECT_FALSE(app.notchState.clickWidgetNavigatesToPanel);
}

TEST_F(AppDelegateTest, ASwitchedOffFeatureRunsNoTimerAndAsksNothing) {
    for (const char* key : {"mediaEnabled", "fileShelfEnabled", "hudEnabled", "calendarEnabled",
                            "batteryEnabled", "timeEnabled"})
        defaults().set(key, false);
    launchNormally();
    EXPECT_EQ(featureTimers(), 1u) << "the shelf's, which takes drops all the same";
    advance(3600);
    EXPECT_EQ(platform.powerSourcesPort.snapshotCount, 0);
    EXPECT_EQ(platform.hostStatisticsPort.readCount, 0);
    EXPECT_EQ(platform.smcPort.openCount, 0);
}

TEST_F(AppDelegateTest, AFeatureFollowsItsSettingWhileTheProgramRuns) {
    launchNormally();
    defaults().set("systemMonitorEnabled", true);
    runPosted();
    EXPECT_TRUE(app.systemMonitorManager.isEnabled);
    EXPECT_TRUE(app.systemMonitorManager.updateTimer);
    defaults().set("systemMonitorEnabled", false);
    runPosted();
    EXPECT_FALSE(app.systemMonitorManager.isEnabled);
    EXPECT_FALSE(app.systemMonitorManager.updateTimer);
    EXPECT_EQ(app.systemMonitorManager.previousCPUInfo, std::nullopt);
}

TEST_F(AppDelegateTest, TheShelfIsCleanedUpWhateverItsSwitchSays) {
    defaults().set("fileShelfEnabled", false);
    launchNormally();
    EXPECT_FALSE(app.fileShelfManager.isEnabled);
    EXPECT_TRUE(app.fileShelfManager.cleanupTimer);
    for (const bool isOn : {true, false}) {
        defaults().set("fileShelfEnabled", isOn);
        runPosted();
        EXPECT_EQ(app.fileShelfManager.isEnabled, isOn);
        EXPECT_TRUE(app.fileShelfManager.cleanupTimer);
    }
    app.applicationWillTerminate();
    EXPECT_FALSE(app.fileShelfManager.cleanupTimer);
}

TEST_F(AppDelegateTest, AFeatureThatObeysItsSwitchIsStartedAndStoppedOnceByItsSetting) {
    app.stockTickerManager.tickers = std::vector{StockTicker{UUID::random(), "AAPL", {}, {}}};
    defaults().set("mediaEnabled", false);
    launchNormally();
    platform.nowPlayingPort.registrations.clear();
    platform.httpClientPort.requests.clear();
    defaults().set("mediaEnabled", true);
    defaults().set("stockTickerEnabled", true);
    runPosted();
    EXPECT_EQ(platform.nowPlayingPort.registrations, std::vector<bool>{true});
    EXPECT_EQ(platform.httpClientPort.requests.size(), 1u);
    EXPECT_TRUE(app.stockTickerManager.refreshTimer);
    defaults().set("mediaEnabled", false);
    defaults().set("stockTickerEnabled", false);
    runPosted();
    EXPECT_EQ(platform.nowPlayingPort.registrations, (std::vector<bool>{true, false}));
    EXPECT_FALSE(app.stockTickerManager.refreshTimer);
}

TEST_F(AppDelegateTest, WhetherAWidgetNavigatesFollowsItsSettingWhileTheProgramRuns) {
    launchNormally();
    defaults().set("clickWidgetNavigatesToPanel", false);
    runPosted();
    EXPECT_FALSE(app.notchState.clickWidgetNavigatesToPanel);
    defaults().remove("clickWidgetNavigatesToPanel");
    runPosted();
    EXPECT_TRUE(app.notchState.clickWidgetNavigatesToPanel);
}

TEST_F(AppDelegateTest, AnotherSettingsChangeLeavesTheFeaturesAlone) {
    launchNormally();
    app.batteryManager.isEnabled = false; // as the program itself may do
    defaults().set("customAccentHue", 0.3);
    runPosted();
    EXPECT_FALSE(app.batteryManager.isEnabled);
}

TEST_F(AppDelegateTest, WhileTheFirstWizardIsOpenNoSettingStartsAFeature) {
    app.applicationDidFinishLaunching();
    defaults().set("systemMonitorEnabled", true);
    runPosted();
    EXPECT_FALSE(app.systemMonitorManager.updateTimer);
}

TEST_F(AppDelegateTest, TerminationEndsEveryTimerOfAFeature) {
    defaults().set("systemMonitorEnabled", true);
    launchNormally();
    EXPECT_GT(featureTimers(), 0u);
    app.systemMonitorManager.previousCPUInfo = ProcessorTicks{};
    app.systemMonitorManager.previousNetworkBytes = SystemMonitorManager::NetworkBytes{};
    app.applicationWillTerminate();
    EXPECT_EQ(featureTimers(), 0u);
    EXPECT_EQ(app.systemMonitorManager.previousCPUInfo, std::nullopt);
    EXPECT_EQ(app.systemMonitorManager.previousNetworkBytes, std::nullopt);
    EXPECT_EQ(platform.nowPlayingPort.registrations.back(), false);
}

TEST_F(AppDelegateTest, TerminationStopsWhatFeaturesHaveUnderWay) {
    launchNormally();
    bool calendarIsObserved = true;
    app.hudManager.isMonitoring = true;
    app.hudManager.startIntercepting();
    app.calendarManager.notificationObserver = Subscription([&] { calendarIsObserved = false; });
    for (auto* timer : {&app.clipboardManager.pollTimer, &app.weatherManager.refreshTimer,
                        &app.pomodoroManager.timer, &app.stockTickerManager.refreshTimer})
        *timer = platform.runLoopPort.every(1, [] {});
    app.pomodoroManager.state.update([](auto& value) { value.isRunning = true; });
    app.mirrorManager.isSessionRunning = true;

    app.applicationWillTerminate();
    EXPECT_FALSE(app.hudManager.isMonitoring);
    EXPECT_FALSE(app.hudManager.isIntercepting);
    EXPECT_FALSE(calendarIsObserved);
    EXPECT_EQ(featureTimers(), 0u);
    EXPECT_FALSE(app.pomodoroManager.state->isRunning);
    EXPECT_FALSE(app.mirrorManager.isSessionRunning);
}

/// Tells in which order the features' timers and observers come and go.
class FeatureOrder : public AppDelegateTest {
protected:
    std::vector<std::string> order;

    FeatureOrder() {
        for (const char* key :
             {"clipboardEnabled", "systemMonitorEnabled", "weatherEnabled", "stockTickerEnabled"})
            defaults().set(key, true);
    }
    /// What each feature holds tells when it is replaced or ended.
    void watchTimers() {
        const std::pair<const char*, Timer*> timers[] = {
            {"time", &app.timeManager.timer},
            {"stockTicker", &app.stockTickerManager.refreshTimer},
            {"weather", &app.weatherManager.refreshTimer},
            {"systemMonitor", &app.systemMonitorManager.updateTimer},
            {"clipboard", &app.clipboardManager.pollTimer},
            {"battery", &app.batteryManager.updateTimer},
            {"calendar", &app.calendarManager.notificationObserver},
            {"fileShelf", &app.fileShelfManager.cleanupTimer}};
        for (const auto& [name, timer] : timers)
            *timer = Subscription([this, own = name] { order.emplace_back(own); });
        order.clear();
    }
    const std::vector<std::string> inOrder{"fileShelf",     "calendar", "battery",     "clipboard",
                                           "systemMonitor", "weather",  "stockTicker", "time"};
};

TEST_F(FeatureOrder, IsKeptWhenTheyStart) {
    defaults().remove("stockTickerEnabled"); // its switch starts it, before all the others
    watchTimers();
    launchNormally();
    std::erase(order, "stockTicker");
    EXPECT_EQ(order, (std::vector<std::string>{"fileShelf", "calendar", "battery", "clipboard",
                                               "systemMonitor", "weather", "time"}));
}

TEST_F(FeatureOrder, IsKeptWhenTheyStop) {
    launchNormally();
    watchTimers();
    app.applicationWillTerminate();
    EXPECT_EQ(order, inOrder);
}

TEST_F(FeatureOrder, IsThatOfTheSwitchesToo) {
    std::vector<Subscription> watches;
    const std::pair<const char*, FeatureModule*> features[] = {
        {"mirror", &app.mirrorManager},       {"time", &app.timeManager},
        {"todo", &app.todoManager},           {"battery", &app.batteryManager},
        {"calendar", &app.calendarManager},   {"hud", &app.hudManager},
        {"fileShelf", &app.fileShelfManager}, {"media", &app.mediaManager}};
    for (const auto& [name, feature] : features)
        watches.push_back(
            feature->isEnabled.observe([this, own = name](bool) { order.emplace_back(own); }));
    order.clear();
    launchNormally();
    EXPECT_EQ(order, (std::vector<std::string>{"media", "fileShelf", "hud", "calendar", "battery",
                                               "todo", "time", "mirror"}));
}

TEST_F(AppDelegateTest, TheNotchIsThereBeforeAFeatureStarts) {
    bool wasThere = false;
    app.batteryManager.updateTimer =
        Subscription([&] { wasThere = app.notchWindowController != nullptr; });
    launchNormally();
    EXPECT_TRUE(wasThere);
}

TEST_F(AppDelegateTest, TheStateKnowsTheNotchThatWasFound) {
    auto screen = platform.screensPort.list.front();
    screen.safeAreaInsets.top = 37;
    platform.screensPort.list = {screen};
    launchNormally();
    EXPECT_TRUE(app.notchState.hasNotch);
    EXPECT_EQ(app.notchState.notchSize.get(), (Size{180, 37}));
    EXPECT_EQ(app.notchState.notchPosition.get(), (Point{666, 945}));
    EXPECT_EQ(app.notchState.currentScreen.get(), screen);
}

TEST_F(AppDelegateTest, TheViewsFindTheNotchInTheStateWhenTheyAreShown) {
    std::optional<Screen> screen;
    Size size;
    views.notchContentShown = [&](const NotchEnvironment& environment) {
        screen = environment.notchState.currentScreen;
        size = environment.notchState.notchSize;
    };
    launchNormally();
    EXPECT_EQ(screen, platform.screensPort.mainScreen);
    EXPECT_EQ(size, (Size{180, 24}));
}

TEST_F(AppDelegateTest, TheStatusItemIsThereBeforeTheProcessBecomesAnAccessory) {
    int items = 0;
    platform.applicationPort.policyChanged = [&](auto) {
        items = platform.statusBarPort.itemCount;
    };
    launchNormally();
    EXPECT_EQ(items, 1);
}

TEST_F(AppDelegateTest, AWindowIsThereBeforeTheProcessComesToTheForegroundAndGoneBeforeItLeaves) {
    launchNormally();
    std::vector<std::pair<ActivationPolicy, bool>> seen;
    platform.applicationPort.policyChanged = [&](ActivationPolicy policy) {
        seen.emplace_back(policy, app.settingsWindow || app.onboardingWindow);
    };
    app.openSettings();
    views.settings.close();
    app.runSetupWizard();
    views.onboarding.close();
    app.runSetupWizard();
    views.onboarding.onComplete();
    const std::pair<ActivationPolicy, bool> come{regular, true};
    const std::pair<ActivationPolicy, bool> go{accessory, false};
    EXPECT_EQ(seen, (std::vector{come, go, come, go, come, go}));
}

TEST_F(AppDelegateTest, TheWizardThatIsRunAgainIsDueUntilItIsFinished) {
    launchNormally();
    std::optional<bool> completed;
    platform.applicationPort.policyChanged = [&](ActivationPolicy) {
        completed = defaults().storedBoolean("hasCompletedOnboarding");
    };
    app.runSetupWizard();
    EXPECT_EQ(completed, false);
}

TEST_F(AppDelegateTest, TheAlertIsLoggedBeforeItWaitsForAnAnswer) {
    defaults().set("requireRealNotch", true);
    bool wasLogged = false;
    platform.applicationPort.answer = [&](const Alert&) {
        wasLogged = platform.logPort.contains(
            "No screen available — cannot create notch window. Showing alert.");
        return std::size_t{1};
    };
    launchNormally();
    EXPECT_TRUE(wasLogged);
}

TEST_F(AppDelegateTest, ASuccessfulRetryObeysTheSwitchesBeforeItStartsAnything) {
    defaults().set("batteryEnabled", false);
    defaults().set("requireRealNotch", true);
    platform.applicationPort.answer = [&](const Alert&) {
        defaults().set("requireRealNotch", false);
        return std::size_t{0};
    };
    int assignments = -1; // the first delivery is the present value
    const auto watch = app.batteryManager.isEnabled.observe([&](bool) { ++assignments; });
    launchNormally();
    EXPECT_EQ(assignments, 2) << "once after the retry, once as after every launch";
    EXPECT_EQ(platform.powerSourcesPort.snapshotCount, 0);
}

TEST_F(AppDelegateTest, TheSwitchesAreObeyedBeforeAnythingStarts) {
    defaults().set("batteryEnabled", false);
    bool hadNotch = false;
    const auto watch = app.batteryManager.isEnabled.observe(
        [&](bool) { hadNotch = app.notchWindowController != nullptr; });
    launchNormally();
    EXPECT_EQ(platform.powerSourcesPort.snapshotCount, 0);
    EXPECT_TRUE(hadNotch) << "and after the notch is there";
}

TEST_F(AppDelegateTest, TheStateKnowsThatTheNotchIsAVirtualOne) {
    launchNormally();
    EXPECT_FALSE(app.notchState.hasNotch);
    EXPECT_EQ(app.notchState.notchSize.get(), (Size{180, 24}));
}

TEST_F(AppDelegateTest, TheHudIsWiredWithoutANotchState) {
    constexpr AudioDeviceID speakers = 7;
    auto& audio = platform.audioHardwarePort;
    audio.list = {{.id = speakers, .name = "Speakers", .volume = 0.25F}};
    audio.defaultOutput = speakers;
    auto& brightness = platform.displayBrightnessPort;
    brightness.displays = {{0.5F}};
    launchNormally();
    EXPECT_EQ(app.hudManager.notchState.lock(), nullptr);
    bool wasShown = false;
    const auto watch = app.notchState.isHUDVisible.observe(
        [&](bool isVisible) { wasShown = wasShown || isVisible; });

    audio.changeVolume(speakers, 0.75F);
    EXPECT_EQ(app.hudManager.currentVolume, 0.75F);
    brightness.displays = {{0.9F}};
    advance(HUDManager::brightnessInterval);
    EXPECT_EQ(app.hudManager.currentBrightness, 0.9F);
    EXPECT_FALSE(wasShown);
    EXPECT_EQ(app.notchState.hudType.get(), std::nullopt);
    EXPECT_EQ(app.notchState.hudValue, 0);
}

TEST_F(AppDelegateTest, NothingIsRegisteredAsAPluginFromLaunchToTermination) {
    std::vector<std::size_t> counts;
    const auto observed = app.pluginRegistry.registeredPlugins.observe(
        [&](const auto& plugins) { counts.push_back(plugins.size()); });
    launchNormally();
    app.showNotch();
    advance(3600);
    app.applicationWillTerminate();
    EXPECT_EQ(counts, std::vector<std::size_t>{0}) << "the present count, and no change";
}

TEST_F(AppDelegateTest, AnotherStartShowsThePanelWithTheKeyboardInIt) {
    launchNormally();
    app.showNotch();
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    EXPECT_FALSE(window().isKey) << "the media panel takes no typing";
    app.reopen();
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    EXPECT_TRUE(window().isKey);
    setState(NotchExpandedState::collapsed);
    EXPECT_FALSE(window().isKey);
}

TEST_F(AppDelegateTest, AnotherStartOpensTheCollapsedNotch) {
    launchNormally();
    app.reopen();
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    EXPECT_TRUE(window().isKey);
}

TEST_F(AppDelegateTest, AnotherStartWhileTheWizardRunsAgainOpensThePanel) {
    launchNormally();
    app.runSetupWizard();
    app.reopen();
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    EXPECT_EQ(views.onboarding.frontCount, 0);
}

TEST_F(AppDelegateTest, AnotherStartGivesNoKeyboardToAWindowThatIsNotShown) {
    launchNormally();
    defaults().set("requireRealNotch", true);
    runPosted();
    ASSERT_FALSE(notchIsShown());
    app.reopen();
    EXPECT_FALSE(window().isKey);
}

TEST_F(AppDelegateTest, AnotherStartWithoutANotchDoesNoHarm) {
    defaults().set("requireRealNotch", true);
    platform.applicationPort.answer = [](const Alert&) { return std::size_t{1}; };
    launchNormally();
    app.reopen();
    EXPECT_EQ(app.notchWindowController, nullptr);
}

TEST_F(AppDelegateTest, AnotherStartBringsBackAPanelThatWasTakenAwayButNoneThatIsHidden) {
    launchNormally();
    const int before = window().orderFrontCount;
    app.reopen();
    EXPECT_EQ(window().orderFrontCount, before + 1);
    window().orderOut();
    app.reopen();
    EXPECT_EQ(window().orderFrontCount, before + 1);
}

TEST_F(AppDelegateTest, AnotherStartDuringTheFirstWizardBringsThatToTheFront) {
    app.applicationDidFinishLaunching();
    app.reopen();
    EXPECT_EQ(views.onboarding.madeCount, 1);
    EXPECT_EQ(views.onboarding.frontCount, 1);
    EXPECT_EQ(state(), NotchExpandedState::collapsed);
}

} // namespace
} // namespace orvelle
