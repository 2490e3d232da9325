#pragma once

#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// What the user lets the program do with the calendars. The numbers are those of the permission's
/// record elsewhere.
enum class EventAuthorizationStatus {
    notDetermined = 0,
    restricted = 1,
    denied = 2,
    fullAccess = 3,
    writeOnly = 4
};

/// One event, or one occurrence of a repeated one, as the store holds it.
struct StoredEvent {
    struct Calendar {
        Color color = colors::blue;
        std::string title;
        bool operator==(const Calendar&) const = default;
    };

    std::optional<std::string> eventIdentifier;
    std::optional<std::string> title;
    std::optional<Date> startDate;
    std::optional<Date> endDate; ///< not before the start; an all-day event ends at midnight
    std::optional<Calendar> calendar;
    std::optional<std::string> location;
    bool isAllDay = false;
    std::optional<std::string> url;
    bool operator==(const StoredEvent&) const = default;
};

/// The user's calendars. Main thread only.
class EventStore {
public:
    virtual ~EventStore() = default;

    /// As far as is known, without asking the user and without waiting: `notDetermined` until the
    /// store has looked for the first time. Each question has it look again in the background.
    virtual EventAuthorizationStatus authorizationStatus() const = 0;
    /// Calls `changed` when `authorizationStatus` has another answer.
    [[nodiscard]] virtual Subscription
    observeAuthorizationStatus(std::function<void()> changed) = 0;
    /// Asks the user where the system has a question to ask; the answer comes later, never during
    /// the call, unless the handle is reset before.
    [[nodiscard]] virtual Subscription
    requestFullAccess(std::function<void(bool granted)> completion) = 0;

    /// The events of all calendars that share time with the window, in no particular order; none
    /// without full access. Answers at once from what the store has read so far: until it has read
    /// the calendars the list is empty, and it is whole for windows within two days from now.
    virtual std::vector<StoredEvent> events(Date from, Date to) = 0;

    /// Begins to read and watch the calendars if nothing does yet, and calls `changed` whenever
    /// `events` may answer something else: after the first reading, after changes by any program,
    /// and from time to time as the day goes on.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> changed) = 0;
};

} // namespace orvelle
