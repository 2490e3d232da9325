#pragma once

#include "Foundation/Subscription.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The program's connection to the X server, shared with Qt. Main thread only; needs a
/// QGuiApplication on the platform "xcb".
namespace orvelle::X11 {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// Null when the request failed.
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

xcb_connection_t* connection();
/// The number of the display's default screen, and its root window.
int screenNumber();
xcb_window_t root();

xcb_atom_t atom(const std::string& name);

/// A property of 32-bit items, empty when it is unset, of another type or on no window.
std::vector<std::uint32_t> cardinals(xcb_window_t window, xcb_atom_t property);

struct PropertyOf {
    xcb_window_t window;
    xcb_atom_t property;
};
/// The same of several, in their order, for one wait.
std::vector<std::vector<std::uint32_t>> cardinals(const std::vector<PropertyOf>& asked);

/// The parts of a text property, which NULs divide; none when it is unset or on no window.
std::vector<std::string> texts(xcb_window_t window, const std::string& property);

/// Adds to the events that this connection asked of a window, or takes them away again.
void selectEvents(xcb_window_t window, std::uint32_t mask, bool wanted = true);

/// Calls `handler` with every event of the connection, before Qt acts on it.
[[nodiscard]] Subscription observeEvents(std::function<void(const xcb_generic_event_t&)> handler);

/// An event's type, without the mark of events that another client sent.
inline std::uint8_t typeOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7f;
}

/// Nobody else reaches the server while this lives, so that what is done shows as one step.
class ServerGrab {
public:
    ServerGrab();
    ~ServerGrab();
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;
};

} // namespace orvelle::X11
