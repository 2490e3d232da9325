#pragma once

#include "Foundation/Color.h"
#include "Foundation/Date.h"

#include <optional>
#include <string>

namespace orvelle {

struct CalendarEventModel {
    std::string id;
    std::string title = "Untitled";
    Date startDate;
    Date endDate;
    Color calendarColor = colors::blue;
    std::string calendarTitle;
    std::optional<std::string> location;
    bool isAllDay = false;
    std::optional<std::string> url;
    bool operator==(const CalendarEventModel&) const = default;
};

} // namespace orvelle
