#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// A random (version 4) identifier; its text form is upper case.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    auto operator<=>(const UUID&) const = default;

    static UUID random();
    /// Accepts either case; none for anything that is not 8-4-4-4-12 hexadecimal digits.
    static std::optional<UUID> parse(std::string_view text);
    std::string text() const;
};

} // namespace orvelle
