#pragma once

#include "Platform/Linux/PowerReading.h"

#include <optional>
#include <string>

namespace orvelle::SysfsPowerSupply {

struct Answer {
    /// None on a machine without a battery.
    std::optional<PowerReading> battery;
};

/// The machine's batteries as one, read on the spot: one small file ("uevent") a supply. Batteries
/// of mice and the like do not count. None when there is no such folder.
std::optional<Answer> read(const std::string& root);

} // namespace orvelle::SysfsPowerSupply
