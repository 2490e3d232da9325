#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvelle {

/// One line of a context menu.
struct MenuEntry {
    std::string title;
    std::function<void()> perform;
    bool isChecked = false;      ///< of several entries the one that is in force
    bool isDestructive = false;  ///< takes something away for good, and is coloured so
    bool followsDivider = false; ///< a line stands above it
};

} // namespace orvelle
