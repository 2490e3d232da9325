#include "Views/NotchContentBinding.h"

#include "Core/HoverLayoutManager.h"
#include "Core/PanelOrderManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Weather/WeatherManager.h"

#include <utility>

namespace orvelle {

namespace {

/// The panels that have a view of their own.
constexpr std::pair<ActivePanel, const char*> panelViews[] = {
    {ActivePanel::battery, "BatteryPanel"},
    {ActivePanel::media, "MediaPanel"},
    {ActivePanel::calendar, "CalendarExpandedView"},
    {ActivePanel::mirror, "MirrorExpandedView"},
    {ActivePanel::fileShelf, "FileShelfView"},
    {ActivePanel::clipboard, "ClipboardHistoryView"},
    {ActivePanel::notes, "NotesExpandedView"},
    {ActivePanel::pomodoro, "PomodoroExpandedView"},
    {ActivePanel::stockTicker, "StockTickerExpandedView"},
    {ActivePanel::systemMonitor, "SystemMonitorPanel"},
    {ActivePanel::time, "TimeExpandedView"},
    {ActivePanel::todo, "TodoExpandedView"},
    {ActivePanel::weather, "WeatherExpandedView"},
};

QUrl panelView(ActivePanel panel) {
    const char* name = "PanelPlaceholder";
    for (const auto& [shown, view] : panelViews)
        if (shown == panel)
            name = view;
    return QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(QLatin1String(name)));
}

} // namespace

static HUDValue toQt(const NotchContentView::HUDOverlay& hud) {
    return {toQt(hud.symbol), toQt(hud.slider), toQt(hud.shape)};
}

static std::vector<TabValue> toQt(const std::vector<NotchContentView::TabButton>& buttons) {
    std::vector<TabValue> tabs;
    for (const auto& button : buttons)
        tabs.push_back({toQt(button.panel), toQt(button.label), toQt(button.symbol),
                        button.isActive, toQt(button.background)});
    return tabs;
}

void NotchContentBinding::attach(const ViewEnvironment& environment) {
    const auto& notch = environment.notch;
    view_.emplace(notch, notch.openSettings, environment.platform);
    collapsedView_.emplace(notch, std::set<std::string>{}, environment.platform);
    state_ = &notch.notchState;
    takeKeyboard_ = environment.takeKeyboard;
    close_ = notch.closePanel;

    follow(state_->expandedState, state_->notchSize, state_->activePanel, state_->isHUDVisible,
           state_->hudType, state_->hudValue);
    follow(view_->animationSpeed, notch.panelOrderManager.panelOrder);
    follow(notch.themeManager);
    // What widens the hover bar.
    follow(notch.hoverLayoutManager.placements, notch.mediaManager.currentMedia,
           notch.weatherManager.weather, notch.fileShelfManager.isEnabled,
           notch.calendarManager.events, notch.pomodoroManager.isEnabled,
           notch.systemMonitorManager.isEnabled, notch.timeManager.isEnabled,
           notch.mirrorManager.isEnabled, notch.notesManager.isEnabled,
           notch.stockTickerManager.isEnabled);
    const auto& modules = collapsedView_->modules;
    follow(modules.showCPU, modules.showMemory, modules.showNetwork, modules.showTemperature);
}

void NotchContentBinding::refresh() {
    // A spring is set before what moves on it.
    const auto spring = view_->stateAnimation();
    show_stateResponse(spring.response);
    show_stateDampingFraction(spring.dampingFraction);
    show_hoveringWidth(view_->hoveringWidth());
    show_targetSize(orvelle::toQt(view_->targetSize()));
    show_shape(orvelle::toQt(view_->currentNotchShape()));
    const auto border = view_->borderOverlay();
    show_border(border ? orvelle::toQt(border->stroke) : StrokeValue{});
    show_showsHoveringLayout(collapsedView_->showsHoveringLayout());
    show_showsExpandedContent(!view_->showsCollapsedView());

    tabs_.show(toQt(view_->tabButtons()));
    // The edge is set before the panel that slides in from it.
    show_entersFromTrailing(view_->panelRemovalEdge() == Edge::leading);
    show_panelSource(panelView(state_->activePanel));
    show_activePanel(orvelle::toQt(state_->activePanel.get()));

    // What fades out is still what was shown.
    const auto hud = view_->hudOverlay();
    if (hud)
        show_hud(toQt(*hud));
    show_showsHUD(hud.has_value());
}

void NotchContentBinding::selectPanel(const QString& id) {
    if (const auto panel = activePanelFrom(id.toStdString()))
        view_->selectPanel(*panel);
}

void NotchContentBinding::close() const {
    if (close_)
        close_();
}

void NotchContentBinding::takeKeyboard() const {
    if (takeKeyboard_)
        takeKeyboard_();
}

void NotchContentBinding::setHUDValue(double value) {
    view_->setHUDValue(value);
}

MenuValue NotchContentBinding::contextMenu() const {
    return {view_->contextMenu()};
}

} // namespace orvelle
