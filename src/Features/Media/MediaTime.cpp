#include "Features/Media/MediaTime.h"

namespace orvelle {

double mediaTime(double seconds) {
    constexpr double longest = 1e9; // some thirty years
    return seconds > 0 && seconds <= longest ? seconds : 0;
}

} // namespace orvelle
