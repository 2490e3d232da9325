#include "Features/Media/MediaTime.h"

#include <cmath>

namespace orvelle {

double mediaTime(double seconds) {
    return std::isfinite(seconds) && seconds > 0 ? seconds : 0;
}

} // namespace orvelle
