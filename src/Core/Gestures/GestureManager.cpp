#include "Core/Gestures/GestureManager.h"

#include "Features/Media/MediaManager.h"
#include "Features/Weather/WeatherManager.h"
#include "Platform/PanelWindow.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>
#include <cmath>

namespace orvelle {

namespace {

/// The least downward delta that opens. `scrollSensitivity` has no say: it is never below 2.
constexpr double openingThreshold = 2.0;
/// Closing an open panel takes a stroke this many times the threshold.
constexpr double deliberateStroke = 3.5;
/// A swipe must be this much more horizontal than vertical.
constexpr double swipeDominance = 1.5;
/// The height of the tab bar's zone at the panel's top.
constexpr double tabBarZone = 70;
constexpr double contentLimitWithoutWindow = 150;
/// Weather's cooldown is longer: every swipe asks the network.
constexpr Seconds weatherExtraCooldown = 0.2;

struct Bounds {
    double low;
    double high;
};
constexpr Bounds horizontalBounds{5, 40};
constexpr Bounds verticalBounds{2, 30};
constexpr Bounds cooldownBounds{0.1, 1.0};

double clampedSetting(const UserDefaults& defaults, const SettingKey<double>& key, Bounds bounds) {
    const double stored = defaults.number(key.name);
    return std::clamp(stored == 0 ? key.defaultValue : stored, bounds.low, bounds.high);
}

bool isInertia(const ScrollEvent& event) {
    return event.momentumPhase != MomentumPhase::none;
}

} // namespace

GestureManager::GestureManager(NotchState& notchState, MediaManager& mediaManager,
                               WeatherManager& weatherManager, PanelOrderManager& panelOrderManager,
                               Platform& platform)
    : notchState_(notchState), mediaManager_(mediaManager), weatherManager_(weatherManager),
      panelOrderManager_(panelOrderManager), platform_(platform) {
    setupMonitors();
}

void GestureManager::setupMonitors() {
    auto& monitors = platform_.eventMonitors();
    localScrollMonitor_ = monitors.addLocalScrollMonitor([this](const ScrollEvent& event) {
        if (event.panel)
            handleScrollWheel(event);
    });
    // A press in an own window leaves the panel as it is.
    localClickMonitor_ = monitors.addLocalMouseDownMonitor([] {});
    globalClickMonitor_ = monitors.addGlobalMouseDownMonitor([this] {
        if (notchState_.isExpanded())
            notchState_.expandedState = NotchExpandedState::collapsed;
    });
}

void GestureManager::performClosingStroke() {
    const double stroke = 2 * deliberateStroke * verticalBounds.high;
    const auto& defaults = platform_.userDefaults();
    ScrollEvent event;
    event.scrollingDeltaY =
        defaults.boolean(Settings::reverseScrollDirection.name) ? stroke : -stroke;
    handleScrollWheel(event);
}

void GestureManager::handleScrollWheel(const ScrollEvent& event) {
    const auto& defaults = platform_.userDefaults();
    const bool isReversed = defaults.boolean(Settings::reverseScrollDirection.name);
    const double dy = isReversed ? -event.scrollingDeltaY : event.scrollingDeltaY;
    const double dx = event.scrollingDeltaX;

    const double swipeThreshold =
        clampedSetting(defaults, Settings::horizontalSwipeSensitivity, horizontalBounds);
    if (std::fabs(dx) > swipeThreshold &&
        swipeDominance * std::fabs(event.scrollingDeltaY) < std::fabs(dx)) {
        handleHorizontalSwipe(event);
        return;
    }

    auto& state = notchState_.expandedState;
    if (dy > openingThreshold) {
        if (!notchState_.isExpanded())
            state = NotchExpandedState::expanded;
        return;
    }

    const double threshold = clampedSetting(defaults, Settings::scrollSensitivity, verticalBounds);
    if (!(dy < -threshold))
        return;
    const bool closesOpenPanel = !isInertia(event) && dy < -deliberateStroke * threshold;
    if (state.get() == NotchExpandedState::hovering ||
        (notchState_.isExpanded() && closesOpenPanel))
        state = NotchExpandedState::collapsed;
}

void GestureManager::handleHorizontalSwipe(const ScrollEvent& event) {
    if (notchState_.expandedState.get() == NotchExpandedState::hovering) {
        swipeTrack(event);
        return;
    }
    if (!notchState_.isExpanded())
        return;
    const double limit =
        event.panel ? event.panel->frame().size.height - tabBarZone : contentLimitWithoutWindow;
    if (event.locationInWindow.y > limit)
        switchToAdjacentPanel(event);
    else
        handleContentSwipe(event);
}

void GestureManager::handleContentSwipe(const ScrollEvent& event) {
    switch (notchState_.activePanel.get()) {
    case ActivePanel::mirror:
        switchToAdjacentPanel(event);
        break;
    case ActivePanel::media:
        swipeTrack(event);
        break;
    case ActivePanel::weather:
        swipeWeatherLocation(event);
        break;
    default:
        break;
    }
}

void GestureManager::swipeTrack(const ScrollEvent& event) {
    if (swipeDebounceTimer_ || isInertia(event))
        return;
    lock(swipeDebounceTimer_, swipeCooldown());
    if (event.scrollingDeltaX <= 0)
        mediaManager_.nextTrack();
    else
        mediaManager_.previousTrack();
}

void GestureManager::swipeWeatherLocation(const ScrollEvent& event) {
    if (weatherSwipeDebounceTimer_ || isInertia(event))
        return;
    lock(weatherSwipeDebounceTimer_, weatherSwipeCooldown());
    if (event.scrollingDeltaX > 0)
        weatherManager_.cycleToPreviousLocation();
    else
        weatherManager_.cycleToNextLocation();
}

void GestureManager::switchToAdjacentPanel(const ScrollEvent& event) {
    if (tabSwipeDebounceTimer_ || isInertia(event))
        return;
    lock(tabSwipeDebounceTimer_, swipeCooldown());
    // The rest of the stroke falls on the next panel and must not act there.
    if (!swipeDebounceTimer_)
        lock(swipeDebounceTimer_, swipeCooldown());
    if (!weatherSwipeDebounceTimer_)
        lock(weatherSwipeDebounceTimer_, weatherSwipeCooldown());

    const auto panels = panelOrderManager_.visiblePanels();
    const auto active = std::find(panels.begin(), panels.end(), notchState_.activePanel.get());
    if (active == panels.end())
        return;
    const auto index = static_cast<std::size_t>(active - panels.begin());
    const bool isForward = event.scrollingDeltaX < 0;
    const auto next = (index + (isForward ? 1 : panels.size() - 1)) % panels.size();
    notchState_.panelTransitionEdge = isForward ? Edge::trailing : Edge::leading;
    notchState_.activePanel = panels[next];
}

void GestureManager::lock(Timer& timer, Seconds cooldown) {
    timer = platform_.runLoop().after(cooldown, [&timer] { timer.reset(); });
}

Seconds GestureManager::swipeCooldown() const {
    return clampedSetting(platform_.userDefaults(), Settings::swipeCooldown, cooldownBounds);
}

Seconds GestureManager::weatherSwipeCooldown() const {
    return swipeCooldown() + weatherExtraCooldown;
}

} // namespace orvelle
