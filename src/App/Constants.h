#pragma once

#include "Foundation/Color.h"

#include <string_view>

/// Numbers fixed at build time. Lengths are points.
namespace orvelle::AppConstants {

inline constexpr std::string_view version = "1.0.6";

namespace Notch {
inline constexpr double defaultWidth = 180;  ///< a virtual notch's width, and the fallback width
inline constexpr double defaultHeight = 32;  ///< the fallback height
inline constexpr double cornerRadius = 12;   ///< of the two lower corners
inline constexpr double expandedWidth = 550; ///< of the open panel's body, without its flares
inline constexpr double expandedHeight = 220;
inline constexpr double fullExpandedHeight = 390;
inline constexpr double hoverPadding = 130;    ///< extra width on each side of the hover bar
inline constexpr double hoverExtraHeight = 36; ///< the room of the hover bar's bottom row
inline constexpr double topFlareInset = 8;     ///< width of the concave flare, on each side
inline constexpr double topOffset = 0;         ///< gap between the screen's top and the panel's
} // namespace Notch

namespace FileShelf {
inline constexpr double iconSize = 40;
}

namespace HUD {
inline constexpr double sliderWidth = 200;
inline constexpr double sliderHeight = 6;
} // namespace HUD

namespace Theme {
inline constexpr Color secondaryTextColor = Color::white(0.6);
}

} // namespace orvelle::AppConstants
