#include "Features/SystemMonitor/SMCTemperature.h"

#include "Platform/Simulated/SimulatedMachine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <limits>

using namespace orvelle;

namespace {

using Value = SimulatedSMCService::Value;

Value fixedPoint(double degrees) {
    const auto bits = static_cast<std::uint16_t>(static_cast<std::int16_t>(degrees * 256));
    return {"sp78", {static_cast<std::uint8_t>(bits >> 8), static_cast<std::uint8_t>(bits)}};
}

Value floatingPoint(float degrees) {
    const auto bits = std::bit_cast<std::uint32_t>(degrees);
    return {"flt ",
            {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
             static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 24)}};
}

std::optional<double> temperatureOf(std::map<std::string, Value> values) {
    SimulatedSMCService service;
    service.values = std::move(values);
    return SMCTemperature::readCPUTemperature(service);
}

/// Answers every call through a function.
class FunctionService : public SMCService {
public:
    std::function<std::optional<SMCRecord>(const SMCRecord&)> answer;

    std::unique_ptr<SMCConnection> open() override { return std::make_unique<Connection>(*this); }

private:
    struct Connection : SMCConnection {
        explicit Connection(FunctionService& owner) : service(owner) {}
        std::optional<SMCRecord> call(const SMCRecord& input) override {
            return service.answer(input);
        }
        FunctionService& service;
    };
};

bool asksForInfo(const SMCRecord& record) {
    return record[42] == 9;
}

/// "TC0P" as a little-endian word.
constexpr std::array<std::uint8_t, 4> firstKey{'P', '0', 'C', 'T'};

} // namespace

TEST(SMCTemperature, Bytes2E80OfTypeSp78ReadAs46AndAHalf) {
    EXPECT_EQ(temperatureOf({{"TC0P", {"sp78", {0x2E, 0x80}}}}), 46.5);
}

TEST(SMCTemperature, ValuesOf0Or130OrMoreAreSkippedForTheNextKey) {
    for (const float useless : {0.0F, 130.0F, 130.5F, 1000.0F})
        EXPECT_EQ(temperatureOf({{"TC0P", floatingPoint(useless)}, {"TC0D", fixedPoint(50)}}), 50);
}

TEST(SMCTemperature, NegativeValuesAreSkippedForTheNextKey) {
    for (const double negative : {-1.0 / 256, -5.0, -128.0})
        EXPECT_EQ(temperatureOf({{"TC0P", fixedPoint(negative)}, {"TC0D", fixedPoint(50)}}), 50);
}

TEST(SMCTemperature, AnUnknownTypeIsDecodedAsSp78) {
    EXPECT_EQ(temperatureOf({{"TC0P", {"ui16", {0x2E, 0x80}}}}), 46.5);
}

TEST(SMCTemperature, BoundsThemselvesAreExcludedAndWhatLiesWithinIsTaken) {
    EXPECT_EQ(temperatureOf({{"TC0P", floatingPoint(129.5F)}}), 129.5);
    EXPECT_EQ(temperatureOf({{"TC0P", {"sp78", {0x00, 0x01}}}}), 1.0 / 256);
}

TEST(SMCTemperature, FloatsAreLittleEndian) {
    EXPECT_EQ(temperatureOf({{"Tp09", {"flt ", {0x00, 0x00, 0x3A, 0x42}}}}), 46.5);
}

TEST(SMCTemperature, NumbersThatAreNotFiniteAreSkipped) {
    using Limits = std::numeric_limits<float>;
    EXPECT_EQ(temperatureOf({{"TC0P", floatingPoint(Limits::quiet_NaN())},
                             {"TC0D", floatingPoint(Limits::infinity())}}),
              std::nullopt);
}

TEST(SMCTemperature, KeysAreTriedInOrderAndEachAsksForItsInfoFirst) {
    SimulatedSMCService service;
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), std::nullopt);
    std::vector<std::string> keys;
    for (const auto& call : service.calls) {
        EXPECT_TRUE(asksForInfo(call));
        keys.push_back({static_cast<char>(call[3]), static_cast<char>(call[2]),
                        static_cast<char>(call[1]), static_cast<char>(call[0])});
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"TC0P", "TC0D", "TC0E", "TC0F", "Tp09", "Tp0T",
                                              "Tp01", "Tp0C", "Tp0D", "Tp05"}));
}

