#include "Features/Calendar/CalendarExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Calendar/CalendarActions.h"
#include "Features/Calendar/CalendarFonts.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Calendar/EventTexts.h"
#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

#include <map>
#include <utility>

namespace orvelle {

namespace {

constexpr Color nowFill = Color::white(1, 0.06);

bool isInProgress(const CalendarEventModel& event, Date now) {
    return event.startDate <= now && event.endDate >= now;
}

MenuEntry newEventEntry(std::optional<Date> date, Platform& platform, bool followsDivider = false) {
    return {.title = "Create New Event...",
            .perform = [date, &platform] { CalendarActions::createNewEvent(date, platform); },
            .followsDivider = followsDivider};
}

} // namespace

std::optional<FilePlaceholder> CalendarExpandedView::noEvents() const {
    if (!manager_.events->empty())
        return std::nullopt;
    return FilePlaceholder{
        {"calendar"_symbol, CalendarFonts::title2Size, notchTertiary},
        {"No upcoming events", CalendarFonts::caption(notchTertiary)},
    };
}

std::vector<CalendarExpandedView::Section> CalendarExpandedView::sections() const {
    std::vector<Section> sections;
    if (auto now = section("NOW", nowFill, false))
        sections.push_back(*std::move(now));
    if (auto upcoming = section("UPCOMING", colors::clear, true))
        sections.push_back(*std::move(upcoming));
    return sections;
}

std::optional<CalendarExpandedView::Section>
CalendarExpandedView::section(std::string title, Color rowFill, bool isUpcoming) const {
    const auto now = manager_.platform().runLoop().now();
    const auto& formatting = manager_.platform().formatting();
    Section section{
        {std::move(title), CalendarFonts::caption(notchSecondary, FontWeight::semibold)},
        rowFill,
        {},
    };
    // Occurrences of one event, and copies of it in two calendars, may share an identifier.
    std::map<std::string, int> seen;
    for (const auto& event : manager_.events.get()) {
        const int copy = seen[event.id]++;
        if (isUpcoming ? event.startDate <= now : !isInProgress(event, now))
            continue;
        EventRow row{
            .id = event.id + '#' + std::to_string(copy),
            .circle = event.calendarColor,
            .title = {event.title, CalendarFonts::caption(colors::white)},
            .time = {EventTexts::time(event, formatting), CalendarFonts::caption2(notchSecondary)},
            .location = {},
            .untilStart = {},
            .startDate = event.startDate,
        };
        if (event.location)
            row.location = StyledText{*event.location, CalendarFonts::caption2(notchTertiary)};
        if (const auto until = EventTexts::untilStart(event, now, formatting))
            row.untilStart = StyledText{*until, CalendarFonts::caption2(notchSecondary)};
        section.rows.push_back(std::move(row));
    }
    if (section.rows.empty())
        return std::nullopt;
    return section;
}

std::vector<MenuEntry> CalendarExpandedView::emptyMenu() const {
    return {newEventEntry(std::nullopt, manager_.platform())};
}

std::vector<MenuEntry> CalendarExpandedView::rowMenu(Date startDate) const {
    auto& platform = manager_.platform();
    return {
        {.title = "Open in Calendar",
         .perform = [startDate,
                     &platform] { CalendarActions::openInCalendar(startDate, platform); }},
        newEventEntry(startDate, platform, true),
    };
}

} // namespace orvelle
