#include "Features/Weather/WeatherGradient.h"
#include "Models/WeatherData.h"

#include <gtest/gtest.h>

#include <map>
#include <string_view>

namespace orvelle {
namespace {

struct Appearance {
    std::string_view dayIcon;
    std::string_view nightIcon;
    std::string_view description;
    std::array<Color, 2> day;
    std::array<Color, 2> night;
};

using Sky = std::array<Color, 2>;

constexpr Sky overcast{{{0.35, 0.38, 0.45}, {0.25, 0.28, 0.35}}};
constexpr Sky fog{{{0.4, 0.42, 0.48}, {0.3, 0.32, 0.38}}};
constexpr Sky drizzle{{{0.3, 0.4, 0.55}, {0.2, 0.3, 0.45}}};
constexpr Sky rain{{{0.15, 0.25, 0.5}, {0.1, 0.18, 0.38}}};
constexpr Sky sleet{{{0.2, 0.35, 0.55}, {0.15, 0.2, 0.4}}};
constexpr Sky snow{{{0.5, 0.55, 0.65}, {0.35, 0.4, 0.5}}};
constexpr Sky thunder{{{0.15, 0.1, 0.3}, {0.25, 0.15, 0.4}}};
constexpr Sky unknownSky{{{0.2, 0.2, 0.25}, {0.15, 0.15, 0.2}}};

constexpr Appearance same(std::string_view icon, std::string_view description, const Sky& sky) {
    return {icon, icon, description, sky, sky};
}

const Appearance drizzling = same("cloud.drizzle.fill", "Drizzle", drizzle);
const Appearance raining = same("cloud.rain.fill", "Rain", rain);
const Appearance freezing = same("cloud.sleet.fill", "Freezing Rain", sleet);
const Appearance snowing = same("cloud.snow.fill", "Snow", snow);
const Appearance showers = same("cloud.heavyrain.fill", "Showers", rain);
const Appearance snowShowers = same("cloud.snow.fill", "Snow Showers", snow);
const Appearance hail = same("cloud.bolt.rain.fill", "Thunderstorm with Hail", thunder);
const Appearance nothingKnown = same("questionmark.circle", "Unknown", unknownSky);

const std::map<std::int64_t, Appearance> appearances{
    {0,
     {"sun.max.fill",
      "moon.stars.fill",
      "Clear Sky",
      {{{0.95, 0.7, 0.2}, {0.9, 0.4, 0.1}}},
      {{{0.1, 0.1, 0.35}, {0.05, 0.05, 0.2}}}}},
    {1,
     {"sun.min.fill",
      "moon.fill",
      "Mainly Clear",
      {{{0.85, 0.65, 0.2}, {0.5, 0.6, 0.8}}},
      {{{0.1, 0.12, 0.3}, {0.08, 0.08, 0.2}}}}},
    {2,
     {"cloud.sun.fill",
      "cloud.moon.fill",
      "Partly Cloudy",
      {{{0.4, 0.6, 0.85}, {0.55, 0.55, 0.7}}},
      {{{0.12, 0.15, 0.3}, {0.1, 0.1, 0.22}}}}},
    {3, same("cloud.fill", "Overcast", overcast)},
    {45, same("cloud.fog.fill", "Foggy", fog)},
    {48, same("cloud.fog.fill", "Foggy", fog)},
    {51, drizzling},
    {53, drizzling},
    {55, drizzling},
    {61, raining},
    {63, raining},
    {65, raining},
    {66, freezing},
    {67, freezing},
    {71, snowing},
    {73, snowing},
    {75, snowing},
    {77, same("cloud.snow.fill", "Snow Grains", snow)},
    {80, showers},
    {81, showers},
    {82, showers},
    {85, snowShowers},
    {86, snowShowers},
    {95, same("cloud.bolt.rain.fill", "Thunderstorm", thunder)},
    {96, hail},
    {99, hail},
};

const Appearance& appearance(std::int64_t code) {
    const auto found = appearances.find(code);
    return found == appearances.end() ? nothingKnown : found->second;
}

void expectAppearance(std::int64_t code) {
    const auto& expected = appearance(code);
    WeatherData data;
    data.weatherCode = code;
    data.isDay = true;
    EXPECT_EQ(data.conditionIcon(), expected.dayIcon) << code;
    EXPECT_EQ(data.conditionDescription(), expected.description) << code;
    EXPECT_EQ(gradientColors(code, true), expected.day) << code;
    data.isDay = false;
    EXPECT_EQ(data.conditionIcon(), expected.nightIcon) << code;
    EXPECT_EQ(data.conditionDescription(), expected.description) << code;
    EXPECT_EQ(gradientColors(code, false), expected.night) << code;
}

TEST(WeatherTable, EveryCodeHasItsSymbolItsTextAndItsSkyByDayAndByNight) {
    for (std::int64_t code = -10; code <= 300; ++code)
        expectAppearance(code);
}

TEST(WeatherTable, CodesBeyondReasonAreUnknown) {
    for (const std::int64_t code : {INT64_MIN, INT64_MAX, std::int64_t{1} << 32})
        expectAppearance(code);
}

} // namespace
} // namespace orvelle
