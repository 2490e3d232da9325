#include "Features/Battery/BatteryManager.h"

#include "Foundation/Format.h"
#include "Foundation/KeyedValue.h"
#include "Models/Symbol.h"
#include "Platform/PowerSources.h"

#include <cinttypes>
#include <optional>

namespace orvelle {

namespace {

/// 0 while neither time is known.
std::int64_t minutesRemaining(const PowerSourceDescription& source) {
    for (const auto* key : {"Time to Empty", "Time to Full Charge"})
        if (const auto minutes = keyedValue<std::int64_t>(source, key); minutes && *minutes > 0)
            return *minutes;
    return 0;
}

} // namespace

BatteryManager::BatteryManager(Platform& platform)
    : FeatureModule("battery", "Battery", std::string("battery.100"_symbol)), platform_(platform) {}

void BatteryManager::start() {
    if (!isEnabled)
        return;
    updateBatteryInfo();
    updateTimer = platform_.runLoop().every(updateInterval, [this] { updateBatteryInfo(); });
}

void BatteryManager::updateBatteryInfo() {
    const auto sources = platform_.powerSources().snapshot();
    const auto source = sources && !sources->empty() ? sources->front() : std::nullopt;
    hasBattery = source && keyedValue<std::string>(*source, "Type") == "InternalBattery";
    if (!hasBattery) {
        isPluggedIn = true;
        return;
    }
    if (const auto percent = keyedValue<std::int64_t>(*source, "Current Capacity"))
        batteryLevel = *percent;
    if (const auto charging = keyedValue<bool>(*source, "Is Charging"))
        isCharging = *charging;
    if (const auto state = keyedValue<std::string>(*source, "Power Source State"))
        isPluggedIn = *state == "AC Power";
    timeRemaining = minutesRemaining(*source);
}

std::string_view BatteryManager::statusString() const {
    if (!hasBattery)
        return "AC Power";
    if (isCharging)
        return "Charging";
    return isPluggedIn ? "Plugged In" : "On Battery";
}

std::string_view BatteryManager::batteryIcon() const {
    if (!hasBattery)
        return "powerplug.fill"_symbol;
    if (isCharging)
        return "battery.100.bolt"_symbol;
    if (batteryLevel < 10)
        return "battery.0"_symbol;
    if (batteryLevel < 25)
        return "battery.25"_symbol;
    if (batteryLevel < 50)
        return "battery.50"_symbol;
    return batteryLevel < 75 ? "battery.75"_symbol : "battery.100"_symbol;
}

Color BatteryManager::batteryColor() const {
    if (!hasBattery || isCharging)
        return colors::green;
    if (batteryLevel < 20)
        return colors::red;
    return batteryLevel < 40 ? colors::yellow : colors::green;
}

std::string BatteryManager::timeRemainingString() const {
    const std::int64_t minutes = timeRemaining;
    if (!hasBattery)
        return {};
    if (minutes < 1)
        return "Calculating...";
    if (minutes < 60)
        return format("%" PRId64 "m", minutes);
    return format("%" PRId64 "h %" PRId64 "m", minutes / 60, minutes % 60);
}

} // namespace orvelle
