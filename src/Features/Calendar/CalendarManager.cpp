#include "Features/Calendar/CalendarManager.h"

#include "Foundation/UUID.h"
#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

/// None for an event without its times.
std::optional<CalendarEventModel> model(StoredEvent event) {
    if (!event.startDate || !event.endDate)
        return std::nullopt;
    CalendarEventModel model;
    model.id = event.eventIdentifier ? *std::move(event.eventIdentifier) : UUID::random().text();
    if (event.title)
        model.title = *std::move(event.title);
    model.startDate = *event.startDate;
    model.endDate = *event.endDate;
    if (event.calendar) {
        model.calendarColor = event.calendar->color;
        model.calendarTitle = std::move(event.calendar->title);
    }
    model.location = std::move(event.location);
    model.isAllDay = event.isAllDay;
    model.url = std::move(event.url);
    return model;
}

/// Events with the same start keep their order.
std::vector<CalendarEventModel> sortedByStart(std::vector<CalendarEventModel> events) {
    std::vector<std::pair<Date, std::size_t>> order;
    for (const auto& event : events)
        order.emplace_back(event.startDate, order.size());
    std::ranges::sort(order);
    std::vector<CalendarEventModel> sorted;
    for (const auto& [start, position] : order)
        sorted.push_back(std::move(events[position]));
    return sorted;
}

} // namespace

CalendarManager::CalendarManager(Platform& platform)
    : FeatureModule("calendar", "Calendar", std::string("calendar"_symbol)),
      authorizationStatus(platform.eventStore().authorizationStatus()), platform_(platform) {}

void CalendarManager::start() {
    auto& store = platform_.eventStore();
    notificationObserver = store.observeChanges(
        [this] { platform_.runLoop().post(lifetime_.guard([this] { fetchEvents(); })); });
    statusObserver_ = store.observeAuthorizationStatus(
        [this] { authorizationStatus = platform_.eventStore().authorizationStatus(); });
    authorizationStatus = store.authorizationStatus();
    if (authorizationStatus == EventAuthorizationStatus::fullAccess)
        fetchEvents();
}

void CalendarManager::fetchEvents() {
    const auto now = platform_.runLoop().now();
    std::vector<CalendarEventModel> fetched;
    for (auto& event : platform_.eventStore().events(now, now + window))
        if (auto built = model(std::move(event)))
            fetched.push_back(*std::move(built));
    events = sortedByStart(std::move(fetched));
}

std::optional<CalendarEventModel> CalendarManager::nextUpcomingEvent() const {
    const auto now = platform_.runLoop().now();
    for (const auto& event : events.get())
        if (event.endDate >= now || event.startDate > now)
            return event;
    return std::nullopt;
}

CalendarCollapsedView CalendarManager::collapsedView() {
    return CalendarCollapsedView(*this);
}

CalendarExpandedView CalendarManager::expandedView() {
    return CalendarExpandedView(*this);
}

} // namespace orvelle
