#pragma once

#include "Core/Animation/Spring.h"
#include "Foundation/Color.h"

#include <string>

namespace orvelle {

/// A level on a track, with or without a knob. Lengths are points.
struct AnimatedSlider {
    double value = 0;
    double lowerBound = 0;
    double upperBound = 1; ///< above the lower bound
    Color tintColor = colors::white;
    double height = 4; ///< of the track
    bool showThumb = true;

    bool operator==(const AnimatedSlider&) const = default;

    static constexpr Color trackColor = Color::white(1, 0.15);
    static constexpr Color thumbColor = colors::white;
    static constexpr Color thumbShadowColor = Color::white(0, 0.3);
    static constexpr Spring fillSpring{0.3, 0.8};
    static constexpr Spring thumbSpring{0.2, 0.825};

    /// How much of the track is filled, 0 to 1.
    double fraction() const;
    double fillWidth(double width) const;
    /// The fraction in whole percent, for those who hear it.
    std::string levelText() const;
    /// The value under a pointer at `x` on a track of this width; never beyond the bounds.
    double valueAt(double x, double width) const;

    double thumbDiameter() const;
    /// From the track's left end to the knob's left side; the knob is centred on the level.
    double thumbOffset(double width) const;
    static double thumbScale(bool isDragging);
};

} // namespace orvelle
