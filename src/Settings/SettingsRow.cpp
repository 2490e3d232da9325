#include "Settings/SettingsRow.h"

#include <algorithm>
#include <cmath>

namespace orvelle {

double SettingsRange::clamped(double value) const {
    return std::clamp(value, lowerBound, upperBound);
}

double SettingsRange::snapped(double value) const {
    // Below 1, dividing by the whole number of steps gives 0.15 where multiplying would not.
    if (step < 1) {
        const double stepsPerUnit = std::round(1 / step);
        return clamped(std::round(value * stepsPerUnit) / stepsPerUnit);
    }
    return clamped(std::round(value / step) * step);
}

} // namespace orvelle
