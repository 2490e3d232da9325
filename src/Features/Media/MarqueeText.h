#pragma once

#include "Foundation/Date.h"
#include "Views/Components/TextStyle.h"

#include <string>
#include <string_view>

namespace orvelle {

/// A line of text that runs by when it is wider than its room: two copies, one behind the other,
/// move to the left until the second stands where the first began, again and again. Lengths are
/// points.
struct MarqueeText {
    static constexpr double gap = 40;                 ///< between the copies
    static constexpr double speed = 30;               ///< points a second
    static constexpr double fadeWidth = 10;           ///< of the ends that it runs out of view at
    static constexpr Color fadeColor = colors::black; ///< the panel's ground
    static constexpr Seconds restartDelay = 0.15; ///< at rest after the text or a width has changed
    /// Characters that are drawn. What nobody can read any more would only cost time.
    static constexpr std::size_t longestText = 400;

    StyledText text;
    bool operator==(const MarqueeText&) const = default;

    static bool scrolls(double textWidth, double containerWidth);
    /// How far it moves in one round.
    static double travel(double textWidth);
    /// How long one round takes.
    static Seconds duration(double textWidth);
};

/// A text as players send it, made fit for one line: of bounded length, and with blanks for line
/// ends and other control characters. UTF-8 stays UTF-8.
std::string singleLine(std::string_view text);

} // namespace orvelle
