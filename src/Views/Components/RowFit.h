#pragma once

#include <vector>

namespace orvelle {

/// The width, in points, above which each of these is cut so that together they fit into `room`.
/// The widest give way first; no result is below 0, and where all fit it is the widest one's width.
double widthCap(std::vector<double> widths, double room);

} // namespace orvelle
