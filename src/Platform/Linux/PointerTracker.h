#pragma once

#include "Foundation/Geometry.h"

#include <optional>

namespace orvelle {

/// Tells the pointer's own crossings of a window's edge from those that the window system reports
/// because the window itself moved, changed its shape or appeared. Positions and frames share one
/// coordinate system.
class PointerTracker {
public:
    enum class Crossing { none, entered, exited };

    /// The window stands at `frame` now, shown or not, with the pointer at `pointer`. Never a
    /// crossing.
    void frameChanged(const std::optional<Rect>& frame, Point pointer);

    /// The window system says that the pointer came in, moved inside, or went out; `pointer` is
    /// where it really is.
    Crossing reportedInside(Point pointer);
    Crossing reportedOutside(Point pointer);

    /// True while the window system reports the pointer outside, although it is within the frame:
    /// beside the window's shape, or under another window. Nobody reports when it moves on, so that
    /// `reportedOutside` wants to be called from time to time.
    bool isUnsure() const { return unsure_; }

private:
    std::optional<Rect> frame_;
    std::optional<Point> resting_; ///< where the pointer was when the frame changed
    bool inside_ = false;
    bool unsure_ = false;
};

} // namespace orvelle
