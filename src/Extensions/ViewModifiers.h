#pragma once

#include "Core/Animation/Spring.h"

namespace orvelle {

/// Lets content fade in from a little below when it appears. Every content starts invisible, also
/// without a delay.
struct FadeInModifier {
    Seconds delay = 0;

    bool operator==(const FadeInModifier&) const = default;

    static constexpr Spring spring{0.35, 1.0};

    static double opacity(bool isVisible);
    /// Points downward.
    static double offset(bool isVisible);
};

} // namespace orvelle
