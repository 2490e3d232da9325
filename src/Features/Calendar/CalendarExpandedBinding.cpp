#include "Features/Calendar/CalendarExpandedBinding.h"

#include "Features/Calendar/CalendarManager.h"

namespace orvelle {

namespace {

CalendarItemValue header(const CalendarExpandedView::Section& section) {
    CalendarItemValue item;
    item.title = toQt(section.header);
    item.id = QStringLiteral("section.") + item.title.text;
    item.isHeader = true;
    return item;
}

CalendarItemValue row(const CalendarExpandedView::EventRow& row, const Color& fill) {
    return {
        .id = QStringLiteral("event.") + toQt(std::string_view(row.id)),
        .isHeader = false,
        .fill = toQt(fill),
        .circle = toQt(row.circle),
        .title = toQt(row.title),
        .time = toQt(row.time),
        .location = toQt(row.location),
        .untilStart = toQt(row.untilStart),
        .startDate = row.startDate.sinceReference,
    };
}

} // namespace

void CalendarExpandedBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.calendarManager;
    view_.emplace(manager);
    follow(manager.events);
    clock_ = environment.platform.runLoop().every(CalendarExpandedView::refreshInterval,
                                                  [this] { refresh(); });
}

void CalendarExpandedBinding::refresh() {
    show_noEvents(toQt(view_->noEvents()));
    std::vector<CalendarItemValue> items;
    for (const auto& section : view_->sections()) {
        items.push_back(header(section));
        for (const auto& each : section.rows)
            items.push_back(row(each, section.rowFill));
    }
    items_.show(items);
}

MenuValue CalendarExpandedBinding::emptyMenu() const {
    return {view_->emptyMenu()};
}

MenuValue CalendarExpandedBinding::rowMenu(double startDate) const {
    return {view_->rowMenu(Date{startDate})};
}

} // namespace orvelle
