#pragma once

#include "Foundation/Geometry.h"
#include "Foundation/Subscription.h"

#include <functional>

namespace orvelle {

class PanelWindow;

/// The inertia that follows a stroke after the fingers have left. Platforms that mark none always
/// report `none`.
enum class MomentumPhase { none, began, changed, ended };

struct ScrollEvent {
    /// Points; a stroke to the right is positive.
    double scrollingDeltaX = 0;
    /// Points; a downward stroke of wheel or fingers is positive, whatever the system's own sign.
    double scrollingDeltaY = 0;
    MomentumPhase momentumPhase = MomentumPhase::none;
    /// The panel under the pointer; none over any other window of this program.
    const PanelWindow* panel = nullptr;
    /// From the lower left corner of that window.
    Point locationInWindow;
};

/// Input events as they pass by; monitors cannot hold them back.
class EventMonitors {
public:
    virtual ~EventMonitors() = default;

    /// Scrolling over this program's windows.
    [[nodiscard]] virtual Subscription
    addLocalScrollMonitor(std::function<void(const ScrollEvent&)> handler) = 0;
    /// Presses of the left button in this program's windows.
    [[nodiscard]] virtual Subscription addLocalMouseDownMonitor(std::function<void()> handler) = 0;
    /// Presses of the left button in other programs' windows and on the desktop.
    [[nodiscard]] virtual Subscription addGlobalMouseDownMonitor(std::function<void()> handler) = 0;

    /// The pointer's position in screen coordinates.
    virtual Point mouseLocation() const = 0;
};

} // namespace orvelle
