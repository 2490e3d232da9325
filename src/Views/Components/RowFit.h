#pragma once

#include <vector>

namespace orvelle {

/// The width, in points, above which each of these is cut so that together they fit into `room`.
/// The widest give way first; no result is below 0, and where all fit it is the widest one's width.
double widthCap(std::vector<double> widths, double room);

/// What a row is made of, in points.
struct RowPart {
    double fixed = 0;          ///< what the part is nothing without
    std::vector<double> texts; ///< what can be left out, the last first, with the gaps before them
    double title = 0;          ///< what can be cut
};

/// What of each part has room.
struct FittedRow {
    static constexpr int hidden = -1;

    std::vector<int> texts; ///< how many of its texts, or `hidden`
    double titleCap = 0;    ///< see `widthCap`
};

/// Cuts the titles first, as far as something can be read of them. Then texts are left out, then
/// the titles, and at last whole parts: always the last of the row first.
FittedRow fittedRow(const std::vector<RowPart>& parts, double gap, double room);

} // namespace orvelle
