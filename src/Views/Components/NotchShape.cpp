#include "Views/Components/NotchShape.h"

#include <algorithm>
#include <numbers>

namespace orvelle {

namespace {

/// Up to this inset the flare is drawn straight: a curve would be degenerate while the inset
/// animates from nothing.
constexpr double straightInset = 0.5;

PathElement move(Point end) {
    return {PathElement::Kind::move, end, {}};
}

PathElement line(Point end) {
    return {PathElement::Kind::line, end, {}};
}

PathElement quadCurve(Point end, Point control) {
    return {PathElement::Kind::quadCurve, end, control};
}

PathElement arc(Point corner, Point end, double radius) {
    return {PathElement::Kind::arc, end, corner, radius};
}

} // namespace

std::vector<PathElement> NotchShape::path(const Rect& rect) const {
    const double left = rect.minX() + bodyInset;
    const double right = rect.maxX() - bodyInset;
    const double top = rect.minY();
    const double bottom = rect.maxY();
    const double radius = bottomCornerRadius;
    const Point topLeft{rect.minX(), top};
    const bool flares = bodyInset > straightInset;

    return {
        move(topLeft),
        line({rect.maxX(), top}),
        flares ? quadCurve({right, top + topFlare}, {right, top})
               : line({rect.maxX(), top + topFlare}),
        line({right, bottom - radius}),
        arc({right, bottom}, {right - radius, bottom}, radius),
        line({left + radius, bottom}),
        arc({left, bottom}, {left, bottom - radius}, radius),
        line({left, top + topFlare}),
        flares ? quadCurve(topLeft, {left, top}) : line(topLeft),
        {PathElement::Kind::close, topLeft, {}},
    };
}

Rect NotchShape::contentRect(const Rect& rect) const {
    // The corner of the frame lies on the arc, half way round.
    const double margin = bottomCornerRadius * (1 - 1 / std::numbers::sqrt2);
    const double side = bodyInset + margin;
    return {{rect.minX() + side, rect.minY()},
            {std::max(0.0, rect.size.width - 2 * side), std::max(0.0, rect.size.height - margin)}};
}

} // namespace orvelle
