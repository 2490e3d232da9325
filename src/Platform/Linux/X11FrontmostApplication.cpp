#include "Platform/Linux/X11FrontmostApplication.h"

#include "Platform/Linux/DesktopEntry.h"
#include "Platform/Linux/X11Connection.h"

#include <algorithm>
#include <cctype>

namespace orvelle {

namespace {

/// The keyboard may be in a part of a program's window: the walk upwards ends at what has a class.
xcb_window_t windowWithKeyboard() {
    const auto cookie = xcb_get_input_focus(X11::connection());
    const X11::Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(X11::connection(), cookie, nullptr));
    xcb_window_t window = focus ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != X11::root()) {
        if (!X11::texts(window, "WM_CLASS").empty())
            return window;
        const auto question = xcb_query_tree(X11::connection(), window);
        const X11::Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(X11::connection(), question, nullptr));
        window = tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
    }
    return XCB_WINDOW_NONE;
}

xcb_window_t activeWindow() {
    const auto active = X11::cardinals(X11::root(), X11::atom("_NET_ACTIVE_WINDOW"));
    return !active.empty() && active.front() != XCB_WINDOW_NONE ? active.front()
                                                                : windowWithKeyboard();
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
        return static_cast<char>(std::tolower(character));
    });
    return text;
}

/// What the program's desktop entry may be called, the likeliest first, and its own name last.
std::vector<std::string> namesOf(xcb_window_t window) {
    std::vector<std::string> names;
    for (const char* property : {"_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"})
        for (auto& name : X11::texts(window, property))
            names.push_back(std::move(name));
    const auto instanceAndClass = X11::texts(window, "WM_CLASS");
    for (const auto& name : instanceAndClass) {
        names.push_back(lowerCase(name));
        names.push_back(name);
    }
    return names;
}

} // namespace

std::optional<ApplicationIdentity> X11FrontmostApplication::current() {
    const auto window = activeWindow();
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto names = namesOf(window);
    auto found = known_.find(names);
    if (found == known_.end())
        found = known_.emplace(names, desktopEntryNamed(names)).first;
    return found->second;
}

} // namespace orvelle
