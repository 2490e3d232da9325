#pragma once

#include "Foundation/Published.h"
#include "Platform/Linux/X11Connection.h"

namespace orvelle {

/// Who looks after the display: a window manager and a compositor, as they come and go.
class X11Desktop {
public:
    X11Desktop();

    Published<bool> hasWindowManager; ///< one that keeps the extended window manager hints
    Published<bool> isComposited;     ///< translucent windows are blended

private:
    void handle(const xcb_generic_event_t& event);
    void findWindowManager();
    void findCompositor();

    xcb_atom_t compositorSelection_;
    int fixesSelectionNotify_ = 0; ///< the event's type; 0 when the server does not tell
    xcb_window_t managerWindow_ = XCB_WINDOW_NONE;
    Subscription events_;
};

} // namespace orvelle
