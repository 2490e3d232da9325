#include "Features/Calendar/EventTexts.h"

#include "Platform/Formatting.h"

namespace orvelle::EventTexts {

std::string time(const CalendarEventModel& event, const Formatting& formatting) {
    if (event.isAllDay)
        return "All Day";
    return formatting.shortTime(event.startDate, formatting.currentTimeZone());
}

std::optional<std::string> untilStart(const CalendarEventModel& event, Date now,
                                      const Formatting& formatting) {
    if (event.startDate <= now)
        return std::nullopt;
    return formatting.relativeTime(event.startDate, now);
}

} // namespace orvelle::EventTexts
