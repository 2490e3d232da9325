#pragma once

#include "Support/AppFixture.h"

#include <string_view>
#include <vector>

namespace orvelle {

/// The program before its launch, with a notch of 200 by 37: the managers hold what a test gives
/// them.
class ViewFixture : public AppFixture {
protected:
    ViewFixture() { app.notchState.notchSize = Size{200, 37}; }

    /// Leaves these widgets in the zone, in this order, and empties the other zones.
    void placeOnly(HoverWidgetPosition zone, const std::vector<std::string_view>& ids) {
        std::vector<HoverWidgetPlacement> placements;
        for (const auto id : ids)
            placements.push_back(
                {std::string(id), zone, static_cast<std::int64_t>(placements.size()), true});
        app.hoverLayoutManager.placements = placements;
    }
};

} // namespace orvelle
