#include "Features/Time/TimeExpandedBinding.h"

#include "Features/Time/TimeManager.h"

namespace orvelle {

void TimeExpandedBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.timeManager;
    view_.emplace(manager);
    follow(manager.currentTime);
}

void TimeExpandedBinding::refresh() {
    show_localTime(toQt(view_->localTime()));
    show_localDate(toQt(view_->localDate()));
    show_localTimezone(toQt(view_->localTimezone()));
    std::vector<WorldClockValue> cards;
    for (const auto& card : view_->cards())
        cards.push_back({toQt(std::string_view(card.id)), toQt(card.cityName),
                         toQt(card.timeString), toQt(card.offsetLabel)});
    cards_.show(cards);
}

} // namespace orvelle
