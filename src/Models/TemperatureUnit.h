#pragma once

#include <string_view>

namespace orvelle {

enum class TemperatureUnit { celsius, fahrenheit };

constexpr std::string_view rawValue(TemperatureUnit unit) {
    return unit == TemperatureUnit::celsius ? "°C" : "°F";
}

} // namespace orvelle
