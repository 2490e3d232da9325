#include "Foundation/Color.h"

#include <algorithm>
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

Color Color::mixed(const Color& other, double amount) const {
    const double share = std::clamp(amount, 0.0, 1.0);
    if (share == 0 || share == 1)
        return share == 0 ? *this : other;
    const double sum = alpha * (1 - share) + other.alpha * share;
    const auto part = [&](double one, double another) {
        return sum > 0 ? (one * alpha * (1 - share) + another * other.alpha * share) / sum : 0;
    };
    return {part(red, other.red), part(green, other.green), part(blue, other.blue), sum};
}

} // namespace orvelle
