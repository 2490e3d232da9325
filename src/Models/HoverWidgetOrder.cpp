#include "Models/HoverWidgetOrder.h"

namespace orvelle {

std::string_view rawValue(HoverWidgetPosition position) {
    switch (position) {
    case HoverWidgetPosition::leftWing:
        return "leftWing";
    case HoverWidgetPosition::rightWing:
        return "rightWing";
    case HoverWidgetPosition::bottomRow:
        break;
    }
    return "bottomRow";
}

std::optional<HoverWidgetPosition> hoverWidgetPositionFrom(std::string_view text) {
    for (const auto position : allHoverWidgetPositions)
        if (rawValue(position) == text)
            return position;
    return std::nullopt;
}

} // namespace orvelle
