#pragma once

#include "Foundation/Json.h"

#include <string_view>

namespace orvelle {

/// The list that two writers mean who both began with `base`, with records told apart by the member
/// `identifier`, or as wholes when it is empty. What either of them added, changed or removed is in
/// it; a changed record outlives its removal by the other, and where both changed it, `own` counts.
/// Records keep their order of `own`; others stand behind their neighbour of `others`.
Json::Array mergedLists(const Json::Array& base, const Json::Array& own, const Json::Array& others,
                        std::string_view identifier);

} // namespace orvelle
