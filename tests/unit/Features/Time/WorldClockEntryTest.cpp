#include "Features/Time/WorldClockEntry.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

using namespace orvelle;

TEST(WorldClockEntry, OffsetLabelShowsHoursAndOnlyNeededMinutes) {
    EXPECT_EQ(utcOffsetLabel(19800), "UTC+5:30");
    EXPECT_EQ(utcOffsetLabel(20700), "UTC+5:45");
    EXPECT_EQ(utcOffsetLabel(-10800), "UTC-3");
    EXPECT_EQ(utcOffsetLabel(-12600), "UTC-3:30");
    EXPECT_EQ(utcOffsetLabel(0), "UTC+0");
    EXPECT_EQ(utcOffsetLabel(50400), "UTC+14");
}

TEST(WorldClockEntry, LessThanAnHourWestReadsWithAPlus) {
    EXPECT_EQ(utcOffsetLabel(-1800), "UTC+0:30");
    EXPECT_EQ(utcOffsetLabel(-3599), "UTC+0:59");
    EXPECT_EQ(utcOffsetLabel(-3600), "UTC-1");
}

TEST(WorldClockEntry, RemaindersBelowAMinuteAreNotShown) {
    EXPECT_EQ(utcOffsetLabel(3600 + 59), "UTC+1");
    EXPECT_EQ(utcOffsetLabel(3600 + 60), "UTC+1:01");
    EXPECT_EQ(utcOffsetLabel(-3600 - 59), "UTC-1");
    EXPECT_EQ(utcOffsetLabel(-3600 - 60), "UTC-1:01");
}

TEST(WorldClockEntry, TimeAndOffsetAreThoseOfItsZoneAtTheDate) {
    SimulatedPlatform platform;
    const auto& formatting = platform.formatting();
    const WorldClockEntry london{"Europe/London", "London", {"Europe/London"}};
    constexpr Date winterNoon{790171200}; // 2026-01-15 12:00 UTC
    constexpr Date summerNoon = winterNoon + 180 * 86400.0;
    EXPECT_EQ(london.timeString(winterNoon, formatting), "12:00 PM");
    EXPECT_EQ(london.offsetLabel(winterNoon, formatting), "UTC+0");
    EXPECT_EQ(london.timeString(summerNoon, formatting), "1:00 PM");
    EXPECT_EQ(london.offsetLabel(summerNoon, formatting), "UTC+1");
}
