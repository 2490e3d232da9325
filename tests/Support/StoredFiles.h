#pragma once

#include <string>

namespace orvelle {

/// Where the simulated machine keeps the program's files.
inline const std::string settingsPath = "/simulated/config/defaults.json";
inline const std::string listFolder = "/simulated/share/Orvelle/";

} // namespace orvelle
