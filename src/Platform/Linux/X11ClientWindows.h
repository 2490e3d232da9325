#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace orvelle::X11 {

/// A program, by what its windows tell of it.
struct Program {
    std::uint32_t processId = 0;    ///< 0 while unknown
    std::vector<std::string> names; ///< of its desktop entry or its windows' class, in any case

    bool operator==(const Program&) const = default;
};

/// The child of the root that the window stands in, which is the window manager's frame, or itself.
xcb_window_t frameOf(xcb_window_t window);

/// Asks the window manager to bring the program's topmost window to the front, a minimized one too;
/// false when the program has none.
bool activateWindowOf(const Program& program);

} // namespace orvelle::X11
