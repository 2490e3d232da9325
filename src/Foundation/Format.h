#pragma once

#include <string>

namespace orvelle {

/// printf-style text in the C locale: "%.1f%%" of 85.25 is "85.2%" for every user.
[[gnu::format(printf, 1, 2)]] std::string format(const char* pattern, ...);

} // namespace orvelle
