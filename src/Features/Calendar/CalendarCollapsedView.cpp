#include "Features/Calendar/CalendarCollapsedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Calendar/CalendarFonts.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Calendar/EventTexts.h"

namespace orvelle {

std::optional<CalendarCollapsedView::Content> CalendarCollapsedView::content() const {
    const auto event = manager_.nextUpcomingEvent();
    if (!event)
        return std::nullopt;
    return Content{
        event->calendarColor,
        {event->title, CalendarFonts::caption(notchAccent)},
        {EventTexts::time(*event, manager_.platform().formatting()),
         CalendarFonts::caption2(notchSecondary)},
    };
}

} // namespace orvelle
