#pragma once

#include "Views/Components/TextStyle.h"

#include <string>
#include <vector>

namespace orvelle {

class TimeManager;

/// The clock's panel: the local time, and below a divider one card for each city.
class TimeExpandedView {
public:
    /// A centred column; cards share the width equally.
    struct Card {
        std::string id; ///< the zone's identifier
        StyledText cityName;
        StyledText timeString;
        StyledText offsetLabel;
        bool operator==(const Card&) const = default;
    };

    explicit TimeExpandedView(const TimeManager& manager) : manager_(manager) {}

    static constexpr double dividerPadding = 8; ///< points

    StyledText localTime() const;
    StyledText localDate() const;
    StyledText localTimezone() const;
    /// From west to east.
    std::vector<Card> cards() const;

private:
    const TimeManager& manager_;
};

} // namespace orvelle
