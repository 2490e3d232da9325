#pragma once

#include "Platform/Formatting.h"

#include <memory>

namespace orvelle {

/// The locale data of ICU, which every desktop carries. Main thread only.
class IcuFormatting : public Formatting {
public:
    /// Empty texts stand for the user's own locale (LC_ALL, LC_TIME or LANG) and zone (TZ or
    /// /etc/localtime, read again whenever it is asked for).
    explicit IcuFormatting(std::string locale = {}, std::string zone = {});
    ~IcuFormatting() override;

    TimeZone currentTimeZone() const override;
    std::optional<TimeZone> timeZone(const std::string& identifier) const override;
    int secondsFromGMT(const TimeZone& zone, Date date) const override;
    std::optional<std::string> standardName(const TimeZone& zone) const override;
    std::string date(Date date, const std::string& pattern, const TimeZone& zone) const override;
    std::string shortTime(Date date, const TimeZone& zone) const override;
    std::string relativeTime(Date date, Date reference) const override;
    std::string locale() const override;
    std::string memoryByteCount(std::uint64_t bytes) const override;

    void setCurrentTimeZone(std::string zone) { zone_ = std::move(zone); }

private:
    struct Cache;

    std::string zone_;
    std::unique_ptr<Cache> cache_;
};

} // namespace orvelle
