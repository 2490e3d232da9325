#include "Models/NotchState.h"

#include "Models/Symbol.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

namespace orvelle {

namespace {

struct PanelRow {
    std::string_view rawValue;
    std::string_view label;
    std::string_view icon;
};

constexpr std::array<PanelRow, allActivePanels.size()> panelRows{{
    {"media", "Media", "music.note"_symbol},
    {"fileShelf", "Files", "folder"_symbol},
    {"calendar", "Calendar", "calendar"_symbol},
    {"time", "Clock", "clock"_symbol},
    {"battery", "Battery", "battery.100"_symbol},
    {"clipboard", "Clipboard", "doc.on.clipboard"_symbol},
    {"systemMonitor", "System", "cpu"_symbol},
    {"weather", "Weather", "cloud.sun"_symbol},
    {"pomodoro", "Focus", "timer"_symbol},
    {"todo", "Todo", "checklist"_symbol},
    {"mirror", "Mirror", "person.crop.square"_symbol},
    {"notes", "Notes", "note.text"_symbol},
    {"stockTicker", "Stocks", "chart.line.uptrend.xyaxis"_symbol},
    {"settings", "Settings", "gear"_symbol},
}};

const PanelRow& row(ActivePanel panel) {
    return panelRows[static_cast<std::size_t>(panel)];
}

} // namespace

std::string_view rawValue(ActivePanel panel) {
    return row(panel).rawValue;
}

std::string_view label(ActivePanel panel) {
    return row(panel).label;
}

std::string_view icon(ActivePanel panel) {
    return row(panel).icon;
}

std::optional<ActivePanel> activePanelFrom(std::string_view text) {
    for (const auto panel : allActivePanels)
        if (rawValue(panel) == text)
            return panel;
    return std::nullopt;
}

bool takesTyping(ActivePanel panel) {
    return panel == ActivePanel::todo || panel == ActivePanel::clipboard ||
           panel == ActivePanel::notes;
}

NotchState::NotchState(Platform& platform)
    : clickWidgetNavigatesToPanel(true, [&defaults = platform.userDefaults()](const bool& value) {
          defaults.set(Settings::clickWidgetNavigatesToPanel.name, value);
      }) {}

bool NotchState::isExpanded() const {
    return expandedState.get() == NotchExpandedState::expanded ||
           expandedState.get() == NotchExpandedState::fullExpanded;
}

} // namespace orvelle
