#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

namespace orvelle {

/// What a map from names to variants holds under the key. None for a missing key and for a value of
/// another type.
template <class T, class Map>
std::optional<T> keyedValue(const Map& map, std::string_view key) {
    if (const auto found = map.find(key); found != map.end())
        if (const auto* value = std::get_if<T>(&found->second))
            return *value;
    return std::nullopt;
}

/// The same for a number, whole or not; 0 for none.
template <class Map>
double keyedNumber(const Map& map, std::string_view key) {
    if (const auto whole = keyedValue<std::int64_t>(map, key))
        return static_cast<double>(*whole);
    return keyedValue<double>(map, key).value_or(0);
}

} // namespace orvelle
