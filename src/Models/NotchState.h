#pragma once

#include "Foundation/Geometry.h"
#include "Foundation/Published.h"
#include "Platform/Platform.h"
#include "Platform/Screens.h"

#include <array>
#include <optional>
#include <string_view>

namespace orvelle {

/// How far the notch is open. The order matters: states are compared by it.
enum class NotchExpandedState {
    collapsed,   ///< the panel sits exactly on the notch
    hovering,    ///< the pointer is on the notch: a wider bar with widgets
    expanded,    ///< the full panel with its tab bar
    fullExpanded ///< as `expanded` but taller; every consumer handles it, nothing enters it yet
};

/// The panels in their default tab order. The raw value is the identifier of the panel's feature.
enum class ActivePanel {
    media,
    fileShelf,
    calendar,
    time,
    battery,
    clipboard,
    systemMonitor,
    weather,
    pomodoro,
    todo,
    mirror,
    notes,
    stockTicker,
    settings
};

inline constexpr std::array allActivePanels{
    ActivePanel::media,         ActivePanel::fileShelf, ActivePanel::calendar,
    ActivePanel::time,          ActivePanel::battery,   ActivePanel::clipboard,
    ActivePanel::systemMonitor, ActivePanel::weather,   ActivePanel::pomodoro,
    ActivePanel::todo,          ActivePanel::mirror,    ActivePanel::notes,
    ActivePanel::stockTicker,   ActivePanel::settings};

std::string_view rawValue(ActivePanel panel);
/// The tab's caption.
std::string_view label(ActivePanel panel);
/// The tab's symbol.
std::string_view icon(ActivePanel panel);
/// None for a text that is no panel's raw value.
std::optional<ActivePanel> activePanelFrom(std::string_view rawValue);
/// Whether the panel takes typed text, and so needs the keyboard while it is shown.
bool takesTyping(ActivePanel panel);

enum class HUDType { volume, brightness, keyboardBacklight };

/// What the notch is doing at this moment. One instance, shared by window, gestures and views; it
/// has no transition methods, its few writers assign the fields.
class NotchState {
public:
    explicit NotchState(Platform& platform = Platform::shared());

    Published<NotchExpandedState> expandedState{NotchExpandedState::collapsed};
    Published<ActivePanel> activePanel{ActivePanel::media};
    Published<bool> isHUDVisible{false};
    Published<std::optional<HUDType>> hudType;
    Published<double> hudValue{0}; ///< 0 to 1
    Published<Size> notchSize;
    Published<Point> notchPosition; ///< the notch's lower left corner
    Published<bool> hasNotch{true};
    Published<std::optional<Screen>> currentScreen;
    Published<bool> isDragSessionActive{false};
    /// Set just before `activePanel` changes: where the next panel slides in from.
    Published<Edge> panelTransitionEdge{Edge::trailing};
    /// Every assignment is stored in the setting of this name; launch brings the setting in.
    Published<bool> clickWidgetNavigatesToPanel;

    bool isExpanded() const;
};

} // namespace orvelle
