#include "Features/Time/TimeExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Time/TimeManager.h"
#include "Platform/Formatting.h"

namespace orvelle {

StyledText TimeExpandedView::localTime() const {
    return {manager_.localTimeString(), {30, FontWeight::bold, colors::white}};
}

StyledText TimeExpandedView::localDate() const {
    return {manager_.localDateString(), {13, FontWeight::regular, notchSecondary}};
}

StyledText TimeExpandedView::localTimezone() const {
    return {manager_.localTimezoneString(), {11, FontWeight::regular, notchTertiary}};
}

std::vector<TimeExpandedView::Card> TimeExpandedView::cards() const {
    const auto& formatting = manager_.platform().formatting();
    const auto now = manager_.currentTime.get();
    std::vector<Card> cards;
    for (const auto& entry : manager_.surroundingTimezones())
        cards.push_back({
            entry.id,
            {entry.cityName, {9, FontWeight::medium, notchSecondary}},
            {entry.timeString(now, formatting), {12, FontWeight::semibold, colors::white}},
            {entry.offsetLabel(now, formatting), {8, FontWeight::regular, notchTertiary}},
        });
    return cards;
}

} // namespace orvelle
