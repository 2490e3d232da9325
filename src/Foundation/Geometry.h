#pragma once

namespace orvelle {

/// Lengths are points. Screen coordinates have their origin at the bottom left of the main screen,
/// y upward.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    bool operator==(const EdgeInsets&) const = default;
};

enum class Edge { top, leading, bottom, trailing };

struct Rect {
    Point origin;
    Size size;

    bool operator==(const Rect&) const = default;

    double minX() const { return origin.x; }
    double midX() const { return origin.x + size.width / 2; }
    double maxX() const { return origin.x + size.width; }
    double minY() const { return origin.y; }
    double midY() const { return origin.y + size.height / 2; }
    double maxY() const { return origin.y + size.height; }

    /// The same centre, smaller by `amount` on every side; a negative amount enlarges.
    Rect inset(double amount) const {
        return {{origin.x + amount, origin.y + amount},
                {size.width - 2 * amount, size.height - 2 * amount}};
    }
    /// The left and bottom sides belong to the rectangle, the right and top ones do not.
    bool contains(Point point) const {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }
};

} // namespace orvelle
