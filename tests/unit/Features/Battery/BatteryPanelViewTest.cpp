#include "Features/Battery/BatteryPanelView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Battery/BatteryManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class BatteryPanelViewTest : public testing::Test {
protected:
    SimulatedPlatform platform;
    BatteryManager manager{platform};
    BatteryPanelView view{manager, platform};
};

TEST_F(BatteryPanelViewTest, ABatteryShowsItsLevelAndState) {
    manager.batteryLevel = 30;
    manager.timeRemaining = 125;
    EXPECT_EQ(view.icon(), (StyledSymbol{"battery.50", 28, colors::yellow}));
    EXPECT_EQ(view.title(), (StyledText{"30%", {22, FontWeight::bold, colors::white}}));
    EXPECT_EQ(view.subtitle(),
              (StyledText{"On Battery", {12, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.level(), (AnimatedSlider{30, 0, 100, colors::yellow, 6, false}));
    EXPECT_EQ(view.estimate(), (BatteryPanelView::Estimate{
                                   {"2h 5m", {13, FontWeight::medium, colors::white}},
                                   {"remaining", {11, FontWeight::regular, notchTertiary}}}));
}

TEST_F(BatteryPanelViewTest, AnUnknownTimeIsNoEstimate) {
    manager.timeRemaining = 0;
    EXPECT_FALSE(view.estimate());
}

TEST_F(BatteryPanelViewTest, TheLastMinuteIsAnEstimate) {
    manager.timeRemaining = 1;
    ASSERT_TRUE(view.estimate());
    EXPECT_EQ(view.estimate()->time.text, "1m");
}

TEST_F(BatteryPanelViewTest, ADesktopShowsItsPlug) {
    manager.hasBattery = false;
    manager.timeRemaining = 125;
    EXPECT_EQ(view.icon(), (StyledSymbol{"powerplug.fill", 28, colors::green}));
    EXPECT_EQ(view.title().text, "AC Power");
    EXPECT_EQ(view.subtitle().text, "Desktop — no battery");
    EXPECT_FALSE(view.level());
    EXPECT_FALSE(view.estimate());
}

TEST_F(BatteryPanelViewTest, TheMenuLocksSleepsAndOpensTheEnergySettings) {
    const auto menu = view.contextMenu();
    ASSERT_EQ(menu.size(), 3u);
    const auto& launched = platform.processLauncherPort.launched;

    EXPECT_EQ(menu[0].title, "Lock Screen");
    menu[0].perform();
    ASSERT_EQ(launched.size(), 1u);
    EXPECT_EQ(launched[0].second, std::vector<std::string>{"-suspend"});

    EXPECT_EQ(menu[1].title, "Sleep Display");
    menu[1].perform();
    ASSERT_EQ(launched.size(), 2u);
    EXPECT_EQ(launched[1].second, std::vector<std::string>{"displaysleepnow"});

    EXPECT_EQ(menu[2].title, "Energy Settings...");
    menu[2].perform();
    EXPECT_EQ(platform.workspacePort.opened,
              std::vector<std::string>{"x-apple.systempreferences:com.apple.settings.battery"});
}

} // namespace
} // namespace orvelle
