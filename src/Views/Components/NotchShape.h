#pragma once

#include "Foundation/Geometry.h"

#include <vector>

namespace orvelle {

/// One step of a path. Coordinates have their origin at the top left, y downward.
struct PathElement {
    enum class Kind { move, line, quadCurve, arc, close };
    Kind kind;
    Point end;         ///< where the step ends
    Point control;     ///< of a quadratic curve; the corner of an arc
    double radius = 0; ///< of an arc that is tangent to both sides of its corner
    bool operator==(const PathElement&) const = default;
};

/// The black shape that hangs from the screen's top edge.
struct NotchShape {
    double bottomCornerRadius = 0; ///< of the two lower corners; never animated
    double topFlare = 0;           ///< height of the curve that joins the top edge to the sides
    double bodyInset = 0;          ///< how far the body stands in from either side

    bool operator==(const NotchShape&) const = default;

    /// Clockwise from the top left. The top edge spans the whole rectangle.
    std::vector<PathElement> path(const Rect& rect) const;

    /// The body without the frame that its round corners take: content that is cut to it stays on
    /// the shape, whatever size that passes through.
    Rect contentRect(const Rect& rect) const;
};

} // namespace orvelle
