#include "Features/Battery/BatteryManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <optional>

using namespace orvelle;

namespace {

PowerSourceDescription battery(PowerSourceDescription values = {}) {
    values.emplace("Type", std::string("InternalBattery"));
    return values;
}

class BatteryManagerTest : public testing::Test {
protected:
    void answer(std::optional<PowerSourceDescription> source) {
        platform.powerSourcesPort.sources = {{std::move(source)}};
    }
    void update(std::optional<PowerSourceDescription> source) {
        answer(std::move(source));
        manager.updateBatteryInfo();
    }
    int snapshotCount() const { return platform.powerSourcesPort.snapshotCount; }

    SimulatedPlatform platform;
    BatteryManager manager{platform};
};

/// One level with its symbol and colour, on battery.
struct LevelRow {
    std::int64_t level;
    std::string_view icon;
    Color color;
};

class BatteryLevel : public testing::TestWithParam<LevelRow> {};

} // namespace

TEST_P(BatteryLevel, GivesSymbolAndColour) {
    SimulatedPlatform platform;
    BatteryManager manager(platform);
    manager.batteryLevel = GetParam().level;
    EXPECT_EQ(manager.batteryIcon(), GetParam().icon);
    EXPECT_EQ(manager.batteryColor(), GetParam().color);
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, BatteryLevel,
    testing::Values(
        LevelRow{-1, "battery.0", colors::red}, LevelRow{0, "battery.0", colors::red},
        LevelRow{24, "battery.25", colors::yellow}, LevelRow{25, "battery.50", colors::yellow},
        LevelRow{49, "battery.50", colors::green}, LevelRow{50, "battery.75", colors::green},
        LevelRow{74, "battery.75", colors::green}, LevelRow{75, "battery.100", colors::green},
        LevelRow{100, "battery.100", colors::green}, LevelRow{130, "battery.100", colors::green}),
    [](const auto& row) {
        return row.param.level < 0 ? "BelowZero" : "Level" + std::to_string(row.param.level);
    });

TEST_F(BatteryManagerTest, OneMinuteIsATimeAndNoneIsUnknown) {
    update(battery({{"Current Capacity", std::int64_t{3}}, {"Time to Empty", std::int64_t{1}}}));
    EXPECT_EQ(manager.timeRemaining, 1);
    EXPECT_EQ(manager.timeRemainingString(), "1m");
    update(battery({{"Current Capacity", std::int64_t{3}}, {"Time to Empty", std::int64_t{0}}}));
    EXPECT_EQ(manager.timeRemainingString(), "Calculating...");
}

TEST_F(BatteryManagerTest, Level9GivesBattery0AndRed) {
    manager.batteryLevel = 9;
    EXPECT_EQ(manager.batteryIcon(), "battery.0");
    EXPECT_EQ(manager.batteryColor(), colors::red);
}

TEST_F(BatteryManagerTest, Level10GivesBattery25AndRed) {
    manager.batteryLevel = 10;
    EXPECT_EQ(manager.batteryIcon(), "battery.25");
    EXPECT_EQ(manager.batteryColor(), colors::red);
}

TEST_F(BatteryManagerTest, Levels19And20And39And40SeparateRedYellowAndGreen) {
    manager.batteryLevel = 19;
    EXPECT_EQ(manager.batteryColor(), colors::red);
    manager.batteryLevel = 20;
    EXPECT_EQ(manager.batteryColor(), colors::yellow);
    manager.batteryLevel = 39;
    EXPECT_EQ(manager.batteryColor(), colors::yellow);
    manager.batteryLevel = 40;
    EXPECT_EQ(manager.batteryColor(), colors::green);
}

TEST_F(BatteryManagerTest, ChargingAt5PercentGivesTheBoltAndGreen) {
    manager.batteryLevel = 5;
    manager.isCharging = true;
    EXPECT_EQ(manager.batteryIcon(), "battery.100.bolt");
    EXPECT_EQ(manager.batteryColor(), colors::green);
    EXPECT_EQ(manager.statusString(), "Charging");
}

TEST_F(BatteryManagerTest, TimeRemainingReadsAsHoursAndMinutesWithoutPadding) {
    manager.timeRemaining = 1;
    EXPECT_EQ(manager.timeRemainingString(), "1m");
    manager.timeRemaining = 59;
    EXPECT_EQ(manager.timeRemainingString(), "59m");
    manager.timeRemaining = 60;
    EXPECT_EQ(manager.timeRemainingString(), "1h 0m");
    manager.timeRemaining = 125;
    EXPECT_EQ(manager.timeRemainingString(), "2h 5m");
}

