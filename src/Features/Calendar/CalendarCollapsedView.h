#pragma once

#include "Foundation/Color.h"
#include "Foundation/Geometry.h"
#include "Views/Components/TextStyle.h"

#include <optional>

namespace orvelle {

class CalendarManager;

/// The next event in one line: its calendar's colour, its title, its time.
class CalendarCollapsedView {
public:
    struct Content {
        Color circle;
        StyledText title;
        StyledText time;
        bool operator==(const Content&) const = default;
    };

    explicit CalendarCollapsedView(const CalendarManager& manager) : manager_(manager) {}

    static constexpr Size circleSize{6, 6}; ///< points

    /// None while nothing is coming.
    std::optional<Content> content() const;

private:
    const CalendarManager& manager_;
};

} // namespace orvelle
