#pragma once

#include "Foundation/JsonRecord.h"

#include <cstdint>
#include <string_view>

namespace orvelle {

/// What the program reads of a reply of the forecast service.
struct OpenMeteoResponse {
    struct CurrentWeather {
        double temperature = 0;
        double apparentTemperature = 0;
        std::int64_t relativeHumidity = 0; ///< percent
        double windSpeed = 0;
        std::int64_t weatherCode = 0; ///< WMO
        std::int64_t isDay = 0;       ///< 1 by day
    };
    CurrentWeather current;

    static Decoded<OpenMeteoResponse> decode(std::string_view body);
};

} // namespace orvelle
