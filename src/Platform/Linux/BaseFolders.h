#pragma once

#include <string>

namespace orvelle {

/// The user's home; "/" where there is none.
std::string homeFolder();

/// A folder of the XDG Base Directory Specification: what the variable says when it is absolute, or
/// else the one under the home.
std::string baseFolder(const char* variable, const char* underHome);

} // namespace orvelle
