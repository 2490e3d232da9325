#include "Platform/Linux/SessionBusAddress.h"

#include "Platform/Linux/Descriptor.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace orvelle {

namespace {

/// The value of one of the keys of an address such as "unix:path=/run/bus,guid=0123"; only the
/// first of several addresses counts. Empty when there is none or it has escapes.
std::string valueOf(std::string_view key, std::string_view address) {
    constexpr std::string_view scheme = "unix:";
    address = address.substr(0, address.find(';'));
    if (!address.starts_with(scheme))
        return {};
    address.remove_prefix(scheme.size());
    while (!address.empty()) {
        const auto pair = address.substr(0, address.find(','));
        if (pair.starts_with(key) && pair.substr(key.size()).starts_with('='))
            return std::string(pair.find('%') == pair.npos ? pair.substr(key.size() + 1) : "");
        address.remove_prefix(std::min(pair.size() + 1, address.size()));
    }
    return {};
}

} // namespace

bool answersOnBus(const std::string& address, std::chrono::milliseconds patience) {
    const auto path = valueOf("path", address);
    const auto abstract = valueOf("abstract", address);
    const auto name = path.empty() && !abstract.empty() ? '\0' + abstract : path;
    sockaddr_un peer{};
    peer.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof peer.sun_path)
        return true;
    std::memcpy(peer.sun_path, name.data(), name.size());
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&peer), size) != 0)
        return errno != EAGAIN; // nobody takes the calls that wait; other errors come at once again
    constexpr std::string_view question("\0AUTH\r\n", 7); // which ways there are to sign in
    if (send(socket.get(), question.data(), question.size(), MSG_NOSIGNAL) < 0)
        return true;
    pollfd answer{socket.get(), POLLIN, 0};
    return poll(&answer, 1, static_cast<int>(patience.count())) != 0;
}

std::string sessionBusAddress() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); address && *address)
        return address;
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    return runtime && *runtime ? "unix:path=" + std::string(runtime) + "/bus" : "";
}

} // namespace orvelle
