#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvelle {

/// One line of a context menu.
struct MenuEntry {
    std::string title;
    std::function<void()> perform;
    std::string_view symbol = {}; ///< beside the title, such as a check mark; empty for none
};

} // namespace orvelle
