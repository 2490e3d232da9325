#include "Views/Components/RowFit.h"

#include <algorithm>

namespace orvelle {

double widthCap(std::vector<double> widths, double room) {
    std::sort(widths.begin(), widths.end());
    auto remaining = widths.size();
    for (const double width : widths) {
        const double share = std::max(0.0, room / static_cast<double>(remaining));
        if (width > share)
            return share;
        room -= width;
        --remaining;
    }
    return widths.empty() ? 0 : widths.back();
}

} // namespace orvelle
