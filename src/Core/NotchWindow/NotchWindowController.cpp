#include "Core/NotchWindow/NotchWindowController.h"

#include "App/Constants.h"
#include "Core/Animation/NotchAnimator.h"
#include "Core/HoverLayoutManager.h"
#include "Core/VisibleWidgets.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Foundation/Format.h"
#include "Platform/EventMonitors.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>

namespace orvelle {

namespace {

/// How far beside the panel the pointer still counts as on it.
constexpr double pointerTolerance = 8;
/// A frame that is smaller by no more than this does not count as shrinking.
constexpr double shrinkTolerance = 1;
constexpr Seconds minimumDebounce = 0.05;
constexpr Seconds maximumDebounce = 0.5;

} // namespace

NotchWindowController::NotchWindowController(const NotchEnvironment& environment, ViewHost& views,
                                             Platform& platform)
    : environment_(environment), views_(views), platform_(platform),
      log_(platform.log(), "NotchWindowController"),
      cachedScreenInfo_(NotchDetector::detectNotch(platform)) {
    const auto& size = cachedScreenInfo_.notchSize;
    const auto& position = cachedScreenInfo_.notchPosition;
    log_.info(format("Creating panel: initialSize=%fx%f, position=(%f, %f)", size.width,
                     size.height, position.x, position.y));
    panel_ = std::make_unique<NotchPanel>(platform.panelWindows(), Rect{position, size});
    environment_.closePanel = lifetime_.guard([this] { gestureManager_->performClosingStroke(); });
    setupContentView();
    setupDropContainer();
    window()->setPointerEvents(
        {lifetime_.guard([this] { mouseEntered(); }), lifetime_.guard([this] { mouseExited(); })});
    gestureManager_ = std::make_unique<GestureManager>(
        environment.notchState, environment.mediaManager, environment.weatherManager,
        environment.panelOrderManager, platform);
    observeStateChanges();
    observeScreenChanges();
    observeSettings();
    log_.info("NotchWindowController initialized successfully");
}

void NotchWindowController::showWindow() {
    if (auto* panel = window())
        panel->orderFront();
}

void NotchWindowController::setupContentView() {
    views_.showNotchContent(*window(), environment_);
}

void NotchWindowController::setupDropContainer() {
    // The container dies with this controller, and so holds nothing that could be gone.
    dropContainer_.onDragEntered = [this] { dragEntered(); };
    dropContainer_.onDragExited = [this] { dragExited(); };
    dropContainer_.onDragPerformed = [this](const auto& urls) { return dragPerformed(urls); };
    window()->setDraggingDestination(&dropContainer_);
}

void NotchWindowController::dragEntered() {
    auto& state = environment_.notchState;
    state.isDragSessionActive = true;
    state.activePanel = ActivePanel::fileShelf;
    if (!state.isExpanded()) {
        expandedByDrag_ = true;
        state.expandedState = NotchExpandedState::expanded;
    }
}

void NotchWindowController::dragExited() {
    auto& state = environment_.notchState;
    state.isDragSessionActive = false;
    if (expandedByDrag_) {
        expandedByDrag_ = false;
        state.expandedState = NotchExpandedState::collapsed;
    }
}

bool NotchWindowController::dragPerformed(const std::vector<std::string>& urls) {
    environment_.notchState.isDragSessionActive = false;
    expandedByDrag_ = false;
    for (const auto& url : urls)
        environment_.fileShelfManager.addFile(url);
    return !urls.empty();
}

void NotchWindowController::observeStateChanges() {
    cancellables_.push_back(environment_.notchState.expandedState.observe(
        [this](NotchExpandedState state) { updateWindowFrame(state); }));
    cancellables_.push_back(environment_.notchState.activePanel.observe(
        [this](ActivePanel panel) { followActivePanel(panel); }));
}

void NotchWindowController::followActivePanel(ActivePanel panel) {
    if (!window() || !environment_.notchState.isExpanded())
        return;
    if (takesTyping(panel))
        window()->makeKey();
    else
        window()->resignKey();
}

void NotchWindowController::updateWindowFrame(NotchExpandedState state) {
    auto* panel = window();
    if (!panel) {
        log_.error("updateWindowFrame: window is nil — cannot update frame");
        return;
    }
    if (!cachedScreenInfo_.screen) {
        log_.error("updateWindowFrame: cachedScreenInfo.screen is nil — cannot update frame");
        return;
    }
    namespace Notch = AppConstants::Notch;
    const auto& notch = cachedScreenInfo_.notchSize;
    const double notchWidth = notch.width > 0 ? notch.width : Notch::defaultWidth;
    const double padding = environment_.hoverLayoutManager.estimatedHoverWidth(
        notchWidth, visibleWidgetIDs(environment_));
    const auto size = NotchAnimator::sizeForState(state, notch, padding);
    const auto& screen = cachedScreenInfo_.screen->frame;
    const Rect frame{
        {screen.midX() - size.width / 2, screen.maxY() - size.height - Notch::topOffset}, size};

    const auto present = panel->frame().size;
    const bool isShrinking = size.width < present.width - shrinkTolerance ||
                             size.height < present.height - shrinkTolerance;
    if (isShrinking)
        shrinkLater(state, frame);
    else {
        isAnimatingCollapse_ = false;
        panel->setFrame(frame);
    }
    const bool isOpen =
        state == NotchExpandedState::expanded || state == NotchExpandedState::fullExpanded;
    if (isOpen && takesTyping(environment_.notchState.activePanel))
        panel->makeKey();
    else if (!isOpen && isShrinking)
        panel->resignKey(); // what is typed next belongs to the application in front
}

void NotchWindowController::shrinkLater(NotchExpandedState state, const Rect& frame) {
    // The views animate inside the old frame first.
    isAnimatingCollapse_ = true;
    const auto speed = platform_.userDefaults().string(Settings::animationSpeed.name);
    const auto delay = NotchAnimator::shrinkDelay(speed.value_or(""));
    // A shrink that another follows still runs out its own delay.
    const auto pending = pendingShrinks_.emplace(pendingShrinks_.end());
    *pending = platform_.runLoop().after(delay, [this, state, frame, pending] {
        if (environment_.notchState.expandedState.get() == state)
            window()->setFrame(frame);
        isAnimatingCollapse_ = false;
        pendingShrinks_.erase(pending);
    });
}

void NotchWindowController::mouseEntered() {
    collapseDebounceTimer_.reset();
    auto& state = environment_.notchState.expandedState;
    if (!isAnimatingCollapse_ && state.get() == NotchExpandedState::collapsed)
        state = NotchExpandedState::hovering;
}

void NotchWindowController::mouseExited() {
    collapseDebounceTimer_.reset();
    if (environment_.notchState.isDragSessionActive)
        return;
    if (environment_.notchState.expandedState.get() != NotchExpandedState::hovering)
        return;
    collapseDebounceTimer_ = platform_.runLoop().after(collapseDebounceInterval(),
                                                       [this] { collapseIfPointerIsAway(); });
}

void NotchWindowController::collapseIfPointerIsAway() {
    const auto* panel = window();
    const auto pointer = platform_.eventMonitors().mouseLocation();
    if (!panel || !panel->frame().inset(-pointerTolerance).contains(pointer))
        environment_.notchState.expandedState = NotchExpandedState::collapsed;
    collapseDebounceTimer_.reset();
}

Seconds NotchWindowController::collapseDebounceInterval() const {
    const auto interval = platform_.userDefaults().number(Settings::collapseDebounceInterval.name);
    if (interval > 0)
        return std::clamp(interval, minimumDebounce, maximumDebounce);
    return Settings::collapseDebounceInterval.defaultValue;
}

void NotchWindowController::observeScreenChanges() {
    screenChangeObserver_ = platform_.screens().observeChanges([this] {
        platform_.runLoop().post(lifetime_.guard([this] {
            detectScreen();
            updateWindowFrame(environment_.notchState.expandedState);
        }));
    });
}

void NotchWindowController::observeSettings() {
    // The screens may have changed while a setting let the panel have none of them.
    settingsObserver_ = platform_.userDefaults().observeChanges([this] {
        platform_.runLoop().post(lifetime_.guard([this] {
            if (cachedScreenInfo_.screen)
                return;
            detectScreen();
            if (cachedScreenInfo_.screen)
                updateWindowFrame(environment_.notchState.expandedState);
        }));
    });
}

void NotchWindowController::detectScreen() {
    cachedScreenInfo_ = NotchDetector::detectNotch(platform_);
}

} // namespace orvelle
