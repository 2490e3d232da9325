#pragma once

#include "Foundation/Date.h"
#include "Platform/Platform.h"

#include <optional>

/// What the calendar panel leaves to the calendar application. Nothing waits for these; their
/// failures reach only the log.
namespace orvelle::CalendarActions {

/// Shows the day.
void openInCalendar(Date date, Platform& platform = Platform::shared());
/// Begins a new event, at whatever time the application proposes.
void createNewEvent(std::optional<Date> date, Platform& platform = Platform::shared());

} // namespace orvelle::CalendarActions
