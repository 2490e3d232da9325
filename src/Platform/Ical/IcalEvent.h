#pragma once

#include "Platform/Ical/ZoneTable.h"

#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// A moment as the file has it.
struct IcalMoment {
    icaltimetype time;   ///< with its zone
    std::time_t instant; ///< seconds since 1970
};

/// A date that an event names beside those of its rules.
struct IcalFurtherDate {
    IcalMoment start;
    std::optional<std::time_t> duration; ///< seconds, where it has one of its own
};

/// One VEVENT.
struct IcalEvent {
    std::string uid;
    std::optional<std::string> title;
    std::optional<std::string> location;
    std::optional<std::string> url;
    bool isCancelled = false;
    bool needsLaterZone = false; ///< it names a zone that is not known yet

    std::optional<IcalMoment> start;
    std::time_t duration = 0;               ///< seconds; of whole days their number times 86,400
    std::optional<IcalMoment> recurrenceId; ///< the occurrence that this event stands for
    std::vector<icalrecurrencetype> rules;
    std::vector<IcalFurtherDate> furtherDates;
    std::vector<IcalMoment> exceptions;

    bool isAllDay() const { return start && start->time.is_date; }
    bool isRepeated() const { return !rules.empty() || !furtherDates.empty(); }

    /// Without a start for what is no event. Its rules are those of `component`, and live as long.
    static IcalEvent read(icalcomponent* component, const ZoneTable& zones);
};

} // namespace orvelle
