#include "Core/Animation/NotchAnimator.h"

#include "App/Constants.h"

namespace orvelle::NotchAnimator {

Spring stateSpring(std::string_view animationSpeed) {
    if (animationSpeed == "slow")
        return {0.4, 1.0};
    if (animationSpeed == "fast")
        return {0.15, 1.0};
    return {0.28, 1.0};
}

Seconds shrinkDelay(std::string_view animationSpeed) {
    if (animationSpeed == "slow")
        return 0.45;
    if (animationSpeed == "fast")
        return 0.18;
    return 0.32;
}

Size sizeForState(NotchExpandedState state, std::optional<Size> actualNotchSize,
                  std::optional<double> hoverPadding) {
    namespace Notch = AppConstants::Notch;
    const auto notch = actualNotchSize.value_or(Size{Notch::defaultWidth, Notch::defaultHeight});
    const auto padding = hoverPadding.value_or(Notch::hoverPadding);
    const auto openWidth = Notch::expandedWidth + 2 * Notch::topFlareInset;
    switch (state) {
    case NotchExpandedState::collapsed:
        break;
    case NotchExpandedState::hovering:
        return {notch.width + 2 * padding + 2 * Notch::topFlareInset,
                notch.height + Notch::hoverExtraHeight};
    case NotchExpandedState::expanded:
        return {openWidth, Notch::expandedHeight};
    case NotchExpandedState::fullExpanded:
        return {openWidth, Notch::fullExpandedHeight};
    }
    return notch;
}

} // namespace orvelle::NotchAnimator
