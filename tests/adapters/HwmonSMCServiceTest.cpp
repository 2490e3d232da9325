#include "Platform/Linux/HwmonSMCService.h"

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

SMCRecord question(std::string_view key, std::uint8_t command) {
    SMCRecord record{};
    for (std::size_t index = 0; index < 4; ++index)
        record[3 - index] = static_cast<std::uint8_t>(key[index]);
    record[42] = command;
    return record;
}

class HwmonSMCServiceTest : public testing::Test {
protected:
    /// The two data bytes that answer for "TC0P"; none without an answer.
    std::optional<std::pair<int, int>> bytes() {
        const auto connection = service.open();
        const auto answer = connection ? connection->call(question("TC0P", 5)) : std::nullopt;
        return answer ? std::optional(std::pair<int, int>((*answer)[48], (*answer)[49]))
                      : std::nullopt;
    }

    TemporaryFolder hwmon;
    HwmonSMCService service{hwmon.path()};
};

TEST_F(HwmonSMCServiceTest, AMachineWithoutAProcessorSensorHasNoController) {
    EXPECT_EQ(service.open(), nullptr);
    hwmon.write("hwmon0/name", "nvme\n");
    hwmon.write("hwmon0/temp1_input", "40000\n");
    EXPECT_EQ(service.open(), nullptr);
    EXPECT_EQ(HwmonSMCService(hwmon.path("missing")).open(), nullptr);
}

TEST_F(HwmonSMCServiceTest, KeyInfoTellsTypeAndSize) {
    hwmon.write("hwmon0/name", "coretemp\n");
    hwmon.write("hwmon0/temp1_input", "46500\n");
    const auto connection = service.open();
    ASSERT_NE(connection, nullptr);
    const auto known = connection->call(question("TC0P", 9));
    ASSERT_TRUE(known);
    EXPECT_EQ((*known)[28], 2);
    EXPECT_EQ(std::string(known->begin() + 32, known->begin() + 36), "87ps");
    const auto unknown = connection->call(question("Tp09", 9));
    ASSERT_TRUE(unknown);
    EXPECT_EQ((*unknown)[28], 0);
    EXPECT_FALSE(connection->call(question("Tp09", 5)));
    EXPECT_FALSE(connection->call(question("TC0P", 7)));
}

TEST_F(HwmonSMCServiceTest, TemperaturesAreFixedPointNumbers) {
    hwmon.write("hwmon0/name", "k10temp\n");
    hwmon.write("hwmon0/temp1_input", "46500\n");
    EXPECT_EQ(bytes(), std::pair(0x2e, 0x80));
    hwmon.write("hwmon0/temp1_input", "-1000\n");
    EXPECT_EQ(bytes(), std::pair(0xff, 0x00));
    hwmon.write("hwmon0/temp1_input", "255000\n");
    EXPECT_EQ(bytes(), std::pair(0x7f, 0xff));
}

TEST_F(HwmonSMCServiceTest, TheProcessorsOwnDriverComesBeforeTheThermalZone) {
    hwmon.write("hwmon0/name", "acpitz\n");
    hwmon.write("hwmon0/temp1_input", "20000\n");
    EXPECT_EQ(bytes(), std::pair(20, 0));
    hwmon.write("hwmon1/name", "coretemp\n");
    hwmon.write("hwmon1/temp2_input", "50000\n");
    HwmonSMCService fresh(hwmon.path());
    const auto answer = fresh.open()->call(question("TC0D", 5));
    ASSERT_TRUE(answer);
    EXPECT_EQ((*answer)[48], 50);
}

TEST_F(HwmonSMCServiceTest, ASensorThatMovesIsFoundAgain) {
    hwmon.write("hwmon0/name", "coretemp\n");
    hwmon.write("hwmon0/temp1_input", "30000\n");
    EXPECT_EQ(bytes(), std::pair(30, 0));
    hwmon.remove("hwmon0");
    EXPECT_EQ(service.open(), nullptr);
    hwmon.write("hwmon4/name", "coretemp\n");
    hwmon.write("hwmon4/temp1_input", "31000\n");
    EXPECT_EQ(bytes(), std::pair(31, 0));
}

TEST_F(HwmonSMCServiceTest, ASensorThatFailsInBetweenFailsTheCall) {
    hwmon.write("hwmon0/name", "zenpower\n");
    hwmon.write("hwmon0/temp1_input", "30000\n");
    const auto connection = service.open();
    hwmon.write("hwmon0/temp1_input", "");
    EXPECT_FALSE(connection->call(question("TC0P", 5)));
}

} // namespace
} // namespace orvelle
