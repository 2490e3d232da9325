#pragma once

#include "Foundation/Format.h"
#include "Foundation/Geometry.h"

#include <string>

namespace orvelle {

/// Values as log lines show them.
inline std::string describe(const Rect& rect) {
    return format("{{%g, %g}, {%g, %g}}", rect.origin.x, rect.origin.y, rect.size.width,
                  rect.size.height);
}

inline const char* describe(bool value) {
    return value ? "true" : "false";
}

} // namespace orvelle
