#pragma once

#include "Settings/SettingsPage.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The row of a page, or an empty one where the page does not show it.
inline SettingsRow rowOf(const SettingsPage& page, std::string_view id) {
    const auto& rows = page.rows.get();
    const auto found = std::ranges::find(rows, id, &SettingsRow::id);
    return found == rows.end() ? SettingsRow{} : *found;
}

inline bool shows(const SettingsPage& page, std::string_view id) {
    return rowOf(page, id).id == id;
}

inline std::vector<std::string> labelsOf(const SettingsPage& page, SettingsRow::Kind kind) {
    std::vector<std::string> labels;
    for (const auto& row : page.rows.get())
        if (row.kind == kind)
            labels.push_back(row.label);
    return labels;
}

} // namespace orvelle
