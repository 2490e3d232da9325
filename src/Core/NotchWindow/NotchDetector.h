#pragma once

#include "Foundation/Geometry.h"
#include "Platform/Platform.h"
#include "Platform/Screens.h"

#include <optional>

namespace orvelle {

/// Where the panel lives.
struct NotchScreenInfo {
    bool hasNotch = false; ///< a physical notch was found
    Size notchSize;
    Point notchPosition;          ///< the lower left corner, in screen coordinates
    std::optional<Screen> screen; ///< none means that nothing may be shown
    bool operator==(const NotchScreenInfo&) const = default;
};

namespace NotchDetector {

/// Looks afresh at every call: a physical notch if a screen has one, else a virtual one under the
/// main screen's top edge, unless the user asked for real notches only.
NotchScreenInfo detectNotch(Platform& platform = Platform::shared());

} // namespace NotchDetector

} // namespace orvelle