TEST_F(BatteryManagerTest, FullBatteryOnPowerIsPluggedInAndTimeIsBeingCalculated) {
    for (const std::int64_t unknown : {0, -1}) {
        manager.timeRemaining = 90;
        update(battery({{"Is Charging", false},
                        {"Power Source State", std::string("AC Power")},
                        {"Time to Empty", unknown},
                        {"Time to Full Charge", unknown}}));
        EXPECT_EQ(manager.statusString(), "Plugged In");
        EXPECT_EQ(manager.timeRemainingString(), "Calculating...");
    }
}

TEST_F(BatteryManagerTest, TimeOfMinusOneCountsAsUnknown) {
    update(battery({{"Time to Empty", std::int64_t{-1}}}));
    EXPECT_EQ(manager.timeRemaining, 0);
}

TEST_F(BatteryManagerTest, DesktopMachineHasNoBatteryIsPluggedInAndKeepsTheLevelAt100) {
    platform.powerSourcesPort.sources.emplace(); // answers with an empty list
    manager.start();
    EXPECT_FALSE(manager.hasBattery);
    EXPECT_TRUE(manager.isPluggedIn);
    EXPECT_EQ(manager.batteryLevel, 100);
    EXPECT_EQ(manager.statusString(), "AC Power");
    EXPECT_EQ(manager.batteryIcon(), "powerplug.fill");
    EXPECT_EQ(manager.batteryColor(), colors::green);
    EXPECT_EQ(manager.timeRemainingString(), "");
}

