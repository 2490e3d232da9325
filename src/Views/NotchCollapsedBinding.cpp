#include "Views/NotchCollapsedBinding.h"

#include "Core/HoverLayoutManager.h"
#include "Features/Battery/BatteryManager.h"
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

#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace orvelle {

namespace {

/// The views of the widgets that are not drawn with icon and texts.
constexpr std::pair<std::string_view, const char*> embeddedViews[] = {
    {"mirror", "MirrorCollapsedView"},
    {"stockTicker", "StockTickerCycleView"},
};

std::set<std::string> embeddedWidgets() {
    std::set<std::string> ids;
    for (const auto& [id, view] : embeddedViews)
        ids.emplace(id);
    return ids;
}

QUrl widgetView(const HoverWidget& widget) {
    const char* name = widget.truncatesTail ? "HoverTitle" : "HoverTexts";
    if (widget.kind == HoverWidget::Kind::media)
        name = "HoverMedia";
    if (widget.kind == HoverWidget::Kind::embedded)
        for (const auto& [id, view] : embeddedViews)
            if (id == widget.id)
                name = view;
    return QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(QLatin1String(name)));
}

} // namespace

static QVariant toQt(const std::optional<HoverMediaIndicator>& media) {
    if (!media)
        return {};
    return QVariant::fromValue(HoverMediaValue{toQt(media->cover), toQt(media->playButton),
                                               toQt(media->playButtonName), toQt(media->title),
                                               media->hasArtwork, media->isPlaying});
}

static HoverWidgetValue toQt(const HoverWidget& widget) {
    QVariantList texts;
    for (const auto& text : widget.texts)
        texts.append(QVariant::fromValue(toQt(text)));
    const auto* definition = HoverLayoutManager::definition(widget.id);
    return {
        .id = toQt(std::string_view(widget.id)),
        .panel = toQt(widget.panel),
        .name = definition ? toQt(definition->name) : QString(),
        .source = widgetView(widget),
        .icon = toQt(widget.icon),
        .texts = texts,
        .media = toQt(widget.media),
        .spacing = widget.spacing,
        .padding = widget.isTapTarget() ? HoverWidget::tapPadding : 0,
        .isTapTarget = widget.isTapTarget(),
        .opacity = widget.isDimmed ? HoverWidget::dimmedOpacity : 1,
    };
}

static std::vector<HoverWidgetValue> toQt(const std::vector<HoverWidget>& widgets) {
    std::vector<HoverWidgetValue> values;
    for (const auto& widget : widgets)
        values.push_back(toQt(widget));
    return values;
}

void NotchCollapsedBinding::attach(const ViewEnvironment& environment) {
    const auto& notch = environment.notch;
    view_.emplace(notch, embeddedWidgets(), environment.platform);

    follow(notch.notchState.notchSize, notch.hoverLayoutManager.placements);
    follow(notch.mediaManager.currentMedia, notch.weatherManager.weather,
           notch.calendarManager.events, notch.fileShelfManager.isEnabled,
           notch.fileShelfManager.items, notch.notesManager.isEnabled, notch.notesManager.items,
           notch.pomodoroManager.isEnabled, notch.pomodoroManager.state,
           notch.mirrorManager.isEnabled, notch.stockTickerManager.isEnabled);
    follow(notch.timeManager.isEnabled, notch.timeManager.currentTime);
    const auto& battery = notch.batteryManager;
    follow(battery.batteryLevel, battery.isCharging, battery.isPluggedIn, battery.hasBattery);
    follow(notch.systemMonitorManager.isEnabled, notch.systemMonitorManager.metrics,
           notch.systemMonitorManager.hasFigures, notch.weatherManager.hasFigures);
    const auto& modules = view_->modules;
    follow(modules.showCPU, modules.showMemory, modules.showNetwork, modules.showTemperature);
}

void NotchCollapsedBinding::refresh() {
    show_notchSpacerWidth(view_->notchSpacerWidth());
    leftWing_.show(toQt(view_->leftWing()));
    rightWing_.show(toQt(view_->rightWing()));
    bottomRow_.show(toQt(view_->bottomRow()));
    show_bottomPadding(view_->bottomPadding());
}

void NotchCollapsedBinding::expand() {
    view_->expand();
}

void NotchCollapsedBinding::expandToPanel(const QString& panel) {
    if (const auto known = activePanelFrom(panel.toStdString()))
        view_->expandToPanel(*known);
}

void NotchCollapsedBinding::playPause() {
    view_->playPause();
}

} // namespace orvelle
