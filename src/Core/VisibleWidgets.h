#pragma once

#include "Core/NotchEnvironment.h"

#include <set>
#include <string>
#include <string_view>

namespace orvelle {

/// Whether a hover widget has something to show now; never for an unknown id. Reads published
/// values only.
bool shouldShowWidget(const NotchEnvironment& environment, std::string_view id);

/// Every widget that has something to show now.
std::set<std::string> visibleWidgetIDs(const NotchEnvironment& environment);

} // namespace orvelle
