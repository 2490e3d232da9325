#pragma once

#include "Core/HoverLayoutManager.h"
#include "Core/NotchEnvironment.h"
#include "Core/PanelOrderManager.h"
#include "Features/Battery/BatteryManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Todo/TodoManager.h"
#include "Features/Weather/WeatherManager.h"
#include "Models/NotchState.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <string_view>
#include <vector>

namespace orvelle {

/// Every manager that the views read, over a simulated machine with a notch of 200 by 37.
struct NotchManagers {
    SimulatedPlatform platform;
    NotchState notchState{platform};
    MediaManager mediaManager{platform};
    FileShelfManager fileShelfManager{platform};
    HUDManager hudManager{{}, platform};
    CalendarManager calendarManager{platform};
    BatteryManager batteryManager{platform};
    ClipboardManager clipboardManager{platform};
    SystemMonitorManager systemMonitorManager{platform};
    WeatherManager weatherManager{platform};
    PomodoroManager pomodoroManager{platform};
    TodoManager todoManager{platform};
    NotesManager notesManager{platform};
    StockTickerManager stockTickerManager{platform};
    TimeManager timeManager{platform};
    ThemeManager themeManager{platform};
    MirrorManager mirrorManager{platform};
    HoverLayoutManager hoverLayoutManager{platform};
    PanelOrderManager panelOrderManager{platform};

    NotchManagers() { notchState.notchSize = Size{200, 37}; }

    NotchEnvironment environment() {
        return {notchState,         mediaManager,     fileShelfManager, hudManager,
                calendarManager,    batteryManager,   clipboardManager, systemMonitorManager,
                weatherManager,     pomodoroManager,  todoManager,      notesManager,
                stockTickerManager, timeManager,      themeManager,     mirrorManager,
                hoverLayoutManager, panelOrderManager};
    }

    void set(const SettingKey<bool>& key, bool value) {
        platform.userDefaultsPort.set(key.name, value);
    }
    void setSystemMonitorModules(bool value) {
        for (const auto* key : {&Settings::sysMonCPU, &Settings::sysMonMemory,
                                &Settings::sysMonNetwork, &Settings::sysMonTemperature})
            set(*key, value);
    }

    /// Leaves exactly these widgets visible in the zone, in this order, and empties the others.
    void placeOnly(HoverWidgetPosition zone, const std::vector<std::string_view>& ids) {
        std::vector<HoverWidgetPlacement> placements;
        for (const auto id : ids)
            placements.push_back(
                {std::string(id), zone, static_cast<std::int64_t>(placements.size()), true});
        hoverLayoutManager.placements = placements;
    }
};

} // namespace orvelle
