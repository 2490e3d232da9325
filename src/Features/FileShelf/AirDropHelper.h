#pragma once

#include "Foundation/Geometry.h"
#include "Platform/Platform.h"

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// Opens the desktop's share picker.
class AirDropHelper {
public:
    static constexpr double anchorSide = 2; ///< points

    /// `view` is the bounds of the view that asks, in screen coordinates; without one the picker
    /// stands in the middle of the window that the user works in. Does nothing without files, or
    /// without any place to stand.
    static void share(const std::vector<std::string>& urls, const std::optional<Rect>& view = {},
                      Platform& platform = Platform::shared());
};

} // namespace orvelle
