#include "Platform/Linux/X11Desktop.h"

#include <xcb/xfixes.h>

#include <string>

namespace orvelle {

namespace {

constexpr const char* checkProperty = "_NET_SUPPORTING_WM_CHECK";

template <class T>
const T& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

} // namespace

X11Desktop::X11Desktop()
    : compositorSelection_(X11::atom("_NET_WM_CM_S" + std::to_string(X11::screenNumber()))) {
    auto* connection = X11::connection();
    const auto* fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (fixes && fixes->present) {
        fixesSelectionNotify_ = fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
        xcb_xfixes_select_selection_input(
            connection, X11::root(), compositorSelection_,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    X11::selectEvents(X11::root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = X11::observeEvents([this](const auto& event) { handle(event); });
    findWindowManager();
    findCompositor();
}

void X11Desktop::handle(const xcb_generic_event_t& event) {
    const auto type = X11::typeOf(event);
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (change.window == X11::root() && change.atom == X11::atom(checkProperty))
            findWindowManager();
    } else if (type == XCB_DESTROY_NOTIFY) {
        if (as<xcb_destroy_notify_event_t>(event).window == managerWindow_)
            findWindowManager();
    } else if (type == fixesSelectionNotify_) {
        if (as<xcb_xfixes_selection_notify_event_t>(event).selection == compositorSelection_)
            findCompositor();
    }
}

void X11Desktop::findWindowManager() {
    const auto check = X11::atom(checkProperty);
    const auto named = X11::cardinals(X11::root(), check);
    managerWindow_ = XCB_WINDOW_NONE;
    // A manager that crashed leaves its name on the root; a live one has a window with that name.
    if (!named.empty() && X11::cardinals(named.front(), check) == named) {
        managerWindow_ = named.front();
        X11::selectEvents(managerWindow_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    const bool found = managerWindow_ != XCB_WINDOW_NONE;
    if (found != hasWindowManager.get())
        hasWindowManager = found;
}

void X11Desktop::findCompositor() {
    const auto cookie = xcb_get_selection_owner(X11::connection(), compositorSelection_);
    const X11::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(X11::connection(), cookie, nullptr));
    const bool found = reply && reply->owner != XCB_WINDOW_NONE;
    if (found != isComposited.get())
        isComposited = found;
}

} // namespace orvelle
