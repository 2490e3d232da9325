#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace orvelle {

/// What can change what a folder holds. A file may be made complete, by a link: its making counts
/// as well as its closing.
inline constexpr std::uint32_t folderEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE |
                                              IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF |
                                              IN_MOVE_SELF | IN_ONLYDIR;

/// Reads what waits at the non-blocking descriptor: calls `handle(const inotify_event&, name)` for
/// each event, with the name of the file within the watched folder, or an empty one.
template <class Handle>
void readInotifyEvents(int descriptor, Handle handle) {
    alignas(inotify_event) char buffer[4096];
    for (;;) {
        const auto count = read(descriptor, buffer, sizeof buffer);
        if (count <= 0)
            return;
        for (const char* next = buffer; next < buffer + count;) {
            inotify_event event{};
            std::memcpy(&event, next, sizeof event);
            handle(event, std::string_view(event.len > 0 ? next + sizeof event : ""));
            next += sizeof event + event.len;
        }
    }
}

} // namespace orvelle
