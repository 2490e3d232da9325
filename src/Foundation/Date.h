#pragma once

#include <compare>
#include <cstdint>

namespace orvelle {

/// Seconds as everywhere in the program: a real number.
using Seconds = double;

/// A moment, counted in seconds since 2001-01-01 00:00:00 UTC. The same number stands for it in
/// stored files.
struct Date {
    /// Seconds from 1970-01-01 to 2001-01-01, both at 00:00:00 UTC.
    static constexpr Seconds unixOffset = 978307200;

    Seconds sinceReference = 0;

    auto operator<=>(const Date&) const = default;

    static constexpr Date fromUnix(Seconds seconds) { return {seconds - unixOffset}; }
    constexpr Seconds sinceUnix() const { return sinceReference + unixOffset; }

    /// Earlier than anything that happens (year 1).
    static constexpr Date distantPast() { return {-63114076800.0}; }

    constexpr Date operator+(Seconds seconds) const { return {sinceReference + seconds}; }
    constexpr Seconds operator-(Date other) const { return sinceReference - other.sinceReference; }
};

} // namespace orvelle
