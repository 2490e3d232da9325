#pragma once

#include "Platform/FrontmostApplication.h"

#include <string>
#include <vector>

namespace orvelle {

/// The first of these names that is an installed desktop entry, with the entry's name in the user's
/// language; else the last of them as a bare name. Names are without the suffix ".desktop".
ApplicationIdentity desktopEntryNamed(const std::vector<std::string>& names);

} // namespace orvelle
