#include "Platform/Linux/X11RawPresses.h"

#include <QGuiApplication>
#include <QWindow>
#include <xcb/xinput.h>

#include <algorithm>

namespace orvelle {

namespace {

/// X counts the steps of wheels as presses of these buttons.
constexpr std::uint32_t firstWheelButton = 4;
constexpr std::uint32_t lastWheelButton = 7;

bool isOwn(xcb_window_t id) {
    const auto windows = QGuiApplication::allWindows();
    // A window without a platform window would be given one by asking for its id.
    return std::any_of(windows.begin(), windows.end(), [id](const QWindow* window) {
        return window->handle() && window->winId() == id;
    });
}

/// Walks from the root to the innermost window under the pointer.
bool pointerIsOverOwnWindow() {
    xcb_window_t window = X11::root();
    while (window != XCB_WINDOW_NONE) {
        const auto cookie = xcb_query_pointer(X11::connection(), window);
        const X11::Reply<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(X11::connection(), cookie, nullptr));
        window = reply ? reply->child : xcb_window_t{XCB_WINDOW_NONE};
        if (window != XCB_WINDOW_NONE && isOwn(window))
            return true;
    }
    return false;
}

} // namespace

X11RawPresses::X11RawPresses() {
    const auto* input = xcb_get_extension_data(X11::connection(), &xcb_input_id);
    if (!input || !input->present)
        return;
    inputOpcode_ = input->major_opcode;
    struct {
        xcb_input_event_mask_t header;
        std::uint32_t events;
    } const mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
    xcb_input_xi_select_events(X11::connection(), X11::root(), 1, &mask.header);
    xcb_flush(X11::connection());
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
}

void X11RawPresses::handle(const xcb_generic_event_t& event) {
    if (X11::typeOf(event) != XCB_GE_GENERIC)
        return;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != inputOpcode_ || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return;
    const auto button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
    if (button < firstWheelButton || button > lastWheelButton)
        presses_({button, pointerIsOverOwnWindow()});
}

} // namespace orvelle
