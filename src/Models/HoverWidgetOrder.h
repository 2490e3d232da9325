#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

enum class HoverWidgetPosition {
    leftWing,  ///< left of the notch, in the bar's top line
    rightWing, ///< right of it
    bottomRow  ///< the row below
};

inline constexpr std::array allHoverWidgetPositions{
    HoverWidgetPosition::leftWing, HoverWidgetPosition::rightWing, HoverWidgetPosition::bottomRow};

std::string_view rawValue(HoverWidgetPosition position);
std::optional<HoverWidgetPosition> hoverWidgetPositionFrom(std::string_view rawValue);

/// Where one widget stands. Zone and sort order place it; its place in a list means nothing.
struct HoverWidgetPlacement {
    std::string id;
    HoverWidgetPosition zone = HoverWidgetPosition::bottomRow;
    std::int64_t sortOrder = 0; ///< ascending inside the zone
    bool isVisible = true;
    bool operator==(const HoverWidgetPlacement&) const = default;
};

} // namespace orvelle
