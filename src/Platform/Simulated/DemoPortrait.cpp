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

    /// How much of it covers the point; the edge is `blur` wide.
    double cover(double atX, double atY, double blur = 0.004) const {
        const double distance = std::hypot((atX - x) / halfWidth, (atY - y) / halfHeight);
        const double toEdge = (distance - 1) * std::min(halfWidth, halfHeight);
        return 1 - ramp(toEdge, -blur, blur);
    }
};

constexpr Color lamp{1.00, 0.78, 0.52};
constexpr Color wall{0.17, 0.20, 0.31};
constexpr Color skin{0.90, 0.69, 0.55};
constexpr Color blush{0.93, 0.52, 0.44};
constexpr Color dark{0.17, 0.11, 0.10};
constexpr Color coat{0.15, 0.47, 0.48};
constexpr Color shirt{0.93, 0.92, 0.88};
constexpr Color shadow{0.08, 0.07, 0.12};

// The middle third of the picture is what a wide, low panel shows.
constexpr Ellipse shoulders{0, 0.235, 0.215, 0.145};
constexpr Ellipse collar{0, 0.105, 0.060, 0.050};
constexpr Ellipse neck{0, 0.070, 0.033, 0.060};
constexpr Ellipse head{0, -0.020, 0.070, 0.088};
constexpr Ellipse hair{0, -0.042, 0.086, 0.094};
constexpr Ellipse bun{0.012, -0.138, 0.036, 0.032};
constexpr Ellipse face{0.006, 0.004, 0.064, 0.076};
constexpr Ellipse eyes[] = {{-0.026, -0.010, 0.0065, 0.0085}, {0.030, -0.010, 0.0065, 0.0085}};
constexpr Ellipse cheeks[] = {{-0.036, 0.020, 0.013, 0.009}, {0.040, 0.020, 0.013, 0.009}};
constexpr Ellipse smile{0.003, 0.032, 0.024, 0.016};
constexpr Ellipse smileTop{0.003, 0.024, 0.028, 0.014};

struct Light {
    Ellipse disc;
    double strength;
};
constexpr Light lights[] = {
    {{-0.62, -0.10, 0.060, 0.060}, 0.30}, {{-0.47, 0.06, 0.038, 0.038}, 0.22},
    {{-0.36, -0.12, 0.026, 0.026}, 0.20}, {{0.44, -0.08, 0.030, 0.030}, 0.10},
    {{0.58, 0.05, 0.044, 0.044}, 0.08},
};

/// Lit from the left.
Color shaded(const Color& color, const Ellipse& body, double x) {
    const double side = (x - body.x) / body.halfWidth;
    const auto lit = mixed(color, lamp, 0.28 * ramp(-side, -0.2, 1));
    return mixed(lit, shadow, 0.45 * ramp(side, 0, 1.2));
}

Color pointAt(double x, double y) {
    auto color = mixed(lamp, wall, ramp(std::hypot(x + 0.72, 1.6 * (y + 0.1)), -0.1, 0.85));
    const auto lay = [&](const Ellipse& body, const Color& paint, double share = 1) {
        color = mixed(color, paint, share * body.cover(x, y));
    };
    const auto layShaded = [&](const Ellipse& body, const Color& paint) {
        lay(body, shaded(paint, body, x));
    };
    for (const auto& light : lights)
        lay(light.disc, lamp, light.strength);
    layShaded(bun, dark);
    layShaded(hair, dark);
    layShaded(shoulders, coat);
    layShaded(collar, shirt);
    layShaded(neck, mixed(skin, shadow, 0.22));
    layShaded(face, skin);
    // The hair falls over the forehead, down to the line where the face begins.
    color = mixed(color, shaded(dark, hair, x),
                  head.cover(x, y) * ramp(0.5 * std::abs(x - 0.016) - y - 0.056, -0.003, 0.003));
    for (const auto& cheek : cheeks)
        color = mixed(color, blush, 0.5 * cheek.cover(x, y, 0.008));
    for (const auto& eye : eyes)
        lay(eye, dark);
    color = mixed(color, {0.60, 0.22, 0.22},
                  smile.cover(x, y, 0.002) * (1 - smileTop.cover(x, y, 0.002)));
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
