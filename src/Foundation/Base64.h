#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The standard alphabet of RFC 4648, padded, on one line.
std::string base64(std::span<const std::uint8_t> bytes);
/// None for anything that `base64` would not have written.
std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text);

} // namespace orvelle
