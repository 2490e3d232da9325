#pragma once

#include <QRect>
#include <QSize>
#include <xcb/xcb.h>

#include <vector>

namespace orvelle {

/// What one window reserves at the edges of the display, in pixels from the display's top left, as
/// the hint _NET_WM_STRUT_PARTIAL tells it. Depths count from the display's outer edges; a range
/// includes its end.
struct X11Strut {
    struct Range {
        int start = 0;
        int end = 0;
    };
    int left = 0, right = 0, top = 0, bottom = 0;
    Range leftY{}, rightY{}, topX{}, bottomX{};
};

/// What is reserved on the display at one moment.
struct X11Reservations {
    std::vector<X11Strut> struts;           ///< of windows that a window manager looks after
    std::vector<xcb_window_t> strutWindows; ///< whose they are
    QRect workArea; ///< of the present desktop on the whole display; empty when nobody tells

    /// Asks the display server: two batches of questions, however many windows there are.
    static X11Reservations read();
};

/// A screen without what struts reserve on it. A strut that would leave nothing is ignored.
QRect withoutStruts(QRect screen, QSize display, const std::vector<X11Strut>& struts);

} // namespace orvelle
