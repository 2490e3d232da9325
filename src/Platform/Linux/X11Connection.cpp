#include "Platform/Linux/X11Connection.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace orvelle::X11 {

namespace {

constexpr std::uint32_t longestProperty = 4096; ///< in items

class EventFilter : public QAbstractNativeEventFilter {
public:
    explicit EventFilter(std::function<void(const xcb_generic_event_t&)> handler)
        : handler_(std::move(handler)) {}

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override {
        if (type == "xcb_generic_event_t")
            handler_(*static_cast<const xcb_generic_event_t*>(message));
        return false;
    }

private:
    std::function<void(const xcb_generic_event_t&)> handler_;
};

} // namespace

xcb_connection_t* connection() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

int screenNumber() {
    static const int number = [] {
        char* host = nullptr;
        int display = 0;
        int screen = 0;
        xcb_parse_display(nullptr, &host, &display, &screen);
        std::free(host);
        return screen;
    }();
    return number;
}

xcb_window_t root() {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection()));
    for (int skip = screenNumber(); skip > 0 && screens.rem > 1; --skip)
        xcb_screen_next(&screens);
    return screens.data->root;
}

xcb_atom_t atom(const std::string& name) {
    static std::unordered_map<std::string, xcb_atom_t> known;
    if (const auto found = known.find(name); found != known.end())
        return found->second;
    const auto cookie =
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    known.emplace(name, reply->atom);
    return reply->atom;
}

std::vector<std::uint32_t> cardinals(xcb_window_t window, xcb_atom_t property) {
    return cardinals({{window, property}}).front();
}

std::vector<std::vector<std::uint32_t>> cardinals(const std::vector<PropertyOf>& asked) {
    std::vector<xcb_get_property_cookie_t> cookies;
    for (const auto& [window, property] : asked)
        cookies.push_back(
            xcb_get_property(connection(), 0, window, property, XCB_ATOM_ANY, 0, longestProperty));
    std::vector<std::vector<std::uint32_t>> answers;
    for (const auto cookie : cookies) {
        auto& answer = answers.emplace_back();
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection(), cookie, nullptr));
        if (!reply || reply->format != 32)
            continue;
        const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        answer.assign(items, items + reply->value_len);
    }
    return answers;
}

std::vector<std::string> texts(xcb_window_t window, const std::string& property) {
    constexpr std::uint32_t longest = 256; ///< in units of four bytes
    const auto cookie = xcb_get_property(connection(), 0, window, atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection(), cookie, nullptr));
    std::vector<std::string> texts;
    if (!reply || reply->format != 8)
        return texts;
    std::string_view rest(static_cast<const char*>(xcb_get_property_value(reply.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\0'), rest.size());
        if (end > 0)
            texts.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return texts;
}

void selectEvents(xcb_window_t window, std::uint32_t mask, bool wanted) {
    const auto cookie = xcb_get_window_attributes(connection(), window);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection(), cookie, nullptr));
    if (!attributes)
        return;
    const std::uint32_t selected =
        wanted ? attributes->your_event_mask | mask : attributes->your_event_mask & ~mask;
    xcb_change_window_attributes(connection(), window, XCB_CW_EVENT_MASK, &selected);
    xcb_flush(connection());
}

Subscription observeEvents(std::function<void(const xcb_generic_event_t&)> handler) {
    auto filter = std::make_shared<EventFilter>(std::move(handler));
    QCoreApplication::instance()->installNativeEventFilter(filter.get());
    return Subscription([filter] {
        if (auto* application = QCoreApplication::instance())
            application->removeNativeEventFilter(filter.get());
    });
}

ServerGrab::ServerGrab() {
    xcb_grab_server(connection());
}

ServerGrab::~ServerGrab() {
    xcb_ungrab_server(connection());
    xcb_flush(connection());
}

} // namespace orvelle::X11
