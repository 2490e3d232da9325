#pragma once

#include <string>

namespace orvelle {

/// The system's zone by its identifier: TZ, else what /etc/localtime leads to, else "Etc/UTC".
/// Costs a few system calls, so that asking each second is cheap.
std::string systemTimeZone();

/// Whether the library has rules for the identifier.
bool isKnownTimeZone(const std::string& identifier);

} // namespace orvelle
