#pragma once

#include "Features/Calendar/CalendarCollapsedView.h"
#include "Features/Calendar/CalendarExpandedView.h"
#include "Models/CalendarEvent.h"
#include "Platform/EventStore.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

#include <optional>
#include <vector>

namespace orvelle {

/// The user's events of the next 24 hours. Asks for no permission: whoever sets the program up has
/// done so.
class CalendarManager : public FeatureModule,
                        public CollapsedViewProvider<CalendarCollapsedView>,
                        public ExpandedViewProvider<CalendarExpandedView> {
public:
    /// How far the list looks ahead, from any moment: not to the end of a day.
    static constexpr Seconds window = 86400;

    explicit CalendarManager(Platform& platform = Platform::shared());

    Published<std::vector<CalendarEventModel>> events; ///< in order of start
    Published<EventAuthorizationStatus> authorizationStatus;
    Subscription notificationObserver;

    /// The first event that is in progress or still to come.
    std::optional<CalendarEventModel> nextUpcomingEvent() const;

    /// Reads the events, and again whenever the store changes.
    void start() override;
    void fetchEvents();

    bool hasCollapsedContent() const override { return nextUpcomingEvent().has_value(); }
    CalendarCollapsedView collapsedView() override;
    CalendarExpandedView expandedView() override;

    Platform& platform() const { return platform_; }

private:
    Platform& platform_;
    Subscription statusObserver_;
    Lifetime lifetime_;
};

} // namespace orvelle
