#pragma once

#include "Foundation/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orvelle {

/// A zone by its identifier, such as "Europe/London".
struct TimeZone {
    std::string identifier;
    bool operator==(const TimeZone&) const = default;
};

/// Texts in the user's language and customs.
class Formatting {
public:
    virtual ~Formatting() = default;

    /// The user's own zone, read afresh: it changes when the user travels.
    virtual TimeZone currentTimeZone() const = 0;
    /// None for an identifier that the system does not know.
    virtual std::optional<TimeZone> timeZone(const std::string& identifier) const = 0;
    /// Seconds east of Greenwich at `date`, daylight saving included.
    virtual int secondsFromGMT(const TimeZone& zone, Date date) const = 0;
    /// Such as "Eastern Standard Time", whatever the season; none where the language has no name.
    virtual std::optional<std::string> standardName(const TimeZone& zone) const = 0;

    /// `pattern` in the date field letters of Unicode TR 35, such as "h:mm a".
    virtual std::string date(Date date, const std::string& pattern, const TimeZone& zone) const = 0;
    /// The time of day in the shortest form of the user's customs: "9:41 AM", "21:41".
    virtual std::string shortTime(Date date, const TimeZone& zone) const = 0;
    /// How far `date` lies from `reference` in the largest whole unit, abbreviated: "in 2 hr.",
    /// "5 min. ago".
    virtual std::string relativeTime(Date date, Date reference) const = 0;

    /// The user's language and region, such as "en_US".
    virtual std::string locale() const = 0;

    /// Base 1024; bytes and KB whole, MB at most one decimal, GB and above at most two, without
    /// padding zeros. 0 is "Zero KB".
    virtual std::string memoryByteCount(std::uint64_t bytes) const = 0;
};

} // namespace orvelle
