#include "Core/HoverLayoutManager.h"

#include "App/Constants.h"
#include "Core/ListMove.h"
#include "Core/StoredList.h"
#include "Models/Symbol.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace orvelle {

namespace {

using Position = HoverWidgetPosition;

std::optional<HoverWidgetPlacement> decodePlacement(const Json& element) {
    const auto id = element.member("id").string();
    const auto zoneText = element.member("zone").string();
    const auto zone = zoneText ? hoverWidgetPositionFrom(*zoneText) : std::nullopt;
    const auto sortOrder = element.member("sortOrder").integer();
    const auto isVisible = element.member("isVisible").boolean();
    if (!id || !zone || !sortOrder || !isVisible)
        return std::nullopt;
    return HoverWidgetPlacement{*id, *zone, *sortOrder, *isVisible};
}

Json encodePlacement(const HoverWidgetPlacement& placement) {
    return Json::Object{{"id", placement.id},
                        {"zone", std::string(rawValue(placement.zone))},
                        {"sortOrder", placement.sortOrder},
                        {"isVisible", placement.isVisible}};
}

// Widths in points. "systemStats" has none here: its width depends on its modules.
constexpr std::pair<std::string_view, double> widgetEstimatedWidths[] = {
    {"media", 80}, {"battery", 50}, {"weather", 45},   {"calendar", 60}, {"pomodoro", 50},
    {"time", 55},  {"mirror", 30},  {"fileShelf", 35}, {"notes", 35},    {"stockTicker", 100}};
constexpr double unknownWidgetWidth = 40;

constexpr std::pair<SettingKey<bool>, double> sysMonModuleWidths[] = {
    {Settings::sysMonCPU, 22},
    {Settings::sysMonMemory, 26},
    {Settings::sysMonNetwork, 38},
    {Settings::sysMonTemperature, 22}};
constexpr double sysMonModuleGap = 5;
constexpr double sysMonMinimumWidth = 20;

constexpr double widgetPadding = 8; // both sides of a click target
// The zones' own spacings.
constexpr double leftWingGap = 4;
constexpr double rightWingGap = 8;
constexpr double bottomRowGap = 10;
constexpr double wingMargin = 20;
constexpr double minimumWing = 24;
constexpr double bottomRowMargin = 8 + 20;

/// The layout may come from a file with any number in it.
std::int64_t placeBehind(std::int64_t sortOrder) {
    return sortOrder == std::numeric_limits<std::int64_t>::max() ? sortOrder : sortOrder + 1;
}

double sumWithGaps(const std::vector<double>& widths, double gap) {
    double sum = 0;
    for (const double width : widths)
        sum += width + widgetPadding;
    if (widths.size() > 1)
        sum += gap * static_cast<double>(widths.size() - 1);
    return sum;
}

} // namespace

const std::vector<HoverLayoutManager::WidgetDefinition>& HoverLayoutManager::widgetDefinitions() {
    static const std::vector<WidgetDefinition> definitions{
        {"media", "Media", "music.note"_symbol, ActivePanel::media},
        {"weather", "Weather", "cloud.sun"_symbol, ActivePanel::weather},
        {"battery", "Battery", "battery.100"_symbol, ActivePanel::battery},
        {"fileShelf", "File Shelf", "tray.fill"_symbol, ActivePanel::fileShelf},
        {"time", "Clock", "clock"_symbol, ActivePanel::time},
        {"pomodoro", "Focus Timer", "timer"_symbol, ActivePanel::pomodoro},
        {"systemStats", "System Stats", "cpu"_symbol, ActivePanel::systemMonitor},
        {"calendar", "Calendar", "calendar"_symbol, ActivePanel::calendar},
        {"notes", "Notes", "note.text"_symbol, ActivePanel::notes},
        {"stockTicker", "Stocks", "chart.line.uptrend.xyaxis"_symbol, ActivePanel::stockTicker},
        {"mirror", "Mirror", "person.crop.square"_symbol, ActivePanel::mirror}};
    return definitions;
}

const HoverLayoutManager::WidgetDefinition* HoverLayoutManager::definition(std::string_view id) {
    for (const auto& candidate : widgetDefinitions())
        if (candidate.id == id)
            return &candidate;
    return nullptr;
}

const std::vector<HoverWidgetPlacement>& HoverLayoutManager::defaultPlacements() {
    static const std::vector<HoverWidgetPlacement> placements{
        {"media", Position::leftWing, 0, true},
        {"weather", Position::rightWing, 0, true},
        {"battery", Position::rightWing, 1, true},
        {"fileShelf", Position::bottomRow, 0, false},
        {"time", Position::bottomRow, 1, true},
        {"pomodoro", Position::bottomRow, 2, true},
        {"systemStats", Position::bottomRow, 3, true},
        {"calendar", Position::bottomRow, 4, false},
        {"notes", Position::bottomRow, 5, false},
        {"stockTicker", Position::bottomRow, 6, false},
        {"mirror", Position::bottomRow, 7, true}};
    return placements;
}

