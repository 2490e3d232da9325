#pragma once

#include "Foundation/Geometry.h"

#include <array>
#include <string_view>

namespace orvelle {

/// The content of the settings window: five pages behind tabs.
class SettingsView {
public:
    struct Tab {
        std::string_view title;
        std::string_view symbol;
        std::string_view view; ///< the page's name
    };

    static constexpr double width = 500; ///< points, as all lengths here
    static constexpr double height = 500;
    static const std::array<Tab, 5>& tabs();
};

} // namespace orvelle
