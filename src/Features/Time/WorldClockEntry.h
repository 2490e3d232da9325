#pragma once

#include "Platform/Formatting.h"

#include <string>

namespace orvelle {

/// Hours and minutes of the narrow clocks, such as "9:41 AM".
inline constexpr const char* compactTimePattern = "h:mm a";

/// "UTC+5:30" for seconds east of Greenwich.
std::string utcOffsetLabel(int secondsFromGMT);

/// One city of the world clock.
struct WorldClockEntry {
    std::string id; ///< the zone's identifier
    std::string cityName;
    TimeZone timeZone;
    bool operator==(const WorldClockEntry&) const = default;

    std::string timeString(Date date, const Formatting& formatting) const;
    std::string offsetLabel(Date date, const Formatting& formatting) const;
};

} // namespace orvelle
