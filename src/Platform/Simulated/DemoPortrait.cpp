#include "Platform/Simulated/DemoPortrait.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace orvelle {

namespace {

Color mixed(const Color& one, const Color& other, double share) {
    const double rest = 1 - share;
    return {one.red * rest + other.red * share, one.green * rest + other.green * share,
            one.blue * rest + other.blue * share};
}

/// 0 below `from`, 1 above `to`, smooth between.
double ramp(double value, double from, double to) {
    const double share = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// An ellipse in a picture that is 1 high and has its origin in the middle.
struct Ellipse {
    double x, y, halfWidth, halfHeight;

    /// 0 in the middle, 1 at the edge.
    double distance(double atX, double atY) const {
        return std::hypot((atX - x) / halfWidth, (atY - y) / halfHeight);
    }
    /// How much of it covers the point; the edge is blurred a little.
    double cover(double atX, double atY) const {
        return 1 - ramp(distance(atX, atY), 0.985, 1.015);
    }
};

constexpr Color lamp{0.98, 0.75, 0.48};
constexpr Color wall{0.19, 0.22, 0.33};
constexpr Color skin{0.87, 0.64, 0.50};
constexpr Color hairColor{0.20, 0.13, 0.11};
constexpr Color coat{0.16, 0.42, 0.44};
constexpr Color shadow{0.10, 0.08, 0.12};

constexpr Ellipse shoulders{0, 0.62, 0.42, 0.36};
constexpr Ellipse neck{0, 0.22, 0.075, 0.16};
constexpr Ellipse head{0, -0.02, 0.15, 0.20};
constexpr Ellipse hairBack{0, -0.06, 0.185, 0.215};
constexpr Ellipse fringe{-0.03, -0.19, 0.15, 0.09};

Color shaded(const Color& color, const Ellipse& body, double x) {
    const double side = (x - body.x) / body.halfWidth;
    const auto lit = mixed(color, lamp, 0.32 * ramp(-side, -0.2, 1));
    return mixed(lit, shadow, 0.55 * ramp(side, -0.1, 1.1));
}

Color pointAt(double x, double y) {
    auto color = mixed(lamp, wall, ramp(std::hypot(x + 0.75, y + 0.35), 0.05, 0.95));
    const auto lay = [&](const Ellipse& body, const Color& paint) {
        color = mixed(color, shaded(paint, body, x), body.cover(x, y));
    };
    lay(hairBack, hairColor);
    lay(neck, mixed(skin, shadow, 0.25));
    lay(shoulders, coat);
    lay(head, skin);
    lay(fringe, hairColor);
    return color;
}

std::uint8_t byte(double part) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

} // namespace

Image demoPortrait(int width, int height) {
    std::vector<std::uint8_t> pixels;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column) {
            const auto color =
                pointAt((column + 0.5 - width / 2.0) / height, (row + 0.5 - height / 2.0) / height);
            pixels.insert(pixels.end(),
                          {byte(color.red), byte(color.green), byte(color.blue), 255});
        }
    return Image(width, height, std::move(pixels));
}

} // namespace orvelle
