#pragma once

#include "Core/Gestures/GestureManager.h"
#include "Core/NotchEnvironment.h"
#include "Core/NotchWindow/NotchDetector.h"
#include "Core/NotchWindow/NotchDropContainerView.h"
#include "Core/NotchWindow/NotchPanel.h"
#include "Core/ViewHost.h"
#include "Models/NotchState.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Holds the panel at the screen's top edge: its frame follows the notch's state and the screen,
/// and the pointer on it opens and closes the hover bar.
class NotchWindowController {
public:
    NotchWindowController(const NotchEnvironment& environment, ViewHost& views,
                          Platform& platform = Platform::shared());

    PanelWindow* window() { return panel_ ? &panel_->window() : nullptr; }
    void showWindow();

    void mouseEntered();
    void mouseExited();

    bool isAnimatingCollapse() const { return isAnimatingCollapse_; }

private:
    void setupContentView();
    void setupDropContainer();
    void dragEntered();
    void dragExited();
    bool dragPerformed(const std::vector<std::string>& urls);
    void observeStateChanges();
    void observeScreenChanges();
    void observeSettings();
    void detectScreen();
    void updateWindowFrame(NotchExpandedState state);
    void shrinkLater(NotchExpandedState state, const Rect& frame);
    void followActivePanel(ActivePanel panel);
    void collapseIfPointerIsAway();
    Seconds collapseDebounceInterval() const;

    NotchEnvironment environment_;
    ViewHost& views_;
    Platform& platform_;
    Logger log_;
    NotchDropContainerView dropContainer_; ///< outlives the window
    std::unique_ptr<NotchPanel> panel_;
    std::unique_ptr<GestureManager> gestureManager_;
    std::vector<Subscription> cancellables_;
    NotchScreenInfo cachedScreenInfo_; ///< every frame comes from this
    Subscription screenChangeObserver_;
    Subscription settingsObserver_;
    Timer collapseDebounceTimer_;
    std::list<Timer> pendingShrinks_;
    bool expandedByDrag_ = false;      ///< a drag opened the panel, and leaving closes it
    bool isAnimatingCollapse_ = false; ///< a shrink of the window is pending
    Lifetime lifetime_;
};

} // namespace orvelle
