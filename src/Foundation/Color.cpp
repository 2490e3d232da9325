#include "Foundation/Color.h"

#include <cmath>

namespace orvelle {

Color Color::hsb(double hue, double saturation, double brightness, double alpha) {
    const double sector = (hue - std::floor(hue)) * 6;
    const double fraction = sector - std::floor(sector);
    const double low = brightness * (1 - saturation);
    const double falling = brightness * (1 - saturation * fraction);
    const double rising = brightness * (1 - saturation * (1 - fraction));
    switch (static_cast<int>(sector)) {
    case 0:
        return {brightness, rising, low, alpha};
    case 1:
        return {falling, brightness, low, alpha};
    case 2:
        return {low, brightness, rising, alpha};
    case 3:
        return {low, falling, brightness, alpha};
    case 4:
        return {rising, low, brightness, alpha};
    default:
        return {brightness, low, falling, alpha};
    }
}

} // namespace orvelle
