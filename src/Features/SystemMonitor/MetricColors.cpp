#include "Features/SystemMonitor/MetricColors.h"

namespace orvelle::MetricColors {

Color load(double percent) {
    if (percent > 85)
        return colors::red;
    return percent > 60 ? colors::yellow : colors::green;
}

Color temperature(std::optional<double> celsius) {
    if (!celsius)
        return colors::gray;
    if (*celsius >= 80)
        return colors::red;
    return *celsius >= 60 ? colors::yellow : colors::green;
}

} // namespace orvelle::MetricColors
