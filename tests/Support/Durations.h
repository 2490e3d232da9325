#pragma once

#include "Foundation/Date.h"

namespace orvelle {

inline constexpr Seconds minute = 60;
inline constexpr Seconds hour = 3600;

} // namespace orvelle
