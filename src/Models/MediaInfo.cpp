#include "Models/MediaInfo.h"

#include "Foundation/Format.h"

#include <cmath>

namespace orvelle {

namespace {

/// `seconds` is finite and not negative.
std::string formatTime(double seconds) {
    const double whole = std::trunc(seconds);
    return format("%.0f:%02.0f", std::trunc(whole / 60), std::fmod(whole, 60));
}

} // namespace

std::string MediaInfo::formattedElapsed() const {
    return formatTime(elapsed);
}

std::string MediaInfo::formattedDuration() const {
    return formatTime(duration);
}

} // namespace orvelle