TEST_F(BatteryManagerTest, StartsWithAFullBatteryAndAsksNothing) {
    EXPECT_TRUE(manager.isEnabled);
    EXPECT_EQ(manager.batteryLevel, 100);
    EXPECT_FALSE(manager.isCharging);
    EXPECT_FALSE(manager.isPluggedIn);
    EXPECT_EQ(manager.timeRemaining, 0);
    EXPECT_EQ(manager.cycleCount, 0);
    EXPECT_EQ(manager.health, 100);
    EXPECT_TRUE(manager.hasBattery);
    EXPECT_EQ(manager.statusString(), "On Battery");
    EXPECT_EQ(snapshotCount(), 0);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(BatteryManagerTest, ReadsEveryKeyOfTheFirstSourceOnly) {
    platform.powerSourcesPort.sources = {
        {battery({{"Current Capacity", std::int64_t{42}},
                  {"Is Charging", true},
                  {"Power Source State", std::string("AC Power")},
                  {"Time to Full Charge", std::int64_t{33}}}),
         battery({{"Current Capacity", std::int64_t{7}}, {"Is Charging", false}})}};
    manager.updateBatteryInfo();
    EXPECT_TRUE(manager.hasBattery);
    EXPECT_EQ(manager.batteryLevel, 42);
    EXPECT_TRUE(manager.isCharging);
    EXPECT_TRUE(manager.isPluggedIn);
    EXPECT_EQ(manager.timeRemaining, 33);
}

TEST_F(BatteryManagerTest, ASecondSourceDoesNotReplaceAMissingFirst) {
    platform.powerSourcesPort.sources = {{std::nullopt, battery()}};
    manager.updateBatteryInfo();
    EXPECT_FALSE(manager.hasBattery);
    EXPECT_TRUE(manager.isPluggedIn);
}

TEST_F(BatteryManagerTest, TimeToEmptyGoesBeforeTimeToFullCharge) {
    update(
        battery({{"Time to Empty", std::int64_t{80}}, {"Time to Full Charge", std::int64_t{20}}}));
    EXPECT_EQ(manager.timeRemaining, 80);
    update(
        battery({{"Time to Empty", std::int64_t{0}}, {"Time to Full Charge", std::int64_t{20}}}));
    EXPECT_EQ(manager.timeRemaining, 20);
}

TEST_F(BatteryManagerTest, ATimeThatIsNoLongerToldBecomesUnknown) {
    update(battery({{"Time to Empty", std::int64_t{80}}}));
    update(battery());
    EXPECT_EQ(manager.timeRemaining, 0);
}

TEST_F(BatteryManagerTest, MissingKeysLeaveTheEarlierValues) {
    update(battery({{"Current Capacity", std::int64_t{42}},
                    {"Is Charging", true},
                    {"Power Source State", std::string("AC Power")}}));
    update(battery());
    EXPECT_EQ(manager.batteryLevel, 42);
    EXPECT_TRUE(manager.isCharging);
    EXPECT_TRUE(manager.isPluggedIn);
}

TEST_F(BatteryManagerTest, ValuesOfAnotherTypeCountAsMissing) {
    manager.batteryLevel = 42;
    update(battery({{"Current Capacity", std::string("80")},
                    {"Is Charging", std::int64_t{1}},
                    {"Power Source State", true},
                    {"Time to Empty", std::string("90")}}));
    EXPECT_EQ(manager.batteryLevel, 42);
    EXPECT_FALSE(manager.isCharging);
    EXPECT_FALSE(manager.isPluggedIn);
    EXPECT_EQ(manager.timeRemaining, 0);
}

TEST_F(BatteryManagerTest, AnyStateButACPowerIsUnplugged) {
    update(battery({{"Power Source State", std::string("AC Power")}}));
    update(battery({{"Power Source State", std::string("Battery Power")}}));
    EXPECT_FALSE(manager.isPluggedIn);
    EXPECT_EQ(manager.statusString(), "On Battery");
}

TEST_F(BatteryManagerTest, ASourceOfAnotherTypeIsNoBatteryAndChangesNothingElse) {
    update(battery({{"Current Capacity", std::int64_t{42}},
                    {"Is Charging", true},
                    {"Time to Empty", std::int64_t{80}}}));
    const PowerSourceValue types[] = {std::string("UPS"), std::int64_t{1}};
    for (const auto& type : types) {
        manager.hasBattery = true;
        manager.isPluggedIn = false;
        update(PowerSourceDescription{{"Type", type},
                                      {"Current Capacity", std::int64_t{7}},
                                      {"Is Charging", false},
                                      {"Time to Empty", std::int64_t{5}}});
        EXPECT_FALSE(manager.hasBattery);
        EXPECT_TRUE(manager.isPluggedIn);
        EXPECT_EQ(manager.batteryLevel, 42);
        EXPECT_TRUE(manager.isCharging);
        EXPECT_EQ(manager.timeRemaining, 80);
    }
}

TEST_F(BatteryManagerTest, ASourceWithoutATypeIsNoBattery) {
    update(PowerSourceDescription{{"Current Capacity", std::int64_t{7}}});
    EXPECT_FALSE(manager.hasBattery);
    EXPECT_EQ(manager.batteryLevel, 100);
}

TEST_F(BatteryManagerTest, AnUnreadableSnapshotOrSourceIsNoBattery) {
    platform.powerSourcesPort.sources.reset();
    manager.updateBatteryInfo();
    EXPECT_FALSE(manager.hasBattery);
    EXPECT_TRUE(manager.isPluggedIn);

    update(battery());
    EXPECT_TRUE(manager.hasBattery);
    manager.isPluggedIn = false;
    update(std::nullopt);
    EXPECT_FALSE(manager.hasBattery);
    EXPECT_TRUE(manager.isPluggedIn);
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(BatteryManagerTest, StartReadsAtOnceAndThenEvery30Seconds) {
    answer(battery({{"Current Capacity", std::int64_t{42}}}));
    manager.start();
    EXPECT_EQ(manager.batteryLevel, 42);
    answer(battery({{"Current Capacity", std::int64_t{41}}}));
    platform.runLoopPort.advance(29.9);
    EXPECT_EQ(manager.batteryLevel, 42);
    platform.runLoopPort.advance(0.1);
    EXPECT_EQ(manager.batteryLevel, 41);
    platform.runLoopPort.advance(60);
    EXPECT_EQ(snapshotCount(), 4);
}

TEST_F(BatteryManagerTest, StartWhileSwitchedOffAsksAndSchedulesNothing) {
    manager.isEnabled = false;
    manager.start();
    platform.runLoopPort.advance(120);
    EXPECT_EQ(snapshotCount(), 0);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(BatteryManagerTest, ASecondStartReplacesTheTimer) {
    manager.start();
    manager.start();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    platform.runLoopPort.advance(30);
    EXPECT_EQ(snapshotCount(), 3);
}

TEST_F(BatteryManagerTest, WithoutItsTimerItIsIdleUntilTheNextStart) {
    manager.start();
    manager.updateTimer.reset();
    platform.runLoopPort.advance(120);
    EXPECT_EQ(snapshotCount(), 1);
    manager.start();
    platform.runLoopPort.advance(30);
    EXPECT_EQ(snapshotCount(), 3);
}

TEST(BatteryManager, TheTimerEndsWithTheManager) {
    SimulatedPlatform platform;
    std::optional<BatteryManager> manager(std::in_place, platform);
    manager->start();
    manager.reset();
    platform.runLoopPort.advance(120);
    EXPECT_EQ(platform.powerSourcesPort.snapshotCount, 1);
}
