#include "Platform/Icu/IcuFormatting.h"

#include "Platform/Icu/SystemTimeZone.h"

#include <unicode/numberformatter.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/tznames.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <map>

namespace orvelle {

namespace {

icu::UnicodeString unicode(const std::string& text) {
    return icu::UnicodeString::fromUTF8(text);
}

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

UDate milliseconds(Date date) {
    return date.sinceUnix() * 1000;
}

/// The bare "C" locale has no customs of its own; people who run under it read English.
icu::Locale localeNamed(std::string name) {
    if (name.empty() || name == "POSIX" || name == "C" || name.starts_with("C."))
        name = "en_US";
    return icu::Locale::createCanonical(name.c_str());
}

std::string localeOfEnvironment() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
        if (const char* value = std::getenv(variable); value && value[0] != '\0')
            return value;
    return {};
}

struct ByteUnit {
    const char* name;
    int fractionDigits;
};
constexpr std::array<ByteUnit, 6> byteUnits{
    {{"KB", 0}, {"MB", 1}, {"GB", 2}, {"TB", 2}, {"PB", 2}, {"EB", 2}}};

/// Months and years by their mean length.
struct RelativeUnit {
    URelativeDateTimeUnit unit;
    double seconds;
};
constexpr std::array<RelativeUnit, 7> relativeUnits{{{UDAT_REL_UNIT_YEAR, 365.2425 * 86400},
                                                     {UDAT_REL_UNIT_MONTH, 30.436875 * 86400},
                                                     {UDAT_REL_UNIT_WEEK, 7 * 86400},
                                                     {UDAT_REL_UNIT_DAY, 86400},
                                                     {UDAT_REL_UNIT_HOUR, 3600},
                                                     {UDAT_REL_UNIT_MINUTE, 60},
                                                     {UDAT_REL_UNIT_SECOND, 1}}};

} // namespace

/// Making a formatter or a zone costs a thousand times more than using it.
struct IcuFormatting::Cache {
    /// Above what the program ever shows at a time; beyond it the cache starts afresh.
    static constexpr std::size_t capacity = 64;

    explicit Cache(icu::Locale userLocale) : locale(std::move(userLocale)) {}

    const icu::TimeZone& zone(const std::string& identifier) {
        auto& zone = entry(zones, identifier);
        if (!zone)
            zone.reset(icu::TimeZone::createTimeZone(unicode(identifier)));
        return *zone;
    }

    /// Null for a pattern that cannot be used.
    const icu::SimpleDateFormat* formatter(const std::string& pattern,
                                           const std::string& identifier) {
        auto& formatter = entry(formatters, std::pair(pattern, identifier));
        if (!formatter) {
            UErrorCode status = U_ZERO_ERROR;
            formatter = std::make_unique<icu::SimpleDateFormat>(unicode(pattern), locale, status);
            if (U_FAILURE(status)) {
                formatter.reset();
                return nullptr;
            }
            formatter->setTimeZone(zone(identifier));
        }
        return formatter.get();
    }

    const icu::number::LocalizedNumberFormatter& number(int fractionDigits) {
        auto& number = numbers.at(static_cast<std::size_t>(fractionDigits));
        if (!number)
            number = icu::number::NumberFormatter::withLocale(locale).precision(
                icu::number::Precision::maxFraction(fractionDigits));
        return *number;
    }

    template <class Map>
    static typename Map::mapped_type& entry(Map& map, const typename Map::key_type& key) {
        if (map.size() >= capacity && !map.contains(key))
            map.clear();
        return map[key];
    }

    icu::Locale locale;
    std::map<std::string, std::unique_ptr<icu::TimeZone>> zones;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<icu::SimpleDateFormat>>
        formatters;
    std::array<std::optional<icu::number::LocalizedNumberFormatter>, 3> numbers;
    std::unique_ptr<icu::RelativeDateTimeFormatter> relative;
    std::string shortTimePattern;
};

IcuFormatting::IcuFormatting(std::string locale, std::string zone)
    : zone_(std::move(zone)), cache_(std::make_unique<Cache>(localeNamed(
                                  locale.empty() ? localeOfEnvironment() : std::move(locale)))) {}

IcuFormatting::~IcuFormatting() = default;

