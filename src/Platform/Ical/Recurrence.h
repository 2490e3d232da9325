#pragma once

#include "Platform/Ical/Handles.h"

#include <ctime>
#include <functional>

namespace orvelle {

/// Works out when a rule repeats its event, in bounded time whatever the rule says.
namespace Recurrence {

/// Occurrences that one event may have in the span; the first of them are given.
inline constexpr int maximumOccurrences = 200;
/// Steps of a rule that are gone through in search of the span.
inline constexpr int maximumSteps = 20000;

/// The starts, in the zone of `start`, from `from` until before `to`, both seconds since 1970.
void expand(icalrecurrencetype rule, const icaltimetype& start, std::time_t from, std::time_t to,
            const std::function<void(const icaltimetype& start)>& found);

} // namespace Recurrence

} // namespace orvelle
