#pragma once

#include "Foundation/Color.h"

namespace orvelle {

/// The line around a shape.
struct Stroke {
    Color color;
    double lineWidth = 0.5; ///< points
    double miterLimit = 10;
    bool operator==(const Stroke&) const = default;
};

/// The line between two parts of a view.
struct Divider {
    static constexpr double thickness = 1; ///< points
    static constexpr Color color = Color::white(1, 0.1);
};

} // namespace orvelle