HoverLayoutManager::HoverLayoutManager(Platform& platform) : platform_(platform) {
    loadPlacements();
}

std::vector<HoverWidgetPlacement> HoverLayoutManager::allWidgetsFor(Position zone) const {
    auto widgets = placements.get();
    std::erase_if(widgets, [zone](const auto& placement) { return placement.zone != zone; });
    return sortedByOrder(std::move(widgets));
}

std::vector<HoverWidgetPlacement> HoverLayoutManager::visibleWidgetsFor(Position zone) const {
    auto widgets = allWidgetsFor(zone);
    std::erase_if(widgets, [](const auto& placement) { return !placement.isVisible; });
    return widgets;
}

void HoverLayoutManager::reorderWidgets(Position zone, const std::set<std::size_t>& from,
                                        std::size_t to) {
    auto rows = allWidgetsFor(zone);
    moveRows(rows, from, to);
    placements.update([&](auto& list) { renumber(list, rows); });
    savePlacements();
}

void HoverLayoutManager::toggleVisibility(std::string_view id) {
    auto list = placements.get();
    if (!toggleVisible(list, id))
        return;
    placements = std::move(list);
    savePlacements();
}

void HoverLayoutManager::changeZone(std::string_view id, Position zone) {
    auto list = placements.get();
    const auto moved = std::find_if(list.begin(), list.end(),
                                    [&](const auto& placement) { return placement.id == id; });
    if (moved == list.end() || moved->zone == zone)
        return;
    const auto inTarget = allWidgetsFor(zone);
    const auto oldZone = std::exchange(moved->zone, zone);
    moved->sortOrder = inTarget.empty() ? 0 : placeBehind(inTarget.back().sortOrder);
    renumberZone(list, oldZone);
    placements = std::move(list);
    savePlacements();
}

void HoverLayoutManager::restore(std::vector<HoverWidgetPlacement> former) {
    placements = std::move(former);
    savePlacements();
}

void HoverLayoutManager::resetToDefaults() {
    placements = defaultPlacements();
    savePlacements();
}

void HoverLayoutManager::loadPlacements() {
    auto stored = loadStoredList<HoverWidgetPlacement>(
        platform_.userDefaults(), Settings::hoverWidgetPlacements, decodePlacement);
    if (!stored) {
        placements = defaultPlacements();
        return;
    }
    mergeDefaults(*stored, defaultPlacements());
    placements = std::move(*stored);
}

void HoverLayoutManager::savePlacements() {
    saveStoredList(platform_.userDefaults(), Settings::hoverWidgetPlacements, placements.get(),
                   encodePlacement);
}

void HoverLayoutManager::renumberZone(std::vector<HoverWidgetPlacement>& list, Position zone) {
    std::vector<HoverWidgetPlacement*> members;
    for (auto& placement : list)
        if (placement.zone == zone)
            members.push_back(&placement);
    std::stable_sort(members.begin(), members.end(),
                     [](const auto* a, const auto* b) { return a->sortOrder < b->sortOrder; });
    for (std::size_t index = 0; index < members.size(); ++index)
        members[index]->sortOrder = static_cast<std::int64_t>(index);
}

double HoverLayoutManager::estimatedSystemStatsWidth() const {
    double sum = 0;
    int count = 0;
    for (const auto& [key, width] : sysMonModuleWidths) {
        if (!platform_.userDefaults().storedBoolean(key.name).value_or(true))
            continue;
        sum += width;
        ++count;
    }
    if (count >= 2)
        sum += sysMonModuleGap * (count - 1);
    return std::max(sum, sysMonMinimumWidth);
}

double HoverLayoutManager::estimatedWidth(std::string_view id) const {
    if (id == "systemStats")
        return estimatedSystemStatsWidth();
    for (const auto& [widget, width] : widgetEstimatedWidths)
        if (widget == id)
            return width;
    return unknownWidgetWidth;
}

double
HoverLayoutManager::estimatedHoverWidth(double notchWidth,
                                        const std::set<std::string>& visibleWidgetIDs) const {
    const auto zoneWidth = [&](Position zone, double gap) {
        std::vector<double> widths;
        for (const auto& placement : visibleWidgetsFor(zone))
            if (visibleWidgetIDs.contains(placement.id))
                widths.push_back(estimatedWidth(placement.id));
        return sumWithGaps(widths, gap);
    };
    namespace Notch = AppConstants::Notch;
    const double left = zoneWidth(Position::leftWing, leftWingGap);
    const double right = zoneWidth(Position::rightWing, rightWingGap);
    const double wing = std::max(std::max(left, right) + wingMargin, minimumWing);
    const double bottom = zoneWidth(Position::bottomRow, bottomRowGap);

    const double flares = 2 * Notch::topFlareInset;
    const double total = 2 * wing + notchWidth + flares;
    const double maximum = (Notch::expandedWidth - notchWidth) / 2;
    const double need = bottom + bottomRowMargin;
    if (total >= need)
        return std::min(maximum, wing);
    return std::min(maximum, std::max(wing, (need - notchWidth - flares) / 2));
}

} // namespace orvelle
