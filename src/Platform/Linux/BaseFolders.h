#pragma once

#include <string>

namespace orvelle {

/// The user's home; "/" where there is none.
std::string homeFolder();

/// One of the XDG base folders, such as XDG_DATA_HOME: what the variable says when it is absolute,
/// or else the one under the home.
std::string baseFolder(const char* variable, const char* underHome);

} // namespace orvelle
