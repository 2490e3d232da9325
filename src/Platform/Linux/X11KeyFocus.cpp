#include "Platform/Linux/X11KeyFocus.h"

#include "Platform/Linux/X11Connection.h"

#include <utility>

namespace orvelle {

namespace {

xcb_window_t focusedWindow() {
    const auto cookie = xcb_get_input_focus(X11::connection());
    const X11::Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(X11::connection(), cookie, nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool isViewable(xcb_window_t window) {
    const auto cookie = xcb_get_window_attributes(X11::connection(), window);
    const X11::Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(X11::connection(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

void focus(xcb_window_t window) {
    xcb_set_input_focus(X11::connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
}

} // namespace

void X11KeyFocus::take() {
    const auto focused = focusedWindow();
    if (focused == window_.winId())
        return;
    before_ = focused;
    // Not by Qt, which dates its request with the last event that it saw: the server ignores one
    // that is older than what a window manager has done meanwhile.
    focus(static_cast<xcb_window_t>(window_.winId()));
    xcb_flush(X11::connection());
}

void X11KeyFocus::giveBack() {
    const auto before = std::exchange(before_, XCB_WINDOW_NONE);
    // Between the look and the step nobody else may move the focus.
    const X11::ServerGrab grab;
    if (focusedWindow() != window_.winId())
        return;
    const xcb_window_t target =
        isViewable(before) ? before : xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT};
    focus(target);
}

} // namespace orvelle
