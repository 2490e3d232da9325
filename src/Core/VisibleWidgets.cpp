#include "Core/VisibleWidgets.h"

#include "Core/HoverLayoutManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Weather/WeatherManager.h"

#include <utility>

namespace orvelle {

namespace {

using Condition = bool (*)(const NotchEnvironment&);

constexpr std::pair<std::string_view, Condition> conditions[] = {
    {"media", [](auto& env) { return !env.mediaManager.currentMedia->title.empty(); }},
    {"battery", [](auto&) { return true; }},
    {"weather", [](auto& env) { return !env.weatherManager.weather->locationName.empty(); }},
    {"fileShelf", [](auto& env) { return env.fileShelfManager.isEnabled.get(); }},
    {"calendar", [](auto& env) { return env.calendarManager.nextUpcomingEvent().has_value(); }},
    {"pomodoro", [](auto& env) { return env.pomodoroManager.isEnabled.get(); }},
    {"systemStats", [](auto& env) { return env.systemMonitorManager.isEnabled.get(); }},
    {"time", [](auto& env) { return env.timeManager.isEnabled.get(); }},
    {"mirror", [](auto& env) { return env.mirrorManager.isEnabled.get(); }},
    {"notes", [](auto& env) { return env.notesManager.isEnabled.get(); }},
    {"stockTicker", [](auto& env) { return env.stockTickerManager.isEnabled.get(); }},
};

} // namespace

bool shouldShowWidget(const NotchEnvironment& environment, std::string_view id) {
    for (const auto& [widget, condition] : conditions)
        if (widget == id)
            return condition(environment);
    return false;
}

std::set<std::string> visibleWidgetIDs(const NotchEnvironment& environment) {
    std::set<std::string> ids;
    for (const auto& [widget, condition] : conditions)
        if (condition(environment))
            ids.emplace(widget);
    return ids;
}

} // namespace orvelle
