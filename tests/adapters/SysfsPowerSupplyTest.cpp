#include "Platform/Linux/SysfsPowerSupply.h"

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class SysfsPowerSupplyTest : public testing::Test {
protected:
    std::optional<PowerReading> battery() const {
        return SysfsPowerSupply::read(files.path()).value().battery;
    }

    TemporaryFolder files;
};

TEST_F(SysfsPowerSupplyTest, WithoutTheFolderNothingIsKnown) {
    EXPECT_FALSE(SysfsPowerSupply::read(files.path("missing")));
}

TEST_F(SysfsPowerSupplyTest, ADesktopMachineHasNoBattery) {
    EXPECT_EQ(battery(), std::nullopt);
    files.write("AC/uevent", "POWER_SUPPLY_TYPE=Mains\nPOWER_SUPPLY_ONLINE=1\n");
    EXPECT_EQ(battery(), std::nullopt);
}

TEST_F(SysfsPowerSupplyTest, TheBatteryOfAMouseIsNotTheMachines) {
    files.write("hidpp_battery_0/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_SCOPE=Device\n"
                                          "POWER_SUPPLY_CAPACITY=50\n");
    EXPECT_EQ(battery(), std::nullopt);
}

TEST_F(SysfsPowerSupplyTest, AnEmptyBayIsNoBattery) {
    files.write("BAT1/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_PRESENT=0\n"
                               "POWER_SUPPLY_CAPACITY=0\n");
    EXPECT_EQ(battery(), std::nullopt);
}

TEST_F(SysfsPowerSupplyTest, ADischargingBatteryTellsItsTime) {
    files.write("AC/uevent", "POWER_SUPPLY_TYPE=Mains\nPOWER_SUPPLY_ONLINE=0\n");
    files.write("BAT0/uevent",
                "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Discharging\n"
                "POWER_SUPPLY_CAPACITY=60\nPOWER_SUPPLY_ENERGY_FULL=50000000\n"
                "POWER_SUPPLY_ENERGY_NOW=30000000\nPOWER_SUPPLY_POWER_NOW=10000000\n");
    EXPECT_EQ(battery(), (PowerReading{.percent = 60, .onBattery = true, .minutesToEmpty = 180}));
}

TEST_F(SysfsPowerSupplyTest, AChargingBatteryTellsItsTimeFromChargesToo) {
    files.write("AC/uevent", "POWER_SUPPLY_TYPE=Mains\nPOWER_SUPPLY_ONLINE=1\n");
    files.write("BAT0/uevent",
                "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Charging\n"
                "POWER_SUPPLY_CAPACITY=60\nPOWER_SUPPLY_CHARGE_FULL=5000000\n"
                "POWER_SUPPLY_CHARGE_NOW=3000000\nPOWER_SUPPLY_CURRENT_NOW=-1000000\n");
    EXPECT_EQ(battery(), (PowerReading{.percent = 60, .charging = true, .minutesToFull = 120}));
}

TEST_F(SysfsPowerSupplyTest, TwoBatteriesAreOneWeighedBySize) {
    files.write("BAT0/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Discharging\n"
                               "POWER_SUPPLY_CAPACITY=100\nPOWER_SUPPLY_ENERGY_FULL=30000000\n");
    files.write("BAT1/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Unknown\n"
                               "POWER_SUPPLY_CAPACITY=20\nPOWER_SUPPLY_ENERGY_FULL=10000000\n");
    EXPECT_EQ(battery(), (PowerReading{.percent = 80, .onBattery = true}));
}

TEST_F(SysfsPowerSupplyTest, ABatteryThatTellsNoLevelIsPassedOver) {
    files.write("BAT0/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=many\n");
    EXPECT_EQ(battery(), std::nullopt);
}

} // namespace
} // namespace orvelle
