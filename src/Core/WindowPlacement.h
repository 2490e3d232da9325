#pragma once

namespace orvelle {

/// From one coordinate to another, downward from the top of the screen.
struct Span {
    double top = 0;
    double bottom = 0;
};

/// Where the top of a window of this height goes: in the middle of what is available, but below
/// `clearance` where it would reach above that and there is room beneath. Its title bar is never
/// above what is available.
double windowTop(double height, Span available, double clearance);

} // namespace orvelle
