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
    return {true, toQt(hud.symbol), toQt(hud.slider), toQt(hud.shape)};
}

static std::vector<TabValue> toQt(const std::vector<NotchContentView::TabButton>& buttons) {
    std::vector<TabValue> tabs;
    for (const auto& button : buttons)
        tabs.push_back({toQt(button.panel), toQt(button.label), toQt(button.symbol),
                        button.isActive, toQt(button.background)});
    return tabs;
}

static TabLookValue toQt(const NotchContentView::TabLook& look) {
    return {toQt(look.symbol), toQt(look.background)};
}

/// What is not there any more is what it was, without being shown.
static PartValue next(PartValue part, const std::optional<Size>& size) {
    part.isShown = size.has_value();
    if (size)
        part.size = toQt(*size);
    return part;
}

static BorderValue next(BorderValue border, const std::optional<NotchContentView::Border>& shown) {
    if (shown)
        return {true, toQt(shown->shape), toQt(shown->stroke)};
    border.isShown = false;
    return border;
}

static HUDValue next(HUDValue hud, const std::optional<NotchContentView::HUDOverlay>& shown) {
    if (shown)
        return toQt(*shown);
    hud.isShown = false;
    return hud;
}

static StageValue next(const StageValue& last, const NotchContentView::Stage& stage) {
    return {
        .size = toQt(stage.size),
        .shape = toQt(stage.shape),
        .response = stage.animation.response,
        .dampingFraction = stage.animation.dampingFraction,
        .border = next(last.border, stage.border),
        .hoverBar = next(last.hoverBar, stage.hoverBar),
        .expandedContent = next(last.expandedContent, stage.expandedContent),
    };
}

void NotchContentBinding::attach(const ViewEnvironment& environment) {
    const auto& notch = environment.notch;
    view_.emplace(notch, notch.openSettings, environment.platform);
    modules_.emplace(environment.platform.userDefaults());
    state_ = &notch.notchState;
    takeKeyboard_ = environment.takeKeyboard;
    close_ = notch.closePanel;
    performShortcut_ = notch.performShortcut;

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
    follow(modules_->showCPU, modules_->showMemory, modules_->showNetwork,
           modules_->showTemperature);
}

void NotchContentBinding::refresh() {
    show_stage(next(stage(), view_->stage()));
    show_wingWidth(view_->wingWidth());
    show_showsSettingsButton(view_->showsSettingsButton());
    show_restingTab(orvelle::toQt(view_->tabLook(false)));
    show_activeTab(orvelle::toQt(view_->tabLook(true)));
    tabs_.show(toQt(view_->tabButtons()));
    // The edge belongs to the panel that came from it: alone it tells of the next one.
    const auto active = state_->activePanel.get();
    if (const auto id = orvelle::toQt(active); id != panel().id)
        show_panel({id, panelView(active), view_->panelRemovalEdge() == Edge::leading});
    show_hud(next(hud(), view_->hudOverlay()));
}

void NotchContentBinding::selectPanel(const QString& id) {
    if (const auto panel = activePanelFrom(id.toStdString()))
        view_->selectPanel(*panel);
}

void NotchContentBinding::close() const {
    if (close_)
        close_();
}

bool NotchContentBinding::performShortcut(const QString& key) const {
    return performShortcut_ && performShortcut_(key.toStdString());
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
