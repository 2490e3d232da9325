#include "Settings/SettingsView.h"

#include "Models/Symbol.h"

namespace orvelle {

const std::array<SettingsView::Tab, 5>& SettingsView::tabs() {
    static constexpr std::array<Tab, 5> tabs{
        {{"General", "gear"_symbol, "GeneralSettingsView"},
         {"Appearance", "paintbrush"_symbol, "AppearanceSettingsView"},
         {"Features", "square.grid.2x2"_symbol, "FeatureSettingsView"},
         {"Hover Bar", "rectangle.split.3x1"_symbol, "HoverLayoutSettingsView"},
         {"Panels", "list.number"_symbol, "PanelOrderSettingsView"}}};
    return tabs;
}

} // namespace orvelle
