#include "Features/SystemMonitor/SMCTemperature.h"

#include <bit>
#include <string_view>

namespace orvelle::SMCTemperature {

namespace {

/// Processor sensors of the controller's generations, the preferred one first.
constexpr std::string_view temperatureKeys[] = {"TC0P", "TC0D", "TC0E", "TC0F", "Tp09",
                                                "Tp0T", "Tp01", "Tp0C", "Tp0D", "Tp05"};

// Outside of these a sensor is not fitted, asleep or broken.
constexpr double lowestPlausible = 0;
constexpr double highestPlausible = 130;

constexpr std::uint32_t floatType = fourCharCode("flt ");

SMCRecord request(std::uint32_t key, SMCCommand command, std::uint32_t dataSize = 0) {
    SMCRecord record{};
    setSMCWord(record, SMCLayout::key, key);
    setSMCWord(record, SMCLayout::dataSize, dataSize);
    record[SMCLayout::command] = static_cast<std::uint8_t>(command);
    return record;
}

/// A little-endian float, or else ("sp78" and any other type) a big-endian signed number with eight
/// fractional bits.
double decode(std::uint32_t dataType, const SMCRecord& answer) {
    if (dataType == floatType)
        return static_cast<double>(std::bit_cast<float>(smcWord(answer, SMCLayout::data)));
    const auto bits = answer[SMCLayout::data] << 8 | answer[SMCLayout::data + 1];
    return static_cast<std::int16_t>(bits) / 256.0;
}

std::optional<double> readKey(SMCConnection& connection, std::string_view name) {
    const auto key = fourCharCode(name);
    const auto info = connection.call(request(key, SMCCommand::keyInfo));
    if (!info)
        return std::nullopt;
    const auto dataSize = smcWord(*info, SMCLayout::dataSize);
    if (dataSize == 0)
        return std::nullopt;
    const auto answer = connection.call(request(key, SMCCommand::readKey, dataSize));
    if (!answer)
        return std::nullopt;
    return decode(smcWord(*info, SMCLayout::dataType), *answer);
}

} // namespace

std::optional<double> readCPUTemperature(SMCService& service) {
    const auto connection = service.open();
    if (!connection)
        return std::nullopt;
    for (const auto key : temperatureKeys) {
        const auto value = readKey(*connection, key);
        if (value && *value > lowestPlausible && *value < highestPlausible)
            return value;
    }
    return std::nullopt;
}

} // namespace orvelle::SMCTemperature
