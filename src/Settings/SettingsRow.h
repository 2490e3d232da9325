#pragma once

#include "Settings/SettingsKeys.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The values that a slider can take, both bounds among them. Bounds are whole multiples of `step`.
struct SettingsRange {
    double lowerBound = 0;
    double upperBound = 1;
    double step = 1;
    bool operator==(const SettingsRange&) const = default;

    double clamped(double value) const;
    /// The nearest value that lies on a step.
    double snapped(double value) const;
};

/// One of the values of a picker.
struct SettingsChoice {
    std::string_view value; ///< as it is stored
    std::string_view label;
    bool operator==(const SettingsChoice&) const = default;
};

/// One line of a page of the settings, from top to bottom. A title and a footnote end the group of
/// rows before them. Lengths are points.
struct SettingsRow {
    enum class Kind {
        title,    ///< of the group that follows; may be empty
        footnote, ///< to the group before it
        text,     ///< says something, in a group
        toggle,   ///< `isOn`
        slider,   ///< `value` within `range`, with `valueText`
        picker,   ///< one of `choices`, in a list that opens
        segments, ///< one of `choices`, side by side
        swatch,   ///< a disc of `color`
        action,   ///< `label` and `detail`, and a push button
        place,    ///< a saved place, and a button that removes it
        found,    ///< a place that was found, which a press saves
        search,   ///< a field to type in, with a push button; `isOn` while a search is under way
        about     ///< the program's name and version
    };

    Kind kind = Kind::text;
    std::string id; ///< unique within the page; the setting's key where the row edits one
    std::string label;
    std::string detail;
    double indent = 0;
    bool isOn = false;
    bool isDimmed = false;      ///< draws `label` as what cannot be used
    bool isDestructive = false; ///< its button takes something away, and is coloured so
    double value = 0;
    SettingsRange range;
    std::string valueText;
    double valueWidth = 0; ///< of the frame that `valueText` stands in; 0 for none
    double labelWidth = 0; ///< of a slider's label; 0 for its own
    std::vector<SettingsChoice> choices;
    std::string choice; ///< the `value` of one of `choices`
    std::string button; ///< its title, or what an icon alone does
    std::optional<StyledSymbol> symbol;
    Color color;
    bool operator==(const SettingsRow&) const = default;
};

constexpr bool endsGroup(SettingsRow::Kind kind) {
    return kind == SettingsRow::Kind::title || kind == SettingsRow::Kind::footnote ||
           kind == SettingsRow::Kind::about;
}

} // namespace orvelle
