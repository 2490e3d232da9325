#pragma once

#include "Platform/SMCService.h"

#include <optional>

namespace orvelle::SMCTemperature {

/// Degrees Celsius of the first key that answers with a value strictly between 0 and 130. The
/// connection is opened and closed within the call.
std::optional<double> readCPUTemperature(SMCService& service);

} // namespace orvelle::SMCTemperature
