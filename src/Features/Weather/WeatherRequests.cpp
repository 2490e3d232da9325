#include "Features/Weather/WeatherRequests.h"

#include "Foundation/Url.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orvelle::WeatherRequests {

std::string forecast(const std::string& root, Coordinate coordinate, TemperatureUnit unit) {
    if (!std::isfinite(coordinate.latitude) || !std::isfinite(coordinate.longitude))
        return {};
    auto url = root + "/v1/forecast?latitude=" + shortestDecimal(coordinate.latitude) +
               "&longitude=" + shortestDecimal(coordinate.longitude) +
               "&current=temperature_2m,apparent_temperature,relative_humidity_2m,wind_speed_10m,"
               "weather_code,is_day";
    if (unit == TemperatureUnit::fahrenheit)
        url += "&temperature_unit=fahrenheit&wind_speed_unit=mph";
    return url;
}

std::string search(const std::string& root, std::string_view text) {
    return root + "/v1/search?name=" + Url::escapedForQuery(text) + "&count=5&language=en";
}

std::string shortestDecimal(double value) {
    std::array<char, 512> digits; // the smallest numbers have some 340 decimals
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed);
    std::string text(digits.data(), end.ptr);
    if (text.find('.') == std::string::npos)
        text += ".0";
    return text;
}

} // namespace orvelle::WeatherRequests
