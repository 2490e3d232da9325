#pragma once

#include "Foundation/Geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// The desktop's ways to hand files on. Main thread only.
class SharePicker {
public:
    virtual ~SharePicker() = default;

    /// Where the content stands, in screen coordinates, of the program's window that the user works
    /// in; none when there is none.
    virtual std::optional<Rect> keyWindowContent() const = 0;
    /// Lets the user pick a way, and hands the files on to it. Stands beside `anchor`, a rectangle
    /// in screen coordinates, at its side `preferredEdge` where there is room.
    virtual void show(const std::vector<std::string>& urls, const Rect& anchor,
                      Edge preferredEdge) = 0;
};

} // namespace orvelle
