#include "Models/WeatherData.h"

#include "Foundation/Format.h"
#include "Models/Symbol.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace orvelle {

namespace {

struct WeatherCondition {
    std::initializer_list<std::int64_t> codes;
    std::string_view dayIcon;
    std::string_view nightIcon;
    std::string_view description;
};

// The freezing drizzle codes 56 and 57 are left out on purpose: they read "Unknown".
const WeatherCondition weatherConditions[] = {
    {{0}, "sun.max.fill"_symbol, "moon.stars.fill"_symbol, "Clear Sky"},
    {{1}, "sun.min.fill"_symbol, "moon.fill"_symbol, "Mainly Clear"},
    {{2}, "cloud.sun.fill"_symbol, "cloud.moon.fill"_symbol, "Partly Cloudy"},
    {{3}, "cloud.fill"_symbol, "cloud.fill"_symbol, "Overcast"},
    {{45, 48}, "cloud.fog.fill"_symbol, "cloud.fog.fill"_symbol, "Foggy"},
    {{51, 53, 55}, "cloud.drizzle.fill"_symbol, "cloud.drizzle.fill"_symbol, "Drizzle"},
    {{61, 63, 65}, "cloud.rain.fill"_symbol, "cloud.rain.fill"_symbol, "Rain"},
    {{66, 67}, "cloud.sleet.fill"_symbol, "cloud.sleet.fill"_symbol, "Freezing Rain"},
    {{71, 73, 75}, "cloud.snow.fill"_symbol, "cloud.snow.fill"_symbol, "Snow"},
    {{77}, "cloud.snow.fill"_symbol, "cloud.snow.fill"_symbol, "Snow Grains"},
    {{80, 81, 82}, "cloud.heavyrain.fill"_symbol, "cloud.heavyrain.fill"_symbol, "Showers"},
    {{85, 86}, "cloud.snow.fill"_symbol, "cloud.snow.fill"_symbol, "Snow Showers"},
    {{95}, "cloud.bolt.rain.fill"_symbol, "cloud.bolt.rain.fill"_symbol, "Thunderstorm"},
    {{96, 99},
     "cloud.bolt.rain.fill"_symbol,
     "cloud.bolt.rain.fill"_symbol,
     "Thunderstorm with Hail"},
};

const WeatherCondition unknownCondition{
    {}, "questionmark.circle"_symbol, "questionmark.circle"_symbol, "Unknown"};

const WeatherCondition& condition(std::int64_t code) {
    for (const auto& candidate : weatherConditions)
        if (std::find(candidate.codes.begin(), candidate.codes.end(), code) !=
            candidate.codes.end())
            return candidate;
    return unknownCondition;
}

} // namespace

std::string WeatherData::temperatureString() const {
    return format("%.0f°", std::round(temperature) + 0.0); // + 0.0 turns a negative zero around
}

std::string_view WeatherData::conditionIcon() const {
    const auto& found = condition(weatherCode);
    return isDay ? found.dayIcon : found.nightIcon;
}

std::string_view WeatherData::conditionDescription() const {
    return condition(weatherCode).description;
}

} // namespace orvelle
