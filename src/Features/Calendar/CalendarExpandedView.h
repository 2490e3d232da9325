#pragma once

#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class CalendarManager;

/// The calendar's panel: what is on now and what comes, or that nothing does. Lengths are points.
class CalendarExpandedView {
public:
    struct EventRow {
        std::string id; ///< of this row alone
        Color circle;
        StyledText title;
        StyledText time;
        std::optional<StyledText> location;
        std::optional<StyledText> untilStart; ///< at the row's end
        Date startDate;
        bool operator==(const EventRow&) const = default;
    };
    struct Section {
        StyledText header;
        Color rowFill; ///< behind each row
        std::vector<EventRow> rows;
        bool operator==(const Section&) const = default;
    };

    explicit CalendarExpandedView(const CalendarManager& manager) : manager_(manager) {}

    static constexpr double emptyPadding = 16;
    static constexpr double listPadding = 8;
    static constexpr double itemSpacing = 2; ///< between rows, headers included
    static constexpr double headerPadding = 4;
    static constexpr double rowHorizontalPadding = 8;
    static constexpr double rowVerticalPadding = 4;
    static constexpr double rowSpacing = 8; ///< between the circle, the texts and the row's end
    static constexpr double rowCornerRadius = 6;
    static constexpr double circleDiameter = 8;
    /// How often the panel looks at the time while it is shown.
    static constexpr Seconds refreshInterval = 5;

    /// Instead of the list, while there are no events at all.
    std::optional<FilePlaceholder> noEvents() const;
    /// "Now" and "Upcoming" as of this moment, each only with events.
    std::vector<Section> sections() const;

    std::vector<MenuEntry> emptyMenu() const;
    std::vector<MenuEntry> rowMenu(Date startDate) const;

private:
    std::optional<Section> section(std::string title, Color rowFill, bool isUpcoming) const;

    const CalendarManager& manager_;
};

} // namespace orvelle
