#pragma once

namespace orvelle {

/// A wheel that turns while something is under way. Lengths are points.
struct ProgressSpinner {
    double scale = 1;
    double frame = diameter; ///< the square that it takes up in its view

    bool operator==(const ProgressSpinner&) const = default;

    static constexpr double diameter = 32; ///< at scale 1
};

} // namespace orvelle
