#pragma once

#include "Foundation/Published.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsRow.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// A page of the settings as data: what it shows, and what its controls do. Every control writes at
/// once. An order for a row that the page does not show does nothing.
class SettingsPage {
public:
    virtual ~SettingsPage() = default;

    /// Follows the store and whatever else the page shows.
    Published<std::vector<SettingsRow>> rows;

    /// Reads anew what cannot be followed: when the page appears, and when its user returns to it.
    virtual void appear() {}

    void flip(std::string_view id, bool on);
    /// The nearest step is what counts.
    void slide(std::string_view id, double value);
    void choose(std::string_view id, std::string_view value);
    /// The push button of a row, or the row itself where it is one.
    void press(std::string_view id);
    /// What stands in a row's field now.
    void type(std::string_view id, std::string_view text);

protected:
    explicit SettingsPage(UserDefaults& defaults);

    /// What the page shows now.
    virtual std::vector<SettingsRow> makeRows() const = 0;
    /// Writes the setting; pages where a switch means more do more.
    virtual void setOn(std::string_view id, bool on);
    virtual void pressed(std::string_view) {}
    virtual void typed(std::string_view) {}
    void refresh() { rows = makeRows(); }

    // A stored value that does not fit the row shows the nearest that does, or the default.
    SettingsRow toggleRow(std::string label, const SettingKey<bool>& key) const;
    SettingsRow sliderRow(std::string label, const SettingKey<double>& key,
                          SettingsRange range) const;
    SettingsRow pickerRow(std::string label, const SettingKey<std::string_view>& key,
                          std::vector<SettingsChoice> choices) const;
    static SettingsRow titleRow(std::string title);
    /// A title without a text, which begins another group.
    static SettingsRow gapRow(std::string id);
    static SettingsRow footnoteRow(std::string id, std::string text);
    static SettingsRow buttonRow(std::string id, std::string title);
    /// A button that takes something away.
    static SettingsRow resetRow(std::string id, std::string title);

    UserDefaults& defaults_;

private:
    /// The row that is shown with this id and one of these kinds, or null.
    const SettingsRow* row(std::string_view id,
                           std::initializer_list<SettingsRow::Kind> kinds) const;

    Subscription changes_;
};

} // namespace orvelle
