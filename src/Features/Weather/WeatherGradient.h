#pragma once

#include "Foundation/Color.h"

#include <array>
#include <cstdint>

namespace orvelle {

/// The two colours of the sky under a WMO code, from the top leading to the bottom trailing corner;
/// grey for a code outside the table.
std::array<Color, 2> gradientColors(std::int64_t weatherCode, bool isDay);

} // namespace orvelle
