#include "Settings/HoverLayoutSettingsView.h"

#include "Core/ListMove.h"
#include "Core/UndoOffer.h"
#include "Features/Theme/ThemeManager.h"
#include "Models/Symbol.h"
#include "Views/Components/FormLook.h"

#include <algorithm>

namespace orvelle {

std::string_view HoverLayoutSettingsView::zoneName(HoverWidgetPosition zone) {
    switch (zone) {
    case HoverWidgetPosition::leftWing:
        return "Left Wing";
    case HoverWidgetPosition::rightWing:
        return "Right Wing";
    case HoverWidgetPosition::bottomRow:
        break;
    }
    return "Bottom Row";
}

std::vector<HoverLayoutSettingsView::WidgetRow>
HoverLayoutSettingsView::rows(HoverWidgetPosition zone) const {
    std::vector<WidgetRow> rows;
    for (const auto& placement : manager_.allWidgetsFor(zone))
        rows.push_back(widgetRow(placement));
    return rows;
}

HoverLayoutSettingsView::WidgetRow
HoverLayoutSettingsView::widgetRow(const HoverWidgetPlacement& placement) const {
    const auto* definition = HoverLayoutManager::definition(placement.id);
    const bool isVisible = placement.isVisible;
    return {placement.id,
            {definition ? definition->icon : "questionmark"_symbol, FormLook::listTextSize,
             isVisible ? theme_.accentColor() : FormLook::secondaryColor},
            {std::string(definition ? definition->name : placement.id),
             {FormLook::listTextSize, FontWeight::regular,
              isVisible ? FormLook::textColor : FormLook::secondaryColor}},
            placement.zone,
            isVisible};
}

void HoverLayoutSettingsView::move(HoverWidgetPosition zone, std::size_t from, std::size_t to) {
    const auto count = manager_.allWidgetsFor(zone).size();
    if (from < count && to < count && from != to)
        manager_.reorderWidgets(zone, {from}, destination(from, to));
}

void HoverLayoutSettingsView::changeZone(std::string_view id, HoverWidgetPosition zone) {
    manager_.changeZone(id, zone);
}

void HoverLayoutSettingsView::setVisible(std::string_view id, bool isVisible) {
    const auto& placements = manager_.placements.get();
    const auto found = std::ranges::find(placements, id, &HoverWidgetPlacement::id);
    if (found != placements.end() && found->isVisible != isVisible)
        manager_.toggleVisibility(id);
}

void HoverLayoutSettingsView::reset() {
    const auto former = manager_.placements.get();
    manager_.resetToDefaults();
    if (undo_)
        undo_->offer(
            {"Hover bar reset", [&manager = manager_, former] { manager.restore(former); }});
}

} // namespace orvelle
