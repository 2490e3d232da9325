#include "Platform/Linux/PowerReading.h"

#include <algorithm>
#include <cmath>

namespace orvelle {

PowerSourceDescription PowerReading::description() const {
    const auto capacity = static_cast<std::int64_t>(std::lround(std::clamp(percent, 0.0, 100.0)));
    return {
        {"Type", std::string("InternalBattery")},
        {"Current Capacity", capacity},
        {"Is Charging", charging},
        {"Power Source State", std::string(onBattery ? "Battery Power" : "AC Power")},
        {"Time to Empty", minutesToEmpty},
        {"Time to Full Charge", minutesToFull},
    };
}

} // namespace orvelle
