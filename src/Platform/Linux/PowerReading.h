#pragma once

#include "Platform/PowerSources.h"

namespace orvelle {

/// What a power source's description is made of, whoever told it.
struct PowerReading {
    double percent = 0;
    bool charging = false;
    bool onBattery = false;
    std::int64_t minutesToEmpty = -1; ///< -1 while unknown
    std::int64_t minutesToFull = -1;  ///< -1 while unknown

    bool operator==(const PowerReading&) const = default;

    PowerSourceDescription description() const;
};

} // namespace orvelle
