#pragma once

#include "Foundation/Color.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvelle {

/// The state of the machine's own battery, read every 30 s.
class BatteryManager : public FeatureModule {
public:
    static constexpr Seconds updateInterval = 30.0;

    explicit BatteryManager(Platform& platform = Platform::shared());

    Published<std::int64_t> batteryLevel{100}; ///< percent as reported
    Published<bool> isCharging{false};
    Published<bool> isPluggedIn{false};
    Published<std::int64_t> timeRemaining{0}; ///< minutes, to empty or to full; 0 is unknown
    Published<std::int64_t> cycleCount{0};    ///< kept at this value, never read from the system
    Published<std::int64_t> health{100};      ///< likewise
    Published<bool> hasBattery{true};
    Timer updateTimer;

    std::string_view statusString() const;
    std::string_view batteryIcon() const;
    Color batteryColor() const;
    std::string timeRemainingString() const;

    void start() override;
    void updateBatteryInfo();

private:
    Platform& platform_;
};

} // namespace orvelle
