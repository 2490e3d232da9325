#pragma once

#include "Core/Animation/Spring.h"
#include "Foundation/Geometry.h"
#include "Models/NotchState.h"

#include <optional>
#include <string_view>

/// The program's motion: which spring moves what, and to which size.
namespace orvelle::NotchAnimator {

/// Every change of the panel.
inline constexpr Spring panelSwitch{0.3, 0.92};

/// The growing and shrinking of the shape, by the setting `animationSpeed`; unknown words are
/// "normal".
Spring stateSpring(std::string_view animationSpeed);
/// How long the window keeps its old size while the views shrink, by the same setting.
Seconds shrinkDelay(std::string_view animationSpeed);

/// Width by height of the notch in a state. Open sizes do not depend on the notch; the collapsed
/// size is exactly the notch's, without flares.
Size sizeForState(NotchExpandedState state, std::optional<Size> actualNotchSize = {},
                  std::optional<double> hoverPadding = {});

} // namespace orvelle::NotchAnimator
