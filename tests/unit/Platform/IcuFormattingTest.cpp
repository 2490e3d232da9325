#include "Platform/Icu/IcuFormatting.h"

#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvelle {
namespace {

// 2026-01-15 12:00:00 UTC and half a year later
constexpr Date winter{790171200};
constexpr Date summer{790171200 + 181 * 86400.0};
const TimeZone newYork{"America/New_York"};

TEST(IcuFormatting, WritesDatesByPatternInTheUsersLanguage) {
    const IcuFormatting english("en_US", "America/New_York");
    EXPECT_EQ(english.date(winter, "h:mm a", newYork), "7:00 AM");
    EXPECT_EQ(english.date(winter, "EEEE, MMM d", newYork), "Thursday, Jan 15");
    EXPECT_EQ(english.date(winter, "HH:mm:ss 'o''clock'", {"Asia/Tokyo"}), "21:00:00 o'clock");
    const IcuFormatting german("de_DE");
    EXPECT_EQ(german.date(winter, "EEEE, d. MMMM", newYork), "Donnerstag, 15. Januar");
}

TEST(IcuFormatting, DateFollowsDaylightSaving) {
    const IcuFormatting english("en_US");
    EXPECT_EQ(english.date(summer, "H:mm", newYork), "8:00");
    EXPECT_EQ(english.secondsFromGMT(newYork, winter), -5 * 3600);
    EXPECT_EQ(english.secondsFromGMT(newYork, summer), -4 * 3600);
    EXPECT_EQ(english.secondsFromGMT({"Asia/Kolkata"}, summer), 19800);
}

TEST(IcuFormatting, ShortTimesFollowTheUsersCustoms) {
    EXPECT_EQ(IcuFormatting("en_US").shortTime(winter, newYork), "7:00\u202fAM");
    EXPECT_EQ(IcuFormatting("de_DE").shortTime(winter, newYork), "07:00");
}

TEST(IcuFormatting, RelativeTimesTakeTheLargestWholeUnit) {
    const IcuFormatting english("en_US");
    const auto text = [&](Seconds distance) {
        return english.relativeTime(winter + distance, winter);
    };
    EXPECT_EQ(text(30), "in 30 sec.");
    EXPECT_EQ(text(90), "in 1 min.");
    EXPECT_EQ(text(3599), "in 59 min.");
    EXPECT_EQ(text(3600), "in 1 hr.");
    EXPECT_EQ(text(26 * 3600), "in 1 day");
    EXPECT_EQ(text(15 * 86400.0), "in 2 wk.");
    EXPECT_EQ(text(-5 * 60), "5 min. ago");
    EXPECT_EQ(text(-800 * 86400.0), "2 yr. ago");
    EXPECT_EQ(text(HUGE_VAL), "");
    EXPECT_EQ(IcuFormatting("de_DE").relativeTime(winter + 7200, winter), "in 2 Std.");
}

TEST(IcuFormatting, DateThatIsNoneGivesNoText) {
    const IcuFormatting english("en_US");
    EXPECT_EQ(english.date({std::nan("")}, "H:mm", newYork), "");
    EXPECT_EQ(english.secondsFromGMT(newYork, {HUGE_VAL}), 0);
}

TEST(IcuFormatting, FormattersStayRightBeyondTheCachesCapacity) {
    const IcuFormatting english("en_US");
    for (int round = 0; round < 2; ++round)
        for (int count = 0; count < 200; ++count)
            EXPECT_EQ(english.date(winter, "H '" + std::to_string(count) + "'", newYork),
                      "7 " + std::to_string(count));
}

TEST(IcuFormatting, KnowsZonesByIdentifier) {
    const IcuFormatting english("en_US");
    EXPECT_EQ(english.timeZone("Europe/London"), TimeZone{"Europe/London"});
    EXPECT_EQ(english.timeZone("Asia/Calcutta"), TimeZone{"Asia/Calcutta"});
    for (const char* unknown : {"", "Mars/Olympus", "Etc/Unknown"})
        EXPECT_EQ(english.timeZone(unknown), std::nullopt) << unknown;
}

TEST(IcuFormatting, StandardNameIsTheSameInEverySeason) {
    const IcuFormatting english("en_US");
    EXPECT_EQ(english.standardName(newYork), "Eastern Standard Time");
    EXPECT_EQ(english.standardName({"Europe/London"}), "Greenwich Mean Time");
    EXPECT_EQ(english.standardName({"Asia/Kolkata"}), "India Standard Time");
    EXPECT_EQ(IcuFormatting("de_DE").standardName({"Europe/Berlin"}),
              "Mitteleuropäische Normalzeit");
    EXPECT_EQ(english.standardName({"Etc/GMT+5"}), std::nullopt);
    EXPECT_EQ(english.standardName({"Mars/Olympus"}), std::nullopt);
}

TEST(IcuFormatting, CurrentZoneFollowsTheVariable) {
    const IcuFormatting formatting("en_US");
    TemporaryVariable zone("TZ", "Asia/Tokyo");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Asia/Tokyo"});
    zone.set(":Europe/Paris");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Europe/Paris"});
    zone.set("/usr/share/zoneinfo/posix/Europe/Rome");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Europe/Rome"});
    zone.set("");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Etc/UTC"});
}

TEST(IcuFormatting, CurrentZoneOfTheSystemIsAKnownOne) {
    const TemporaryVariable zone("TZ", nullptr);
    const IcuFormatting formatting("en_US");
    EXPECT_TRUE(formatting.timeZone(formatting.currentTimeZone().identifier));
}

TEST(IcuFormatting, CurrentZoneMayBeGiven) {
    IcuFormatting formatting("en_US", "Europe/London");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Europe/London"});
    formatting.setCurrentTimeZone("Asia/Tokyo");
    EXPECT_EQ(formatting.currentTimeZone(), TimeZone{"Asia/Tokyo"});
}

TEST(IcuFormatting, LocaleComesFromTheEnvironment) {
    TemporaryVariable all("LC_ALL", nullptr);
    TemporaryVariable time("LC_TIME", nullptr);
    TemporaryVariable language("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(IcuFormatting().date(winter, "EEEE", newYork), "jeudi");
    time.set("de_DE.UTF-8@euro");
    EXPECT_EQ(IcuFormatting().date(winter, "EEEE", newYork), "Donnerstag");
    all.set("C.UTF-8");
    EXPECT_EQ(IcuFormatting().date(winter, "EEEE", newYork), "Thursday");
}

TEST(IcuFormatting, MemoryByteCountsHaveAsManyDecimalsAsTheirUnit) {
    const IcuFormatting english("en_US");
    const auto text = [&](double bytes) {
        return english.memoryByteCount(static_cast<std::uint64_t>(bytes));
    };
    EXPECT_EQ(text(0), "Zero KB");
    EXPECT_EQ(text(1), "1 byte");
    EXPECT_EQ(text(512), "512 bytes");
    EXPECT_EQ(text(1023), "1023 bytes");
    EXPECT_EQ(text(1024), "1 KB");
    EXPECT_EQ(text(1.4 * 1024), "1 KB");
    EXPECT_EQ(text(1010 * 1024), "1,010 KB");
    EXPECT_EQ(text(1.56 * (1 << 20)), "1.6 MB");
    EXPECT_EQ(text(2.04 * (1 << 20)), "2 MB");
    EXPECT_EQ(text(3.256 * (1 << 30)), "3.26 GB");
    EXPECT_EQ(text(3.5 * (1 << 30)), "3.5 GB");
    EXPECT_EQ(text(16.0 * (1 << 30)), "16 GB");
    EXPECT_EQ(text(1.25 * (1ULL << 40)), "1.25 TB");
    EXPECT_EQ(english.memoryByteCount(std::numeric_limits<std::uint64_t>::max()), "16 EB");
}

TEST(IcuFormatting, MemoryByteCountThatRoundsUpTakesTheNextUnit) {
    const IcuFormatting english("en_US");
    EXPECT_EQ(english.memoryByteCount((1ULL << 20) - 1), "1 MB");
    EXPECT_EQ(english.memoryByteCount((1ULL << 30) - 1), "1 GB");
}

TEST(IcuFormatting, MemoryByteCountTakesTheLocalesMarks) {
    const IcuFormatting german("de_DE");
    EXPECT_EQ(german.memoryByteCount(3758096384), "3,5 GB");
    EXPECT_EQ(german.memoryByteCount(1010 * 1024), "1.010 KB");
}

TEST(IcuFormatting, TellsRelativeTimesInTheLargestUnitAndShortWords) {
    const IcuFormatting english("en_US");
    const auto ago = [&](Seconds seconds) {
        return english.relativeTime(winter + -seconds, winter);
    };
    EXPECT_EQ(ago(0), "0 sec. ago");
    EXPECT_EQ(ago(59.9), "59 sec. ago");
    EXPECT_EQ(ago(60), "1 min. ago");
    EXPECT_EQ(ago(3 * 3600), "3 hr. ago");
    EXPECT_EQ(ago(50 * 3600), "2 days ago");
    EXPECT_EQ(ago(8 * 86400), "1 wk. ago");
    EXPECT_EQ(ago(-300), "in 5 min.");
    EXPECT_EQ(IcuFormatting("de_DE").relativeTime(winter, winter + 120), "vor 2 Min.");
    EXPECT_EQ(english.relativeTime({std::numeric_limits<double>::infinity()}, winter), "");
    EXPECT_EQ(english.locale(), "en_US");
}

} // namespace
} // namespace orvelle
