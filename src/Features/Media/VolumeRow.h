#pragma once

#include "Platform/Platform.h"
#include "Views/Components/AnimatedSlider.h"
#include "Views/Components/TextStyle.h"

namespace orvelle {

class HUDManager;

/// The output's volume between two symbols, to be dragged. What is dragged shows once the system
/// has told of it.
class VolumeRow {
public:
    VolumeRow(const HUDManager& manager, Platform& platform)
        : manager_(manager), platform_(platform) {}

    static constexpr double symbolWidth = 14; ///< points
    static constexpr double spacing = 8;      ///< points
    static constexpr double disabledOpacity = 0.4;

    StyledSymbol quietSymbol() const;
    StyledSymbol loudSymbol() const;
    /// Whether there is anything whose volume could be set.
    bool hasDevice() const;
    AnimatedSlider slider() const;
    void setVolume(double volume) const;

private:
    const HUDManager& manager_;
    Platform& platform_;
};

} // namespace orvelle
