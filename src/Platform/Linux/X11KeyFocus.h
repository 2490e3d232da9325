#pragma once

#include <QWindow>
#include <xcb/xcb.h>

namespace orvelle {

/// Lends the keyboard focus to one window that no window manager manages, and gives it back.
class X11KeyFocus {
public:
    explicit X11KeyFocus(QWindow& window) : window_(window) {}

    void take();
    /// To where it was before, if that still stands; nothing when somebody else took it meanwhile.
    void giveBack();

private:
    QWindow& window_;
    xcb_window_t before_ = XCB_WINDOW_NONE;
};

} // namespace orvelle
