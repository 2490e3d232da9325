#include "Features/Time/WorldClockEntry.h"

#include "Foundation/Format.h"

#include <cstdlib>

namespace orvelle {

std::string utcOffsetLabel(int secondsFromGMT) {
    constexpr int hour = 3600;
    const int hours = secondsFromGMT / hour;
    const int remainder = std::abs(secondsFromGMT - hours * hour);
    // Less than an hour west of Greenwich the hours are 0 and read with a plus.
    auto label = format("UTC%s%d", secondsFromGMT > -hour ? "+" : "", hours);
    if (remainder > 59)
        label += format(":%02d", remainder / 60);
    return label;
}

std::string WorldClockEntry::timeString(Date date, const Formatting& formatting) const {
    return formatting.date(date, compactTimePattern, timeZone);
}

std::string WorldClockEntry::offsetLabel(Date date, const Formatting& formatting) const {
    return utcOffsetLabel(formatting.secondsFromGMT(timeZone, date));
}

} // namespace orvelle
