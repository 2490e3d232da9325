#pragma once

#include <optional>
#include <string_view>

namespace orvelle {

enum class ThemeMode {
    system,    ///< the desktop's accent
    custom,    ///< built from the user's hue and saturation
    multicolor ///< the desktop's, while media and focus timer colour themselves
};

/// None for a text that is no mode's stored form.
constexpr std::optional<ThemeMode> themeModeFrom(std::string_view rawValue) {
    if (rawValue == "system")
        return ThemeMode::system;
    if (rawValue == "custom")
        return ThemeMode::custom;
    if (rawValue == "multicolor")
        return ThemeMode::multicolor;
    return std::nullopt;
}

} // namespace orvelle
