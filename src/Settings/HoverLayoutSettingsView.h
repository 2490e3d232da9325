#pragma once

#include "Core/HoverLayoutManager.h"
#include "Models/HoverWidgetOrder.h"
#include "Views/Components/TextStyle.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class ThemeManager;
class UndoOffer;

/// The page of the settings that places the widgets of the hover bar. Lengths are points.
class HoverLayoutSettingsView {
public:
    struct WidgetRow {
        std::string id;
        StyledSymbol symbol; ///< centred in `symbolWidth`
        StyledText name;
        HoverWidgetPosition zone = HoverWidgetPosition::leftWing;
        bool isVisible = true;
        bool operator==(const WidgetRow&) const = default;
    };

    static constexpr std::string_view title = "Hover Bar Widgets";
    static constexpr std::string_view explanation =
        "Drag to reorder widgets within each zone. Use the zone picker to move widgets between "
        "zones.";
    static constexpr std::string_view emptyText = "No widgets";
    static constexpr std::string_view resetText = "Reset to Defaults";
    static constexpr double symbolWidth = 20;
    static constexpr double pickerWidth = 120;
    static constexpr double resetTextSize = 11;

    HoverLayoutSettingsView(HoverLayoutManager& manager, const ThemeManager& theme,
                            UndoOffer* undo = nullptr)
        : manager_(manager), theme_(theme), undo_(undo) {}

    static std::string_view zoneName(HoverWidgetPosition zone);

    /// When empty, `emptyText` stands instead.
    std::vector<WidgetRow> rows(HoverWidgetPosition zone) const;

    /// Moves a row of a zone so that it stands at the position `to` among the zone's rows.
    void move(HoverWidgetPosition zone, std::size_t from, std::size_t to);
    void changeZone(std::string_view id, HoverWidgetPosition zone);
    void setVisible(std::string_view id, bool isVisible);
    void reset();

private:
    WidgetRow widgetRow(const HoverWidgetPlacement& placement) const;

    HoverLayoutManager& manager_;
    const ThemeManager& theme_;
    UndoOffer* undo_;
};

} // namespace orvelle
