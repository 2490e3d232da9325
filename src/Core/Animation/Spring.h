#pragma once

#include "Foundation/Date.h"

namespace orvelle {

/// A damped oscillator that comes to rest at its target, described by how long it takes and how
/// much it swings. The curve is exact, so that a change of target on the way can carry the speed
/// on.
struct Spring {
    Seconds response = 0.3;     ///< the period without damping, above 0
    double dampingFraction = 1; ///< 0 swings forever, 1 just does not overshoot, above 1 creeps

    bool operator==(const Spring&) const = default;

    struct Motion {
        double displacement; ///< from the target
        double velocity;     ///< per second
    };
    /// Where a motion that starts as `initial` stands after `time` seconds (0 or above).
    Motion at(Seconds time, Motion initial) const;
};

} // namespace orvelle
