#include "Platform/Linux/SysfsPowerSupply.h"

#include "Platform/Linux/SmallFile.h"

#include <cmath>
#include <filesystem>
#include <string_view>

namespace orvelle::SysfsPowerSupply {

namespace {

/// The value of one line of a supply's file, such as "POWER_SUPPLY_STATUS=Charging".
std::string_view property(std::string_view text, std::string_view name) {
    constexpr std::string_view prefix = "POWER_SUPPLY_";
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.starts_with(prefix))
            continue;
        line.remove_prefix(prefix.size());
        if (line.size() > name.size() && line.starts_with(name) && line[name.size()] == '=')
            return line.substr(name.size() + 1);
    }
    return {};
}

/// The first of two properties that is a number: drivers tell either energies or charges.
double number(std::string_view text, std::string_view name, std::string_view otherName) {
    const auto value = parseNumber(property(text, name));
    return static_cast<double>(value ? *value : parseNumber(property(text, otherName)).value_or(0));
}

struct Batteries {
    int count = 0;
    double weighedPercent = 0;
    double weight = 0;
    double content = 0;  ///< µWh or µAh
    double capacity = 0; ///< the same unit
    double flow = 0;     ///< µW or µA
    bool charging = false;
    bool discharging = false;

    void add(std::string_view text) {
        const auto percent = parseNumber(property(text, "CAPACITY"));
        if (property(text, "PRESENT") == "0" || !percent)
            return;
        const double full = number(text, "ENERGY_FULL", "CHARGE_FULL");
        const double share = full > 0 ? full : 1;
        ++count;
        weighedPercent += static_cast<double>(*percent) * share;
        weight += share;
        capacity += full;
        content += number(text, "ENERGY_NOW", "CHARGE_NOW");
        flow += std::abs(number(text, "POWER_NOW", "CURRENT_NOW")); // negative with some drivers
        charging |= property(text, "STATUS") == "Charging";
        discharging |= property(text, "STATUS") == "Discharging";
    }

    std::int64_t minutes(double amount) const {
        constexpr double longest = 60 * 24 * 10; // more is noise of a nearly idle sensor
        const double value = flow > 0 ? std::round(amount * 60 / flow) : -1;
        return value > 0 && value <= longest ? static_cast<std::int64_t>(value) : -1;
    }

    PowerReading reading(bool externalPower) const {
        PowerReading result{.percent = weighedPercent / weight,
                            .charging = charging && !discharging,
                            .onBattery = discharging && !externalPower};
        if (discharging)
            result.minutesToEmpty = minutes(content);
        else if (charging)
            result.minutesToFull = minutes(capacity - content);
        return result;
    }
};

} // namespace

std::optional<Answer> read(const std::string& root) {
    std::error_code failure;
    std::filesystem::directory_iterator entry(root, failure);
    if (failure)
        return std::nullopt;
    Batteries batteries;
    bool externalPower = false;
    for (const std::filesystem::directory_iterator end; !failure && entry != end;
         entry.increment(failure)) {
        const auto text = readSmallFile(entry->path() / "uevent");
        if (!text || property(*text, "SCOPE") == "Device")
            continue;
        if (property(*text, "TYPE") == "Battery")
            batteries.add(*text);
        else if (property(*text, "ONLINE") == "1")
            externalPower = true;
    }
    if (batteries.count == 0)
        return Answer{};
    return Answer{batteries.reading(externalPower)};
}

} // namespace orvelle::SysfsPowerSupply
