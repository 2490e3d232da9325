#pragma once

#include <string_view>

namespace orvelle {

/// Settings that only some platforms read, since others know these things by themselves.
namespace PlatformSettings {
/// The notch of the primary screen, in points: its height, and the widths of the areas beside it,
/// which are of use only together. Numbers.
inline constexpr std::string_view safeAreaTop = "notch.safeAreaTop";
inline constexpr std::string_view auxiliaryLeftWidth = "notch.auxiliaryLeftWidth";
inline constexpr std::string_view auxiliaryRightWidth = "notch.auxiliaryRightWidth";
/// Further folders of calendars, separated by colons; "~/" stands for the home folder.
inline constexpr std::string_view calendarFolders = "calendarFolders";
} // namespace PlatformSettings

} // namespace orvelle
