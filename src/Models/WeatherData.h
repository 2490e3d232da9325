#pragma once

#include "Foundation/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvelle {

/// The conditions at one place.
struct WeatherData {
    double temperature = 0; ///< in the unit that was asked for
    double feelsLike = 0;
    std::int64_t humidity = 0; ///< percent
    double windSpeed = 0;
    std::int64_t weatherCode = 0; ///< a WMO code, as the service sends it
    bool isDay = true;
    Date lastUpdated;
    std::string locationName;

    bool operator==(const WeatherData&) const = default;

    /// Rounded half away from zero, with "°" and no unit letter.
    std::string temperatureString() const;
    std::string_view conditionIcon() const;
    std::string_view conditionDescription() const;
};

} // namespace orvelle
