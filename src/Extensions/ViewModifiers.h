#pragma once

#include "Core/Animation/Spring.h"

namespace orvelle {

/// Lets content rise and fade into place when it appears. Every content starts invisible, also
/// without a delay.
struct FadeInModifier {
    Seconds delay = 0;

    bool operator==(const FadeInModifier&) const = default;

    static constexpr Spring spring{0.35, 1.0};

    /// `presence` runs on the spring from 0, before the content has appeared, to 1.
    static constexpr double opacity(double presence) { return presence; }
    /// Points downward.
    static constexpr double offset(double presence) { return 5 * (1 - presence); }
};

} // namespace orvelle
