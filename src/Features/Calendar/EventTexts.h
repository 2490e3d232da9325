#pragma once

#include "Models/CalendarEvent.h"

#include <optional>
#include <string>

namespace orvelle {

class Formatting;

/// What the calendar's views say of one event.
namespace EventTexts {

/// "All Day", or when it starts.
std::string time(const CalendarEventModel& event, const Formatting& formatting);
/// How long until it starts; none once it has.
std::optional<std::string> untilStart(const CalendarEventModel& event, Date now,
                                      const Formatting& formatting);

} // namespace EventTexts

} // namespace orvelle
