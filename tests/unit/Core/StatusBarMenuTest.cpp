#include "Support/AppFixture.h"
#include "Support/Replies.h"

namespace orvelle {
namespace {

class StatusBarMenuTest : public AppFixture {
protected:
    const Menu& menu() { return platform.statusBarPort.menu; }
    const Menu& systemInfo() { return menu().at(2)->items; }
    void publish(const SystemMetrics& metrics) {
        app.systemMonitorManager.metrics = metrics;
        runPosted();
    }
    void select(std::string_view title) {
        for (const auto& item : menu())
            if (item->title.get() == title)
                item->perform();
    }
    /// The launch has asked once already.
    void checkForUpdates(const std::string& latestVersion) {
        select("Check for Updates...");
        int answers = 0;
        while (platform.httpClientPort.answer(Replies::ok(Replies::manifest(latestVersion))))
            ++answers;
        EXPECT_EQ(answers, 2);
    }
    static std::vector<std::string> titles(const Menu& items) {
        std::vector<std::string> found;
        for (const auto& item : items)
            found.push_back(item->title);
        return found;
    }
};

TEST_F(StatusBarMenuTest, TheCommandsStandInTheirOrder) {
    app.applicationDidFinishLaunching();
    EXPECT_EQ(titles(menu()),
              (std::vector<std::string>{"Show Orvelle", "", "System Info", "", "Settings...",
                                        "Run Setup Wizard...", "Report a Bug...",
                                        "Check for Updates...", "", "Quit Orvelle"}));
    std::vector<std::string> keys;
    for (const auto& item : menu())
        keys.push_back(item->keyEquivalent);
    EXPECT_EQ(keys, (std::vector<std::string>{"n", "", "", "", ",", "", "", "", "", "q"}));
    for (const auto& item : menu())
        EXPECT_EQ(item->kind == MenuItem::Kind::separator, item->title->empty());
}

TEST_F(StatusBarMenuTest, TheItemIsATemplateOfItsSymbol) {
    app.applicationDidFinishLaunching();
    EXPECT_EQ(platform.statusBarPort.image.symbol, "rectangle.topthird.inset.filled");
    EXPECT_EQ(platform.statusBarPort.image.accessibilityDescription, "Orvelle");
    EXPECT_EQ(platform.statusBarPort.image.pointSize, 14);
}

TEST_F(StatusBarMenuTest, WithoutAPlaceInTheBarTheLaunchGoesOn) {
    platform.statusBarPort.hasPlace = false;
    launchNormally();
    EXPECT_TRUE(platform.logPort.contains(
        "Failed to get status bar button — menu bar icon will be invisible"));
    EXPECT_TRUE(platform.logPort.contains("Launch complete — all features started"));
}

TEST_F(StatusBarMenuTest, TheLinesStandEmptyUntilTheFirstMetricsCome) {
    app.applicationDidFinishLaunching();
    EXPECT_EQ(titles(systemInfo()),
              (std::vector<std::string>{"CPU: --", "Memory: --", "", "Upload: --", "Download: --",
                                        "", "CPU Temp: --", "", "Battery: --"}));
    std::vector<std::string> symbols;
    for (const auto& item : systemInfo()) {
        symbols.push_back(item->symbol);
        EXPECT_FALSE(item->perform) << "lines of display";
    }
    EXPECT_EQ(symbols, (std::vector<std::string>{"cpu", "memorychip", "", "arrow.up", "arrow.down",
                                                 "", "thermometer.medium", "", "battery.100"}));
}

TEST_F(StatusBarMenuTest, TheLinesFollowTheMetrics) {
    app.applicationDidFinishLaunching();
    app.batteryManager.batteryLevel = 80;
    publish({.cpuUsage = 12.34,
             .memoryUsage = 50,
             .memoryTotal = 16ULL << 30,
             .memoryUsed = 8ULL << 30,
             .networkUpload = 2048,
             .networkDownload = 0,
             .cpuTemperature = 61.6,
             .lastUpdated = {}});
    EXPECT_EQ(titles(systemInfo()),
              (std::vector<std::string>{
                  "CPU: 12.3%", "Memory: 50.0% (8 GB / 16 GB)", "", "Upload: 2 KB/s",
                  "Download: Zero KB/s", "", "CPU Temp: 62°C", "",
                  "Battery: 80% — " + std::string(app.batteryManager.statusString())}));
    EXPECT_EQ(systemInfo().back()->symbol.get(), app.batteryManager.batteryIcon());
}

TEST_F(StatusBarMenuTest, EachLineIsOfItsKind) {
    using ItemKind = MenuItem::Kind;
    app.applicationDidFinishLaunching();
    EXPECT_EQ(menu().at(0)->kind, ItemKind::command);
    EXPECT_EQ(menu().at(2)->kind, ItemKind::submenu);
    for (const auto& item : systemInfo())
        EXPECT_EQ(item->kind, item->title->empty() ? ItemKind::separator : ItemKind::text);
}

TEST_F(StatusBarMenuTest, TheBatterysSymbolFollowsItsCharge) {
    app.applicationDidFinishLaunching();
    app.batteryManager.batteryLevel = 10;
    publish({});
    EXPECT_EQ(systemInfo().back()->symbol.get(), app.batteryManager.batteryIcon());
    EXPECT_NE(systemInfo().back()->symbol.get(), "battery.100");
}

TEST_F(StatusBarMenuTest, AMachineWithoutABatteryIsOnItsPlug) {
    app.applicationDidFinishLaunching();
    app.batteryManager.hasBattery = false;
    publish({});
    EXPECT_EQ(systemInfo().back()->title.get(), "Power: AC (no battery)");
    EXPECT_EQ(systemInfo().back()->symbol.get(), "powerplug.fill");
}

TEST_F(StatusBarMenuTest, AnAbsentTemperatureIsUnavailable) {
    app.applicationDidFinishLaunching();
    publish({});
    EXPECT_EQ(systemInfo().at(6)->title.get(), "CPU Temp: unavailable");
}

TEST_F(StatusBarMenuTest, MetricsThatCameBeforeTheMenuFillItRightAfterItIsBuilt) {
    app.systemMonitorManager.metrics.update([](auto& metrics) { metrics.cpuUsage = 7; });
    app.applicationDidFinishLaunching();
    EXPECT_EQ(systemInfo().front()->title.get(), "CPU: --");
    runPosted();
    EXPECT_EQ(systemInfo().front()->title.get(), "CPU: 7.0%");
}

TEST_F(StatusBarMenuTest, TheCommandsAct) {
    launchNormally();
    select("Show Orvelle");
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    select("Settings...");
    select("Settings...");
    EXPECT_EQ(views.settings.madeCount, 1) << "one window, brought to the front";
    EXPECT_EQ(views.settings.frontCount, 1);
    select("Run Setup Wizard...");
    EXPECT_TRUE(views.onboarding.isShown);
    select("Quit Orvelle");
    EXPECT_EQ(platform.applicationPort.terminateCount, 1);
}

TEST_F(StatusBarMenuTest, CheckForUpdatesWithNothingNewChangesNothingThatCanBeSeen) {
    launchNormally();
    checkForUpdates("1.0.6");
    EXPECT_EQ(menu().at(7)->title.get(), "Check for Updates...");
    EXPECT_TRUE(platform.workspacePort.openedFromNetwork.empty());
}

TEST_F(StatusBarMenuTest, ANewVersionIsNamedInTheMenuAndItsPageOpened) {
    launchNormally();
    checkForUpdates("1.1");
    EXPECT_EQ(menu().at(7)->title.get(), "Update Available: v1.1");
    EXPECT_EQ(platform.workspacePort.openedFromNetwork.size(), 1u);
}

TEST_F(StatusBarMenuTest, ABugReportIsAMailWithTheSystemInItsBody) {
    launchNormally();
    select("Report a Bug...");
    ASSERT_EQ(platform.workspacePort.opened.size(), 1u);
    EXPECT_EQ(platform.workspacePort.opened.front(),
              "mailto:support@orvelle.example"
              "?subject=Orvelle%20Bug%20Report%20%E2%80%94%20v1.0.6"
              "&body=---%20System%20Info%20---%0AApp%20Version%3A%201.0.6"
              "%0AmacOS%3A%20Simulated%2012.5%0AArchitecture%3A%20x86_64"
              "%0A%0A---%20What%20happened%20---%0A%5BDescribe%20the%20issue%20here%5D"
              "%0A%0A---%20Steps%20to%20reproduce%20---%0A1.%0A2.%0A3."
              "%0A%0A---%20Expected%20behavior%20---%0A%5BWhat%20you%20expected%20to%20happen%5D");
}

TEST_F(StatusBarMenuTest, ItsShortcutsWorkWithoutIt) {
    launchNormally();
    EXPECT_TRUE(app.environment().performShortcut(","));
    EXPECT_TRUE(views.settings.isShown);
    EXPECT_TRUE(app.environment().performShortcut("n"));
    EXPECT_EQ(state(), NotchExpandedState::expanded);
    EXPECT_FALSE(app.environment().performShortcut("x"));
    EXPECT_FALSE(app.environment().performShortcut(""));
}

} // namespace
} // namespace orvelle