TimeZone IcuFormatting::currentTimeZone() const {
    return {zone_.empty() ? systemTimeZone() : zone_};
}

std::optional<TimeZone> IcuFormatting::timeZone(const std::string& identifier) const {
    if (!isKnownTimeZone(identifier))
        return std::nullopt;
    return TimeZone{identifier};
}

int IcuFormatting::secondsFromGMT(const TimeZone& zone, Date date) const {
    if (!std::isfinite(date.sinceReference))
        return 0;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t standard = 0;
    std::int32_t daylight = 0;
    cache_->zone(zone.identifier).getOffset(milliseconds(date), false, standard, daylight, status);
    return U_FAILURE(status) ? 0 : (standard + daylight) / 1000;
}

std::optional<std::string> IcuFormatting::standardName(const TimeZone& zone) const {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::TimeZoneNames> names(
        icu::TimeZoneNames::createInstance(cache_->locale, status));
    icu::UnicodeString canonical;
    icu::TimeZone::getCanonicalID(unicode(zone.identifier), canonical, status);
    if (U_FAILURE(status))
        return std::nullopt;
    icu::UnicodeString name;
    names->getDisplayName(canonical, UTZNM_LONG_STANDARD, icu::Calendar::getNow(), name);
    if (name.isBogus() || name.isEmpty())
        return std::nullopt;
    return utf8(name);
}

std::string IcuFormatting::date(Date date, const std::string& pattern, const TimeZone& zone) const {
    const auto* formatter = cache_->formatter(pattern, zone.identifier);
    if (!formatter || !std::isfinite(date.sinceReference))
        return {};
    icu::UnicodeString text;
    return utf8(formatter->format(milliseconds(date), text));
}

std::string IcuFormatting::shortTime(Date date, const TimeZone& zone) const {
    if (cache_->shortTimePattern.empty()) {
        const std::unique_ptr<icu::DateFormat> format(
            icu::DateFormat::createTimeInstance(icu::DateFormat::SHORT, cache_->locale));
        icu::UnicodeString pattern;
        if (const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get()))
            simple->toPattern(pattern);
        cache_->shortTimePattern = utf8(pattern);
    }
    return this->date(date, cache_->shortTimePattern, zone);
}

std::string IcuFormatting::relativeTime(Date date, Date reference) const {
    const auto distance = date - reference;
    if (!std::isfinite(distance))
        return {};
    const auto& unit = *std::ranges::find_if(relativeUnits, [&](const RelativeUnit& each) {
        return std::abs(distance) >= each.seconds || each.seconds == 1;
    });
    if (!cache_->relative) {
        UErrorCode status = U_ZERO_ERROR;
        cache_->relative = std::make_unique<icu::RelativeDateTimeFormatter>(
            cache_->locale, nullptr, UDAT_STYLE_SHORT, UDISPCTX_CAPITALIZATION_NONE, status);
        if (U_FAILURE(status)) {
            cache_->relative.reset();
            return {};
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    // Zero keeps its sign: "in 0 sec." and "0 sec. ago" are two texts, and now is past.
    const double amount =
        std::copysign(std::floor(std::abs(distance) / unit.seconds), distance > 0 ? 1.0 : -1.0);
    cache_->relative->formatNumeric(amount, unit.unit, text, status);
    return utf8(text);
}

std::string IcuFormatting::locale() const {
    return cache_->locale.getName();
}

std::string IcuFormatting::memoryByteCount(std::uint64_t bytes) const {
    if (bytes == 0)
        return "Zero KB";
    UErrorCode status = U_ZERO_ERROR;
    if (bytes < 1024)
        return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    // A figure that would round up to 1,024 belongs to the next unit.
    double amount = static_cast<double>(bytes) / 1024;
    std::size_t unit = 0;
    const auto rounded = [&] {
        const double scale = std::pow(10, byteUnits[unit].fractionDigits);
        return std::nearbyint(amount * scale) / scale;
    };
    while (rounded() >= 1024 && unit + 1 < byteUnits.size()) {
        amount /= 1024;
        ++unit;
    }
    const auto figure = cache_->number(byteUnits[unit].fractionDigits)
                            .formatDouble(rounded(), status)
                            .toString(status);
    return utf8(figure) + " " + byteUnits[unit].name;
}

} // namespace orvelle
