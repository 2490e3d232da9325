#include "views/ViewFixture.h"

namespace orvelle {

class BatteryPanelTest : public ViewFixture {};

TEST_F(BatteryPanelTest, showsTheLevelAndTheEstimate) {
    battery.batteryLevel = 50;
    battery.timeRemaining = 95;
    show(ActivePanel::battery);
    EXPECT_EQ(textOf("batteryTitle"), "50%");
    EXPECT_EQ(textOf("batteryEstimate"), QString::fromStdString(battery.timeRemainingString()));
    EXPECT_EQ(frameOf("batteryLevel").height(), 6);
    EXPECT_NEAR(frameOf("fill").width(), frameOf("batteryLevel").width() / 2, 0.1);
    battery.timeRemaining = 0;
    turn();
    EXPECT_EQ(item("batteryEstimate"), nullptr);
}

TEST_F(BatteryPanelTest, withoutABatteryThereIsNoLevel) {
    battery.hasBattery = false;
    show(ActivePanel::battery);
    EXPECT_EQ(textOf("batteryTitle"), "AC Power");
    EXPECT_EQ(textOf("batterySubtitle"), QString::fromUtf8("Desktop — no battery"));
    EXPECT_EQ(item("batteryLevel"), nullptr);
}

class SystemMonitorPanelTest : public ViewFixture {};

TEST_F(SystemMonitorPanelTest, cellsOfARowShareItsWidth) {
    show(ActivePanel::systemMonitor);
    const auto cpu = frameOf("metric.CPU");
    const auto memory = frameOf("metric.Memory");
    const auto upload = frameOf("metric.Upload");
    EXPECT_NEAR(cpu.width(), (542 - 20) / 3.0, 0.01);
    EXPECT_NEAR(memory.left() - cpu.right(), 10, 0.01);
    EXPECT_NEAR(upload.width(), (542 - 10) / 2.0, 0.01);
    EXPECT_NEAR(upload.top() - cpu.bottom(), 10, 0.01);
}

TEST_F(SystemMonitorPanelTest, onlyTheNetworkGivesOneRow) {
    for (const char* key : {"sysMonCPU", "sysMonMemory", "sysMonTemperature"})
        platform.userDefaultsPort.set(key, false);
    show(ActivePanel::systemMonitor);
    EXPECT_EQ(item("metric.CPU"), nullptr);
    EXPECT_EQ(frameOf("metric.Upload").top(), 73);
}

TEST_F(SystemMonitorPanelTest, aModuleThatIsSwitchedOffLeavesAtOnce) {
    show(ActivePanel::systemMonitor);
    const auto* memory = item("metric.Memory");
    platform.userDefaultsPort.set("sysMonCPU", false);
    turn();
    EXPECT_EQ(item("metric.CPU"), nullptr);
    EXPECT_EQ(item("metric.Memory"), memory) << "the others keep their cells";
}

TEST_F(SystemMonitorPanelTest, withoutModulesThePlaceholderStands) {
    for (const char* key : {"sysMonCPU", "sysMonMemory", "sysMonNetwork", "sysMonTemperature"})
        platform.userDefaultsPort.set(key, false);
    show(ActivePanel::systemMonitor);
    EXPECT_EQ(textOf("placeholderTitle"), "No modules enabled");
}

class TimePanelTest : public ViewFixture {};

TEST_F(TimePanelTest, showsTheTimeAndFiveCities) {
    time.currentTime = SimulatedRunLoop::defaultStart;
    show(ActivePanel::time);
    EXPECT_EQ(textOf("localTime"), QString::fromStdString(time.localTimeString()));
    EXPECT_EQ(textOf("localDate"), "Thursday, January 15");
    EXPECT_NEAR(frameOf("card.Halifax").width(), 542 / 5.0, 0.01);
    EXPECT_LT(frameOf("card.Los Angeles").left(), frameOf("card.Denver").left());
}

TEST_F(TimePanelTest, theClockTicksWithoutMovingItsFigures) {
    time.currentTime = Date{SimulatedRunLoop::defaultStart.sinceReference + 41};
    show(ActivePanel::time);
    const auto before = frameOf("localTime");
    time.currentTime = Date{SimulatedRunLoop::defaultStart.sinceReference + 51};
    turn();
    EXPECT_EQ(textOf("localTime"), QString::fromStdString(time.localTimeString()));
    EXPECT_EQ(frameOf("localTime"), before);
}

TEST_F(TimePanelTest, everythingFitsIntoThePanel) {
    show(ActivePanel::time);
    EXPECT_GE(frameOf("localTime").top(), 61);
    EXPECT_LE(frameOf("card.Denver").bottom(), 220);
}

} // namespace orvelle
