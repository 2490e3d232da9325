#include "Core/WindowPlacement.h"

#include <algorithm>

namespace orvelle {

double windowTop(double height, Span available, double clearance) {
    const double middle = (available.top + available.bottom - height) / 2;
    const double beneath = std::max(middle, clearance);
    return beneath + height <= available.bottom ? beneath : std::max(middle, available.top);
}

} // namespace orvelle
