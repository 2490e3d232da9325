#pragma once

#include <array>
#include <string_view>

namespace orvelle {

enum class TemperatureUnit { celsius, fahrenheit };

inline constexpr std::array allTemperatureUnits{TemperatureUnit::celsius,
                                                TemperatureUnit::fahrenheit};

constexpr std::string_view rawValue(TemperatureUnit unit) {
    return unit == TemperatureUnit::celsius ? "°C" : "°F";
}

} // namespace orvelle
