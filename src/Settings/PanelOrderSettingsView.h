#pragma once

#include "Core/PanelOrderManager.h"
#include "Views/Components/TextStyle.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class ThemeManager;
class UndoOffer;

/// The page of the settings that orders the panels of the tab bar. Lengths are points.
class PanelOrderSettingsView {
public:
    struct PanelRow {
        std::string id;
        StyledSymbol symbol; ///< centred in `symbolWidth`
        StyledText label;
        StyledSymbol eye;
        std::string_view help; ///< of the eye
        bool isVisible = true;
        bool operator==(const PanelRow&) const = default;
    };

    static constexpr std::string_view title = "Panel Order";
    static constexpr std::string_view explanation =
        "Drag to reorder. Toggle visibility with the eye icon.";
    static constexpr std::string_view resetText = "Reset to Defaults";
    static constexpr double symbolWidth = 16;
    static constexpr double resetTextSize = 11;

    PanelOrderSettingsView(PanelOrderManager& manager, const ThemeManager& theme,
                           UndoOffer* undo = nullptr)
        : manager_(manager), theme_(theme), undo_(undo) {}

    std::vector<PanelRow> rows() const;

    /// Moves a row so that it stands at the position `to`.
    void move(std::size_t from, std::size_t to);
    void toggleVisibility(std::string_view id);
    void reset();

private:
    PanelRow panelRow(const PanelOrderManager::PanelEntry& entry) const;

    PanelOrderManager& manager_;
    const ThemeManager& theme_;
    UndoOffer* undo_;
};

} // namespace orvelle
