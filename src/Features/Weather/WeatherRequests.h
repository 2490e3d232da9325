#pragma once

#include "Models/TemperatureUnit.h"
#include "Platform/LocationService.h"

#include <string>
#include <string_view>

namespace orvelle {

/// The addresses that are asked for, each behind the root of its service.
namespace WeatherRequests {

/// Empty for a coordinate that is no number.
std::string forecast(const std::string& root, Coordinate coordinate, TemperatureUnit unit);
/// At most five places, named in English.
std::string search(const std::string& root, std::string_view text);

/// The shortest decimal text that reads back as the same number, without an exponent; a whole
/// number keeps ".0".
std::string shortestDecimal(double value);

} // namespace WeatherRequests

} // namespace orvelle
