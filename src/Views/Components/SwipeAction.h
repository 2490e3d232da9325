#pragma once

#include "Foundation/Color.h"
#include "Views/Components/TextStyle.h"

#include <string_view>

namespace orvelle {

/// What a row of a list does when it is pulled to one side. Lengths are points.
struct SwipeAction {
    static constexpr double width = 74;       ///< of the button that the pull uncovers
    static constexpr double fullSwipe = 0.55; ///< of the row's width; beyond it the pull acts
    static constexpr double labelSize = 10;
    static constexpr double symbolSize = 12;

    std::string_view label;
    std::string_view symbol;
    Color tint;
    bool operator==(const SwipeAction&) const = default;
};

} // namespace orvelle
