#pragma once

#include "Foundation/Color.h"
#include "Views/Components/Stroke.h"

#include <optional>

namespace orvelle {

/// A rounded card with continuous corners.
struct GlassBackground {
    double cornerRadius = 0; ///< points
    double opacity = 0;      ///< kept, without effect: every card has the same fill
    bool showBorder = true;

    bool operator==(const GlassBackground&) const = default;

    static constexpr Color fill = Color::white(1, 0.08);
    std::optional<Stroke> border() const;
};

} // namespace orvelle
