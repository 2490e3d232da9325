#pragma once

#include "Views/Components/TextStyle.h"

/// The text styles of the calendar's views, by the names and sizes that they have on other
/// desktops.
namespace orvelle::CalendarFonts {

constexpr TextStyle caption(Color color, FontWeight weight = FontWeight::regular) {
    return {10, weight, color};
}
constexpr TextStyle caption2(Color color) {
    return {10, FontWeight::medium, color};
}
inline constexpr double title2Size = 17;

} // namespace orvelle::CalendarFonts
