#include "Features/Calendar/CalendarManager.h"

#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

namespace orvelle {

CalendarManager::CalendarManager(Platform& platform)
    : FeatureModule("calendar", "Calendar", std::string("calendar"_symbol)), platform_(platform) {}

std::optional<CalendarEventModel> CalendarManager::nextUpcomingEvent() const {
    const auto now = platform_.runLoop().now();
    for (const auto& event : events.get())
        if (event.endDate >= now || event.startDate > now)
            return event;
    return std::nullopt;
}

} // namespace orvelle
