#include "Views/NotchCollapsedView.h"

#include "Core/HoverLayoutManager.h"
#include "Core/VisibleWidgets.h"
#include "Features/Battery/BatteryManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Media/MarqueeText.h"
#include "Features/Media/MediaArtwork.h"
#include "Features/Media/MediaManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroCollapsedView.h"
#include "Features/SystemMonitor/MetricColors.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Weather/WeatherManager.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"

#include <utility>

namespace orvelle {

namespace {

StyledText mediumText(std::string text, double size, Color color = colors::white) {
    return {std::move(text), {size, FontWeight::medium, color}};
}

/// The icon of the quieter widgets.
StyledSymbol dimmedIcon(std::string_view name) {
    return {name, 10, Color::white(1, 0.7)};
}

} // namespace

NotchCollapsedView::NotchCollapsedView(const NotchEnvironment& environment,
                                       std::set<std::string> embeddedWidgets, Platform& platform)
    : modules(platform.userDefaults()), environment_(environment),
      embeddedWidgets_(std::move(embeddedWidgets)) {}

bool NotchCollapsedView::showsHoveringLayout() const {
    return environment_.notchState.expandedState == NotchExpandedState::hovering;
}

double NotchCollapsedView::notchSpacerWidth() const {
    return environment_.notchState.notchSize->width + 8;
}

std::vector<HoverWidget> NotchCollapsedView::leftWing() const {
    return widgets(HoverWidgetPosition::leftWing);
}

std::vector<HoverWidget> NotchCollapsedView::rightWing() const {
    return widgets(HoverWidgetPosition::rightWing);
}

std::vector<HoverWidget> NotchCollapsedView::bottomRow() const {
    return widgets(HoverWidgetPosition::bottomRow);
}

bool NotchCollapsedView::hasBottomRowContent() const {
    return !bottomRow().empty();
}

double NotchCollapsedView::bottomPadding() const {
    return hasBottomRowContent() ? 5 : 0;
}

bool NotchCollapsedView::shouldShowWidget(std::string_view id) const {
    return orvelle::shouldShowWidget(environment_, id);
}

std::vector<HoverWidget> NotchCollapsedView::widgets(HoverWidgetPosition zone) const {
    std::vector<HoverWidget> widgets;
    for (const auto& placement : environment_.hoverLayoutManager.visibleWidgetsFor(zone))
        if (auto widget = widgetView(placement.id))
            widgets.push_back(*std::move(widget));
    return widgets;
}

const NotchCollapsedView::Indicator NotchCollapsedView::indicators[] = {
    {"media", &NotchCollapsedView::hoverMediaIndicator},
    {"battery", &NotchCollapsedView::hoverBatteryIndicator},
    {"weather", &NotchCollapsedView::hoverWeatherIndicator},
    {"calendar", &NotchCollapsedView::hoverCalendarIndicator},
    {"time", &NotchCollapsedView::hoverTimeIndicator},
    {"fileShelf", &NotchCollapsedView::hoverFileShelfIndicator},
    {"notes", &NotchCollapsedView::hoverNotesIndicator},
    {"pomodoro", &NotchCollapsedView::hoverPomodoroIndicator},
    {"systemStats", &NotchCollapsedView::hoverSystemStatsIndicator},
};

std::optional<HoverWidget> NotchCollapsedView::widgetView(std::string_view id) const {
    const auto* definition = HoverLayoutManager::definition(id);
    if (!definition || !shouldShowWidget(id))
        return std::nullopt;
    HoverWidget widget;
    widget.id = id;
    widget.panel = definition->panel;
    for (const auto& [indicator, fillIn] : indicators)
        if (indicator == id) {
            (this->*fillIn)(widget);
            return widget;
        }
    if (!embeddedWidgets_.contains(widget.id))
        return std::nullopt;
    widget.kind = HoverWidget::Kind::embedded;
    return widget;
}

void NotchCollapsedView::hoverMediaIndicator(HoverWidget& widget) const {
    const auto& media = environment_.mediaManager.currentMedia.get();
    widget.kind = HoverWidget::Kind::media;
    widget.media = HoverMediaIndicator{
        .hasArtwork = media.artwork.has_value(),
        .cover = {"music.note"_symbol, 12, Color::white(1, 0.6)},
        .playButton = {playSymbol(media), 11, colors::white},
        .playButtonName = playName(media),
        .isPlaying = media.isPlaying,
        .title = mediumText(singleLine(media.title) + " — " + singleLine(media.artist), 11),
    };
}

void NotchCollapsedView::hoverBatteryIndicator(HoverWidget& widget) const {
    const auto& battery = environment_.batteryManager;
    widget.icon = StyledSymbol{battery.batteryIcon(), 11, battery.batteryColor()};
    widget.texts = {
        mediumText(battery.hasBattery ? std::to_string(battery.batteryLevel) + "%" : "AC", 11)};
}

void NotchCollapsedView::hoverWeatherIndicator(HoverWidget& widget) const {
    const auto& weather = environment_.weatherManager.weather.get();
    widget.icon = StyledSymbol{weather.conditionIcon(), 11, colors::white};
    widget.texts = {mediumText(weather.temperatureString(), 11)};
    widget.isDimmed = !environment_.weatherManager.hasFigures;
}

void NotchCollapsedView::hoverCalendarIndicator(HoverWidget& widget) const {
    widget.icon = dimmedIcon("calendar"_symbol);
    widget.truncatesTail = true;
    if (const auto event = environment_.calendarManager.nextUpcomingEvent())
        widget.texts = {mediumText(event->title, 10, Color::white(1, 0.7))};
}

void NotchCollapsedView::hoverTimeIndicator(HoverWidget& widget) const {
    widget.icon = dimmedIcon("clock"_symbol);
    widget.texts = {mediumText(environment_.timeManager.compactTimeString(), 10)};
}

void NotchCollapsedView::hoverFileShelfIndicator(HoverWidget& widget) const {
    widget.icon = dimmedIcon("tray.fill"_symbol);
    if (const auto count = environment_.fileShelfManager.items->size())
        widget.texts = {mediumText(std::to_string(count), 10)};
}

void NotchCollapsedView::hoverNotesIndicator(HoverWidget& widget) const {
    widget.icon = dimmedIcon("note.text"_symbol);
    if (const auto count = environment_.notesManager.items->size())
        widget.texts = {mediumText(std::to_string(count), 10)};
}

void NotchCollapsedView::hoverPomodoroIndicator(HoverWidget& widget) const {
    const PomodoroCollapsedView view(environment_.pomodoroManager);
    widget.icon = view.icon();
    widget.texts = {view.text()};
}

void NotchCollapsedView::hoverSystemStatsIndicator(HoverWidget& widget) const {
    const auto& metrics = environment_.systemMonitorManager.metrics.get();
    widget.isDimmed = !environment_.systemMonitorManager.hasFigures;
    widget.spacing = 5; // what the width estimate counts between two modules
    auto& texts = widget.texts;
    if (modules.showCPU.get())
        texts.push_back(mediumText(format("%d%%", static_cast<int>(metrics.cpuUsage)), 10,
                                   MetricColors::load(metrics.cpuUsage)));
    if (modules.showMemory.get())
        texts.push_back(
            mediumText(format("%.1fG", static_cast<double>(metrics.memoryUsed) / (1ULL << 30)), 10,
                       Color::white(1, 0.8)));
    if (modules.showNetwork.get())
        texts.push_back(mediumText(compactBytes(metrics.networkUpload) + "/" +
                                       compactBytes(metrics.networkDownload),
                                   10, Color::white(1, 0.6)));
    if (modules.showTemperature.get()) {
        const auto celsius = metrics.cpuTemperature;
        texts.push_back(mediumText(celsius ? format("%.0f°", *celsius) : "--", 10,
                                   MetricColors::temperature(celsius)));
    }
}

void NotchCollapsedView::expand() {
    environment_.notchState.expandedState = NotchExpandedState::expanded;
}

void NotchCollapsedView::expandToPanel(ActivePanel panel) {
    if (environment_.notchState.clickWidgetNavigatesToPanel)
        environment_.notchState.activePanel = panel;
    expand();
}

void NotchCollapsedView::playPause() {
    environment_.mediaManager.playPause();
}

} // namespace orvelle
