#pragma once

#include <optional>
#include <string_view>

namespace orvelle {

/// What a known setting holds; `data` and `date` are written by code only.
enum class SettingType { boolean, wholeNumber, number, text, data, date };

/// None for a key that the program does not know.
std::optional<SettingType> knownSettingType(std::string_view key);

} // namespace orvelle
