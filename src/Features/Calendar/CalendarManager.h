#pragma once

#include "Models/CalendarEvent.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <optional>
#include <vector>

namespace orvelle {

/// The user's events of the next 24 hours.
class CalendarManager : public FeatureModule {
public:
    explicit CalendarManager(Platform& platform = Platform::shared());

    Published<std::vector<CalendarEventModel>> events; ///< in order of start
    Subscription notificationObserver;

    /// The first event that is in progress or still to come.
    std::optional<CalendarEventModel> nextUpcomingEvent() const;

private:
    Platform& platform_;
};

} // namespace orvelle
