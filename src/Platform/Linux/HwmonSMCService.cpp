#include "Platform/Linux/HwmonSMCService.h"

#include "Platform/Linux/SmallFile.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <string_view>

namespace orvelle {

namespace {

/// Drivers that know the processor's temperature, the best first.
constexpr std::array<std::string_view, 5> drivers = {"coretemp", "k10temp", "zenpower",
                                                     "cpu_thermal", "acpitz"};
constexpr int mostInputs = 32;

/// A big-endian signed number with 8 fractional bits; what does not fit is held at its limits.
std::array<std::uint8_t, 2> sp78(long long millidegrees) {
    using Limits = std::numeric_limits<std::int16_t>;
    const auto held = std::clamp(millidegrees, -1'000'000LL, 1'000'000LL) * 256 / 1000;
    const auto fixed =
        static_cast<std::uint16_t>(std::clamp<long long>(held, Limits::min(), Limits::max()));
    return {static_cast<std::uint8_t>(fixed >> 8), static_cast<std::uint8_t>(fixed & 0xff)};
}

std::optional<long long> readMillidegrees(const std::string& path) {
    const auto text = readSmallFile(path, 64);
    return text ? parseNumber(*text) : std::nullopt;
}

std::string firstInput(const std::string& folder) {
    for (int number = 1; number <= mostInputs; ++number) {
        auto path = folder + "/temp" + std::to_string(number) + "_input";
        if (readMillidegrees(path))
            return path;
    }
    return {};
}

std::string findSensor(const std::string& root) {
    std::string sensor;
    auto best = drivers.size();
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(root, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        auto name = readSmallFile(entry->path() / "name", 64).value_or("");
        name.erase(std::min(name.find('\n'), name.size()));
        const auto rank = static_cast<std::size_t>(std::find(drivers.begin(), drivers.end(), name) -
                                                   drivers.begin());
        if (rank >= best)
            continue;
        if (auto input = firstInput(entry->path()); !input.empty()) {
            sensor = std::move(input);
            best = rank;
        }
    }
    return sensor;
}

class HwmonConnection : public SMCConnection {
public:
    explicit HwmonConnection(std::string sensor) : sensor_(std::move(sensor)) {}

    std::optional<SMCRecord> call(const SMCRecord& input) override {
        const auto key = smcWord(input, SMCLayout::key);
        const bool known = key == fourCharCode("TC0P") || key == fourCharCode("TC0D");
        SMCRecord answer{};
        switch (SMCCommand{input[SMCLayout::command]}) {
        case SMCCommand::keyInfo:
            if (known) {
                setSMCWord(answer, SMCLayout::dataSize, 2);
                setSMCWord(answer, SMCLayout::dataType, fourCharCode("sp78"));
            }
            return answer;
        case SMCCommand::readKey:
            return known ? read(answer) : std::nullopt;
        }
        return std::nullopt;
    }

private:
    std::optional<SMCRecord> read(SMCRecord answer) const {
        const auto millidegrees = readMillidegrees(sensor_);
        if (!millidegrees)
            return std::nullopt;
        std::ranges::copy(sp78(*millidegrees), answer.begin() + SMCLayout::data);
        return answer;
    }

    std::string sensor_;
};

} // namespace

HwmonSMCService::HwmonSMCService(std::string root) : root_(std::move(root)) {}

std::unique_ptr<SMCConnection> HwmonSMCService::open() {
    if (sensor_.empty() || !readMillidegrees(sensor_))
        sensor_ = findSensor(root_);
    if (sensor_.empty())
        return nullptr;
    return std::make_unique<HwmonConnection>(sensor_);
}

} // namespace orvelle
