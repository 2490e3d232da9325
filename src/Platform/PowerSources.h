#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvelle {

using PowerSourceValue = std::variant<bool, std::int64_t, double, std::string>;

/// Keys and values of a source:
///   "Type"                 text, "InternalBattery" for the machine's own battery
///   "Current Capacity"     whole number, percent
///   "Is Charging"          boolean
///   "Power Source State"   text, "AC Power" or "Battery Power"
///   "Time to Empty", "Time to Full Charge"   whole numbers, minutes; -1 while unknown
using PowerSourceDescription = std::map<std::string, PowerSourceValue, std::less<>>;

class PowerSources {
public:
    virtual ~PowerSources() = default;

    /// The sources, the one to show first; none when the system cannot say. A source without a
    /// usable description stands as none in the list.
    virtual std::optional<std::vector<std::optional<PowerSourceDescription>>> snapshot() = 0;
};

} // namespace orvelle
