#pragma once

#include <functional>
#include <string_view>

namespace orvelle {

class BatteryManager;
class CalendarManager;
class ClipboardManager;
class FileShelfManager;
class HoverLayoutManager;
class HUDManager;
class MediaManager;
class MirrorManager;
class NotchState;
class NotesManager;
class PanelOrderManager;
class PomodoroManager;
class StockTickerManager;
class SystemMonitorManager;
class ThemeManager;
class TimeManager;
class TodoManager;
class UndoOffer;
class WeatherManager;

/// What the notch's window and views share. The application owns all of it for the life of the
/// process.
struct NotchEnvironment {
    NotchState& notchState;
    MediaManager& mediaManager;
    FileShelfManager& fileShelfManager;
    HUDManager& hudManager;
    CalendarManager& calendarManager;
    BatteryManager& batteryManager;
    ClipboardManager& clipboardManager;
    SystemMonitorManager& systemMonitorManager;
    WeatherManager& weatherManager;
    PomodoroManager& pomodoroManager;
    TodoManager& todoManager;
    NotesManager& notesManager;
    StockTickerManager& stockTickerManager;
    TimeManager& timeManager;
    ThemeManager& themeManager;
    MirrorManager& mirrorManager;
    HoverLayoutManager& hoverLayoutManager;
    PanelOrderManager& panelOrderManager;
    UndoOffer& undo; ///< the panel's
    std::function<void()> openSettings;
    /// What closes the panel from the keyboard; the window's controller sets it.
    std::function<void()> closePanel = {};
    /// The command that the status item's menu shows with this key; false when there is none.
    std::function<bool(std::string_view key)> performShortcut = {};
};

} // namespace orvelle
