#pragma once

#include "Core/PanelOrderManager.h"
#include "Models/NotchState.h"
#include "Platform/EventMonitors.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"

namespace orvelle {

class MediaManager;
class WeatherManager;

/// Turns scrolling over the panel and presses elsewhere into changes of state.
class GestureManager {
public:
    GestureManager(NotchState& notchState, MediaManager& mediaManager,
                   WeatherManager& weatherManager, PanelOrderManager& panelOrderManager,
                   Platform& platform = Platform::shared());

    /// The keyboard's upward stroke, deliberate at any sensitivity.
    void performClosingStroke();

private:
    void setupMonitors();
    void handleScrollWheel(const ScrollEvent& event);
    void handleHorizontalSwipe(const ScrollEvent& event);
    void handleContentSwipe(const ScrollEvent& event);
    void swipeTrack(const ScrollEvent& event);
    void swipeWeatherLocation(const ScrollEvent& event);
    void switchToAdjacentPanel(const ScrollEvent& event);
    void lock(Timer& timer, Seconds cooldown);
    Seconds swipeCooldown() const;
    Seconds weatherSwipeCooldown() const;

    NotchState& notchState_;
    MediaManager& mediaManager_;
    WeatherManager& weatherManager_;
    PanelOrderManager& panelOrderManager_;
    Platform& platform_;
    Subscription localScrollMonitor_;
    Subscription localClickMonitor_;
    Subscription globalClickMonitor_;
    // A running timer is the lock of its kind of swipe.
    Timer swipeDebounceTimer_;
    Timer weatherSwipeDebounceTimer_;
    Timer tabSwipeDebounceTimer_;
};

} // namespace orvelle
