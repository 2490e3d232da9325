#include "Platform/Linux/X11ClientWindows.h"

#include "Platform/Linux/X11Connection.h"

#include <QString>

#include <algorithm>

namespace orvelle::X11 {

namespace {

/// Of the client message _NET_ACTIVE_WINDOW: the user asked, and so no window manager may refuse.
constexpr std::uint32_t fromUser = 2;

/// From the bottom to the top of the stack.
std::vector<std::uint32_t> clientWindows() {
    auto stacked = cardinals(root(), atom("_NET_CLIENT_LIST_STACKING"));
    return stacked.empty() ? cardinals(root(), atom("_NET_CLIENT_LIST")) : stacked;
}

bool belongsTo(xcb_window_t window, std::uint32_t processId) {
    const auto told = cardinals(window, atom("_NET_WM_PID"));
    return processId != 0 && !told.empty() && told.front() == processId;
}

bool bears(xcb_window_t window, const std::vector<std::string>& names) {
    for (const char* property : {"WM_CLASS", "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"})
        for (const auto& text : texts(window, property))
            for (const auto& name : names)
                if (QString::fromStdString(text).compare(QString::fromStdString(name),
                                                         Qt::CaseInsensitive) == 0)
                    return true;
    return false;
}

void activate(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromUser;
    xcb_send_event(connection(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection());
}

} // namespace

xcb_window_t frameOf(xcb_window_t window) {
    while (true) {
        const auto cookie = xcb_query_tree(connection(), window);
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection(), cookie, nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE || tree->parent == tree->root)
            return window;
        window = tree->parent;
    }
}

bool activateWindowOf(const Program& program) {
    const auto windows = clientWindows();
    auto found = std::find_if(windows.rbegin(), windows.rend(), [&](xcb_window_t window) {
        return belongsTo(window, program.processId);
    });
    if (found == windows.rend())
        found = std::find_if(windows.rbegin(), windows.rend(),
                             [&](xcb_window_t window) { return bears(window, program.names); });
    if (found == windows.rend())
        return false;
    activate(*found);
    return true;
}

} // namespace orvelle::X11
