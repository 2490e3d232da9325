#pragma once

#include "Platform/Platform.h"
#include "Views/Components/AnimatedSlider.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <vector>

namespace orvelle {

class BatteryManager;

/// The battery's panel, or what stands in its place on a machine without one: a row of the icon,
/// the title over the subtitle and the level, and the estimate.
class BatteryPanelView {
public:
    struct Estimate {
        StyledText time;
        StyledText caption;
        bool operator==(const Estimate&) const = default;
    };

    explicit BatteryPanelView(const BatteryManager& manager,
                              Platform& platform = Platform::shared());

    static constexpr double padding = 12; ///< points

    StyledSymbol icon() const;
    StyledText title() const;
    StyledText subtitle() const;
    /// The level in percent, not to be moved; none without a battery.
    std::optional<AnimatedSlider> level() const;
    /// None while the time is unknown.
    std::optional<Estimate> estimate() const;

    std::vector<MenuEntry> contextMenu() const;

private:
    const BatteryManager& manager_;
    Platform& platform_;
};

} // namespace orvelle
