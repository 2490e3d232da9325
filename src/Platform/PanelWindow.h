#pragma once

#include "Foundation/Geometry.h"
#include "Platform/DraggingDestination.h"

#include <functional>
#include <memory>
#include <string>

namespace orvelle {

/// What a panel asks of the window system. Fields have the meaning that a desktop's window manager
/// gives them; a window system that lacks one comes as near as it can.
struct PanelAttributes {
    std::string title;
    bool nonactivating = true;
    bool borderless = true;
    bool aboveMenuBar = true;
    bool onAllWorkspaces = true;
    bool stationary = true;
    bool overFullScreen = true;
    bool opaque = false;
    bool shadow = false;
    bool ignoresMouseEvents = false;
    bool movable = false;
    bool movableByBackground = false;
    bool canBecomeKey = true;
    bool canBecomeMain = false;

    bool operator==(const PanelAttributes&) const = default;
};

/// One window at the screen's top edge. Frames are in screen coordinates. Main thread only.
class PanelWindow {
public:
    /// The pointer came over the window or left it. A change of the frame under a resting pointer
    /// gives neither.
    struct PointerEvents {
        std::function<void()> entered;
        std::function<void()> exited;
    };

    virtual ~PanelWindow() = default;

    virtual Rect frame() const = 0;
    /// Moves, resizes and redraws in one step, without animation.
    virtual void setFrame(const Rect& frame) = 0;

    virtual bool isVisible() const = 0;
    /// Above every other window, without taking the keyboard; also brings the window back when
    /// another program has taken it away.
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;

    /// Takes the keyboard focus without activating the application.
    virtual void makeKey() = 0;
    /// Gives the focus back to where it was; nothing when the window does not hold it.
    virtual void resignKey() = 0;

    virtual void setPointerEvents(PointerEvents events) = 0;

    /// Who takes what is dragged over the window; null for nobody. It outlives the window or is
    /// taken back before. What the program itself drags is not offered.
    virtual void setDraggingDestination(DraggingDestination* destination) = 0;
};

class PanelWindows {
public:
    virtual ~PanelWindows() = default;
    /// A window that is not yet shown.
    virtual std::unique_ptr<PanelWindow> make(const PanelAttributes& attributes,
                                              const Rect& frame) = 0;
};

} // namespace orvelle
