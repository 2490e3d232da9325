#include "Features/Weather/WeatherGradient.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

namespace orvelle {

namespace {

struct Sky {
    std::initializer_list<std::int64_t> codes;
    std::optional<bool> isDay; ///< none: by day and by night
    std::array<Color, 2> colors;
};

const Sky skies[] = {
    {{0}, true, {{{0.95, 0.7, 0.2}, {0.9, 0.4, 0.1}}}},
    {{0}, false, {{{0.1, 0.1, 0.35}, {0.05, 0.05, 0.2}}}},
    {{1}, true, {{{0.85, 0.65, 0.2}, {0.5, 0.6, 0.8}}}},
    {{1}, false, {{{0.1, 0.12, 0.3}, {0.08, 0.08, 0.2}}}},
    {{2}, true, {{{0.4, 0.6, 0.85}, {0.55, 0.55, 0.7}}}},
    {{2}, false, {{{0.12, 0.15, 0.3}, {0.1, 0.1, 0.22}}}},
    {{3}, {}, {{{0.35, 0.38, 0.45}, {0.25, 0.28, 0.35}}}},
    {{45, 48}, {}, {{{0.4, 0.42, 0.48}, {0.3, 0.32, 0.38}}}},
    {{51, 53, 55}, {}, {{{0.3, 0.4, 0.55}, {0.2, 0.3, 0.45}}}},
    {{61, 63, 65, 80, 81, 82}, {}, {{{0.15, 0.25, 0.5}, {0.1, 0.18, 0.38}}}},
    {{66, 67}, {}, {{{0.2, 0.35, 0.55}, {0.15, 0.2, 0.4}}}},
    {{71, 73, 75, 77, 85, 86}, {}, {{{0.5, 0.55, 0.65}, {0.35, 0.4, 0.5}}}},
    {{95, 96, 99}, {}, {{{0.15, 0.1, 0.3}, {0.25, 0.15, 0.4}}}},
};

constexpr std::array<Color, 2> unknownSky{{{0.2, 0.2, 0.25}, {0.15, 0.15, 0.2}}};

} // namespace

std::array<Color, 2> gradientColors(std::int64_t weatherCode, bool isDay) {
    const auto* sky = std::ranges::find_if(skies, [&](const Sky& candidate) {
        return std::ranges::find(candidate.codes, weatherCode) != candidate.codes.end() &&
               candidate.isDay.value_or(isDay) == isDay;
    });
    return sky == std::end(skies) ? unknownSky : sky->colors;
}

} // namespace orvelle