TEST(SMCTemperature, NoKeyAnsweringCostsTwentyCallsAtMost) {
    SimulatedSMCService service;
    for (const auto* key :
         {"TC0P", "TC0D", "TC0E", "TC0F", "Tp09", "Tp0T", "Tp01", "Tp0C", "Tp0D", "Tp05"})
        service.values[key] = fixedPoint(0);
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), std::nullopt);
    EXPECT_EQ(service.calls.size(), 20u);
}

TEST(SMCTemperature, TheFirstUsableKeyEndsTheSearch) {
    SimulatedSMCService service;
    service.values = {{"TC0P", fixedPoint(40)}, {"TC0D", fixedPoint(60)}};
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), 40);
    EXPECT_EQ(service.calls.size(), 2u);
}

TEST(SMCTemperature, CallsCarryKeySizeAndCommandInOtherwiseZeroRecords) {
    SimulatedSMCService service;
    service.values["TC0P"] = {"sp78", {0x2E, 0x80}};
    SMCTemperature::readCPUTemperature(service);

    SMCRecord info{};
    std::ranges::copy(firstKey, info.begin());
    info[42] = 9;
    SMCRecord read{};
    std::ranges::copy(firstKey, read.begin());
    read[28] = 2;
    read[42] = 5;
    EXPECT_EQ(service.calls, (std::vector<SMCRecord>{info, read}));
}

TEST(SMCTemperature, AnAnswerOfSizeZeroIsNotRead) {
    SimulatedSMCService service;
    service.values["TC0P"] = {"sp78", {}};
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), std::nullopt);
    EXPECT_EQ(service.calls.size(), 10u);
}

TEST(SMCTemperature, AFailedReadGoesOnToTheNextKey) {
    FunctionService service;
    int reads = 0;
    service.answer = [&](const SMCRecord& input) -> std::optional<SMCRecord> {
        SMCRecord answer{};
        if (asksForInfo(input)) {
            answer[28] = 2;
            return answer;
        }
        if (++reads == 1)
            return std::nullopt;
        answer[48] = 46;
        return answer;
    };
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), 46);
    EXPECT_EQ(reads, 2);
}

TEST(SMCTemperature, ResultAndStatusOfTheAnswerAreNotLookedAt) {
    FunctionService service;
    service.answer = [](const SMCRecord&) -> std::optional<SMCRecord> {
        SMCRecord answer{};
        answer[28] = 2;
        answer[40] = 0x84;
        answer[41] = 1;
        answer[48] = 46;
        return answer;
    };
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), 46);
}

TEST(SMCTemperature, TheDataSizeIsAWordOfFourBytes) {
    FunctionService service;
    std::optional<SMCRecord> read;
    service.answer = [&](const SMCRecord& input) -> std::optional<SMCRecord> {
        SMCRecord answer{};
        if (asksForInfo(input))
            answer[29] = 1; // 256
        else
            read = input;
        answer[48] = 46;
        return answer;
    };
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), 46);
    ASSERT_TRUE(read);
    EXPECT_EQ((*read)[28], 0);
    EXPECT_EQ((*read)[29], 1);
}

TEST(SMCTemperature, AMachineWithoutAControllerHasNoTemperature) {
    SimulatedSMCService service;
    service.present = false;
    service.values["TC0P"] = fixedPoint(40);
    EXPECT_EQ(SMCTemperature::readCPUTemperature(service), std::nullopt);
    EXPECT_EQ(service.openCount, 1);
}

TEST(SMCTemperature, TheConnectionIsOpenedForEachReadingAndNeverHeld) {
    SimulatedSMCService service;
    SMCTemperature::readCPUTemperature(service);
    EXPECT_EQ(service.openConnections, 0);
    service.values["TC0P"] = fixedPoint(40);
    SMCTemperature::readCPUTemperature(service);
    EXPECT_EQ(service.openConnections, 0);
    EXPECT_EQ(service.openCount, 2);
}

TEST(SMCTemperature, CodesPackAtMostFourBytesFromTheLowEnd) {
    EXPECT_EQ(fourCharCode("TC0P"), 0x54433050u);
    EXPECT_EQ(fourCharCode("TC0PX"), 0x54433050u);
    EXPECT_EQ(fourCharCode("T"), 0x54u);
    EXPECT_EQ(fourCharCode("é"), 0xC3A9u);
    EXPECT_EQ(fourCharCode(""), 0u);
}
