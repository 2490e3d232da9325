#pragma once

#include <string_view>

namespace orvelle {

/// What the licence of the weather's data asks to be said where the program tells about itself.
struct WeatherCredit {
    static constexpr std::string_view text = "Weather data by Open-Meteo.com, CC BY 4.0";
};

} // namespace orvelle
