#pragma once

#include "Foundation/Color.h"

#include <optional>

/// What a figure's colour says of it.
namespace orvelle::MetricColors {

/// Red above 85 percent, yellow above 60.
Color load(double percent);
/// Red from 80 degrees Celsius up, yellow from 60 up, grey without a reading. Unlike a load, a
/// temperature warns at the threshold itself.
Color temperature(std::optional<double> celsius);

} // namespace orvelle::MetricColors
