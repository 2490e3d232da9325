#include "Platform/Ical/IcalFile.h"

#include "Platform/Ical/ComponentReader.h"
#include "Platform/Simulated/SimulatedRunLoop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvelle {
namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;
constexpr Seconds day = 86400;

/// 2026-01-15 12:00 UTC, a Thursday; 7 in the morning in New York, where the user is.
constexpr Date noon = SimulatedRunLoop::defaultStart;

std::string event(const std::string& lines) {
    return "BEGIN:VEVENT\r\n" + lines + "END:VEVENT\r\n";
}

std::string calendar(const std::string& components) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + components + "END:VCALENDAR\r\n";
}

std::vector<StoredEvent> eventsOf(const std::string& text, Seconds span = day,
                                  std::size_t piece = std::string::npos) {
    IcalFile file({noon, noon + span, "America/New_York",
                   std::chrono::steady_clock::now() + std::chrono::seconds(20)});
    for (std::size_t at = 0; at < text.size(); at += std::min(piece, text.size() - at))
        file.feed(std::string_view(text).substr(at, piece));
    return file.finish();
}

/// Hours from noon UTC, in ascending order.
std::vector<double> startsOf(const std::string& text, Seconds span = day) {
    std::vector<double> starts;
    for (const auto& each : eventsOf(text, span))
        starts.push_back((*each.startDate - noon) / hour);
    std::ranges::sort(starts);
    return starts;
}

using Starts = std::vector<double>;

TEST(IcalFile, TakesTheFieldsOfAnEvent) {
    const auto events = eventsOf(
        calendar(event("UID:one\r\nDTSTART:20260115T150000Z\r\nDTEND:20260115T160000Z\r\n"
                       "SUMMARY:Tea\\, with\\nmilk\r\nLOCATION;LANGUAGE=en:Kit\r\n chen\r\n"
                       "URL:https://example.org/\r\nDESCRIPTION:left behind\r\n")));
    ASSERT_EQ(events.size(), 1u);
    const auto& tea = events[0];
    EXPECT_EQ(tea.eventIdentifier, "one");
    EXPECT_EQ(tea.title, "Tea, with milk");
    EXPECT_EQ(tea.location, "Kitchen") << "a folded line";
    EXPECT_EQ(tea.url, "https://example.org/");
    EXPECT_EQ(tea.startDate, noon + 3 * hour);
    EXPECT_EQ(tea.endDate, noon + 4 * hour);
    EXPECT_FALSE(tea.isAllDay);
}

TEST(IcalFile, WhatIsMissingIsNone) {
    const auto events = eventsOf(calendar(event("DTSTART:20260115T150000Z\r\nSUMMARY: \r\n")));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_FALSE(events[0].eventIdentifier);
    EXPECT_FALSE(events[0].title);
    EXPECT_FALSE(events[0].location);
    EXPECT_EQ(events[0].endDate, events[0].startDate);
}

TEST(IcalFile, ADurationStandsForTheEnd) {
    const auto events =
        eventsOf(calendar(event("DTSTART:20260115T150000Z\r\nDURATION:PT1H30M\r\n")));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(*events[0].endDate - *events[0].startDate, 90 * minute);
}

TEST(IcalFile, OnlyWhatSharesTimeWithTheSpanIsFound) {
    EXPECT_EQ(startsOf(calendar(
                  event("DTSTART:20260115T100000Z\r\nDTEND:20260115T113000Z\r\n") + // over
                  event("DTSTART:20260115T100000Z\r\nDTEND:20260115T130000Z\r\n") + // on
                  event("DTSTART:20260116T115900Z\r\n") + event("DTSTART:20260116T120000Z\r\n"))),
              (Starts{-2, 24 - 1.0 / 60}));
}

TEST(IcalFile, TimesFollowTheirZones) {
    EXPECT_EQ(startsOf(calendar(event("DTSTART;TZID=Europe/Berlin:20260115T160000\r\n"))),
              Starts{3});
    EXPECT_EQ(startsOf(calendar(event("DTSTART:20260115T100000\r\n"))), Starts{3})
        << "the user's own zone";
    EXPECT_EQ(
        startsOf(calendar(event("DTSTART;TZID=/example.org/x/Asia/Tokyo:20260116T000000\r\n"))),
        Starts{3});
    EXPECT_EQ(startsOf(calendar(event("DTSTART;TZID=Nowhere:20260115T100000\r\n"))), Starts{3});
}

TEST(IcalFile, AFileMayBringItsOwnZoneBeforeOrAfterTheEvents) {
    const std::string zone = "BEGIN:VTIMEZONE\r\nTZID:Office\r\n"
                             "BEGIN:STANDARD\r\nDTSTART:19701025T030000\r\nTZOFFSETFROM:+0330\r\n"
                             "TZOFFSETTO:+0230\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\n"
                             "END:STANDARD\r\n"
                             "BEGIN:DAYLIGHT\r\nDTSTART:19700329T020000\r\nTZOFFSETFROM:+0230\r\n"
                             "TZOFFSETTO:+0330\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\n"
                             "END:DAYLIGHT\r\nEND:VTIMEZONE\r\n";
    const auto meeting = event("DTSTART;TZID=Office:20260115T173000\r\n");
    EXPECT_EQ(startsOf(calendar(zone + meeting)), Starts{3});
    EXPECT_EQ(startsOf(calendar(meeting + zone)), Starts{3});
}

TEST(IcalFile, AWholeDayLastsFromMidnightToMidnight) {
    const auto events = eventsOf(calendar(event("DTSTART;VALUE=DATE:20260115\r\n") +
                                          event("DTSTART;VALUE=DATE:20260114\r\n"
                                                "DTEND;VALUE=DATE:20260117\r\n") +
                                          event("DTSTART;VALUE=DATE:20260114\r\n")));
    ASSERT_EQ(events.size(), 2u) << "yesterday is over";
    EXPECT_TRUE(events[0].isAllDay);
    EXPECT_EQ(events[0].startDate, noon + -7 * hour);
    EXPECT_EQ(events[0].endDate, noon + 17 * hour);
    EXPECT_EQ(*events[1].endDate - *events[1].startDate, 3 * day);
}

TEST(IcalFile, RepeatsAnEventByItsRuleWithinTheSpan) {
    const auto text = [](const std::string& rule) {
        return calendar(event("UID:r\r\nDTSTART;TZID=America/New_York:20240104T090000\r\n"
                              "DTEND;TZID=America/New_York:20240104T100000\r\nRRULE:" +
                              rule + "\r\n"));
    };
    EXPECT_EQ(startsOf(text("FREQ=DAILY")), Starts{2});
    EXPECT_EQ(startsOf(text("FREQ=DAILY"), 3 * day), (Starts{2, 26, 50}));
    EXPECT_EQ(startsOf(text("FREQ=WEEKLY")), Starts{2});
    EXPECT_EQ(startsOf(text("FREQ=WEEKLY;BYDAY=FR")), Starts{});
    EXPECT_EQ(startsOf(text("FREQ=WEEKLY;BYDAY=FR"), 2 * day), Starts{26});
    EXPECT_EQ(startsOf(text("FREQ=DAILY;BYDAY=FR,SA"), 4 * day), (Starts{26, 50}));
    EXPECT_EQ(startsOf(text("FREQ=MONTHLY;BYDAY=3TH")), Starts{2});
    EXPECT_EQ(startsOf(text("FREQ=YEARLY")), Starts{});
    EXPECT_EQ(startsOf(text("FREQ=DAILY;UNTIL=20260114T235959Z")), Starts{});
    EXPECT_EQ(startsOf(text("FREQ=DAILY;COUNT=743")), Starts{2}) << "the last on this very day";
    EXPECT_EQ(startsOf(text("FREQ=DAILY;COUNT=742")), Starts{});
    EXPECT_EQ(startsOf(text("FREQ=HOURLY;INTERVAL=6")), (Starts{2, 8, 14, 20}));
    EXPECT_EQ(startsOf(text("FREQ=HOURLY;BYHOUR=9,10")), (Starts{2, 3}));
}

TEST(IcalFile, ARepeatedEventKeepsItsClockTimeOverTheChangeOfTheClocks) {
    EXPECT_EQ(startsOf(calendar(event("DTSTART;TZID=Europe/London:20250701T150000\r\n"
                                      "RRULE:FREQ=DAILY\r\n"))),
              Starts{3});
}

TEST(IcalFile, LeavesOutExceptions) {
    const std::string rule = "UID:r\r\nDTSTART:20260101T150000Z\r\nRRULE:FREQ=DAILY\r\n";
    EXPECT_EQ(
        startsOf(calendar(event(rule + "EXDATE:20260115T150000Z,20260117T150000Z\r\n")), 3 * day),
        Starts{27});
    EXPECT_EQ(startsOf(calendar(event(rule + "EXDATE;VALUE=DATE:20260116\r\n")), 3 * day),
              (Starts{3, 51}));
    EXPECT_EQ(startsOf(calendar(event(rule + "EXDATE;TZID=America/New_York:20260115T100000\r\n"))),
              Starts{});
}

TEST(IcalFile, AddsFurtherDates) {
    EXPECT_EQ(startsOf(calendar(event("UID:r\r\nDTSTART:20260101T150000Z\r\n"
                                      "RDATE:20260115T180000Z,20260116T090000Z\r\n"))),
              (Starts{6, 21}));
}

/// Start and end of each event, in hours from noon UTC.
std::vector<std::pair<double, double>> spansOf(const std::string& text) {
    std::vector<std::pair<double, double>> spans;
    for (const auto& each : eventsOf(text))
        spans.emplace_back((*each.startDate - noon) / hour, (*each.endDate - noon) / hour);
    std::ranges::sort(spans);
    return spans;
}

using Spans = std::vector<std::pair<double, double>>;

TEST(IcalFile, AFurtherDateThatIsAPeriodKeepsItsOwnLength) {
    EXPECT_EQ(
        spansOf(calendar(event("UID:r\r\nDTSTART:20260115T150000Z\r\nDTEND:20260115T160000Z\r\n"
                               "RDATE;VALUE=PERIOD:20260115T180000Z/PT3H,"
                               "20260115T220000Z/20260115T223000Z\r\nRDATE:20260116T020000Z\r\n"))),
        (Spans{{3, 4}, {6, 9}, {10, 10.5}, {14, 15}}));
}

TEST(IcalFile, APeriodThatBeganBeforeTheSpanIsThereUntilItsOwnEnd) {
    EXPECT_EQ(spansOf(calendar(
                  event("UID:r\r\nDTSTART:20260101T150000Z\r\nDTEND:20260101T153000Z\r\n"
                        "RDATE;VALUE=PERIOD:20260115T100000Z/PT4H,20260115T060000Z/PT4H\r\n"))),
              (Spans{{-2, 2}}));
}

TEST(IcalFile, APeriodIsInTheZoneThatItNames) {
    EXPECT_EQ(
        spansOf(calendar(event("UID:r\r\nDTSTART:20260101T150000Z\r\nDTEND:20260101T160000Z\r\n"
                               "RDATE;VALUE=PERIOD;TZID=America/New_York:20260115T090000/"
                               "20260115T110000\r\n"))),
        (Spans{{2, 4}}));
}

TEST(IcalFile, APeriodOfAnAllDayEventHasItsTimes) {
    const auto events = eventsOf(calendar(event("UID:r\r\nDTSTART;VALUE=DATE:20260101\r\n"
                                                "RDATE;VALUE=PERIOD:20260115T150000Z/PT2H\r\n")));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_FALSE(events[0].isAllDay);
    EXPECT_EQ(*events[0].endDate - *events[0].startDate, 2 * hour);
}

TEST(IcalFile, AChangedOccurrenceStandsForTheOriginal) {
    const auto rule =
        event("UID:r\r\nDTSTART:20260101T150000Z\r\nRRULE:FREQ=DAILY\r\nSUMMARY:Daily\r\n");
    const auto moved = event("UID:r\r\nRECURRENCE-ID:20260115T150000Z\r\n"
                             "DTSTART:20260115T190000Z\r\nSUMMARY:Moved\r\n");
    for (const auto& text : {calendar(rule + moved), calendar(moved + rule)}) {
        const auto events = eventsOf(text);
        ASSERT_EQ(events.size(), 1u);
        EXPECT_EQ(events[0].title, "Moved");
        EXPECT_EQ(events[0].startDate, noon + 7 * hour);
    }
    const auto calledOff = event("UID:r\r\nRECURRENCE-ID:20260115T150000Z\r\n"
                                 "DTSTART:20260115T150000Z\r\nSTATUS:CANCELLED\r\n");
    EXPECT_EQ(startsOf(calendar(rule + calledOff), 2 * day), Starts{27});
}

TEST(IcalFile, OccurrencesHaveIdentifiersOfTheirOwn) {
    const auto events = eventsOf(
        calendar(event("UID:r\r\nDTSTART:20260101T150000Z\r\nRRULE:FREQ=DAILY\r\n")), 2 * day);
    ASSERT_EQ(events.size(), 2u);
    EXPECT_NE(events[0].eventIdentifier, events[1].eventIdentifier);
}

TEST(IcalFile, WhatIsCalledOffIsLeftOut) {
    EXPECT_EQ(startsOf(calendar(event("DTSTART:20260115T150000Z\r\nSTATUS:CANCELLED\r\n"))),
              Starts{});
}

TEST(IcalFile, ReadsInPiecesOfAnySize) {
    const auto text = calendar(event("UID:one\r\nDTSTART:20260115T150000Z\r\nSUMMARY:Lo\r\n ng\r\n"
                                     "BEGIN:VALARM\r\nDTSTART:20260115T120000Z\r\nEND:VALARM\r\n") +
                               event("UID:two\r\nDTSTART:20260115T160000Z\r\n"));
    const auto whole = eventsOf(text);
    ASSERT_EQ(whole.size(), 2u);
    EXPECT_EQ(whole[0].title, "Long");
    for (std::size_t piece = 1; piece < 40; ++piece)
        EXPECT_EQ(eventsOf(text, day, piece), whole) << piece;
}

TEST(IcalFile, ACutFileShowsWhatIsWholeInIt) {
    const auto text = calendar(event("UID:one\r\nDTSTART:20260115T150000Z\r\nSUMMARY:One\r\n") +
                               event("UID:two\r\nDTSTART:20260115T160000Z\r\nSUMMARY:Two\r\n"));
    const auto endOfFirst = text.find("END:VEVENT") + 10;
    for (std::size_t length = 0; length < text.size() - 30; ++length) {
        const auto events = eventsOf(text.substr(0, length));
        ASSERT_EQ(events.size(), length < endOfFirst ? 0u : 1u) << length;
    }
}

TEST(IcalFile, ABrokenEventDoesNotSpoilTheNext) {
    const auto good = event("UID:good\r\nDTSTART:20260115T150000Z\r\n");
    const std::string nul("UID:a\0b\r\n", 9);
    for (const auto& bad :
         {std::string("BEGIN:VEVENT\r\nDTSTART:20260115T130000Z\r\n"), // not ended
          event("DTSTART:yesterday\r\n"), event("SUMMARY:no time\r\n"),
          event("DTSTART:20260115T130000Z\r\nDTSTART"), std::string("END:VEVENT\r\n"), event(nul),
          event("DTSTART:99999999T999999Z\r\n"), event("DTSTART;TZID=:20300115T130000\r\n"),
          event("DTSTART:20300115T130000Z\r\nRRULE:FREQ=NEVER;BYDAY=XX\r\n"),
          std::string("\xff\xfe\x00garbage\r\n", 12)})
        EXPECT_EQ(startsOf(calendar(bad + good)), Starts{3}) << bad;
}

TEST(IcalFile, AnEnormousFileTakesBoundedMemoryForEachEvent) {
    std::size_t largest = 0;
    int count = 0;
    ComponentReader reader([&](ComponentReader::Kind, const std::string& text) {
        largest = std::max(largest, text.size());
        ++count;
    });
    const std::string attachment =
        "ATTACH;ENCODING=BASE64;VALUE=BINARY:" + std::string(1 << 20, 'A') + "\r\n";
    for (int copy = 0; copy < 32; ++copy)
        reader.feed(event("DTSTART:20260115T150000Z\r\n" + attachment));
    std::string manyDates = "DTSTART:20260115T150000Z\r\n";
    while (manyDates.size() < ComponentReader::maximumComponent)
        manyDates += "EXDATE:20260115T150000Z\r\n";
    reader.feed(event(manyDates));
    reader.finish();
    EXPECT_EQ(count, 32) << "the one that is too large is left out";
    EXPECT_LT(largest, 100u);
}

TEST(IcalFile, AFileOfManyEventsGivesTheFirstOfThem) {
    std::string text;
    for (std::size_t copy = 0; copy < IcalFile::maximumOccurrences + 10; ++copy)
        text += event("UID:" + std::to_string(copy) + "\r\nDTSTART:20260115T150000Z\r\n");
    EXPECT_EQ(eventsOf(calendar(text)).size(), IcalFile::maximumOccurrences);
}

TEST(IcalFile, EndlessAndImpossibleRulesEnd) {
    const auto good = event("UID:good\r\nDTSTART:20260115T150000Z\r\n");
    const auto began = std::chrono::steady_clock::now();
    for (const std::string rule :
         {"FREQ=SECONDLY", "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
          "FREQ=SECONDLY;INTERVAL=60;BYSECOND=30", "FREQ=MINUTELY;BYHOUR=3;BYMINUTE=61",
          "FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30",
          "FREQ=WEEKLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=30",
          "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=YEARLY;BYWEEKNO=54",
          "FREQ=SECONDLY;BYSETPOS=5;BYMONTH=13", "FREQ=DAILY;INTERVAL=0",
          "FREQ=SECONDLY;COUNT=2000000000", "FREQ=DAILY;INTERVAL=-5",
          "FREQ=YEARLY;INTERVAL=32767"}) {
        const auto events = eventsOf(
            calendar(event("UID:r\r\nDTSTART:19700101T000000Z\r\nRRULE:" + rule + "\r\n") + good));
        EXPECT_LE(events.size(), 201u) << rule;
        EXPECT_TRUE(std::ranges::any_of(events, [](const auto& each) {
            return each.eventIdentifier == "good";
        })) << rule;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(30));
}

TEST(IcalFile, AZoneWithImpossibleRulesIsRefused) {
    const std::string zone = "BEGIN:VTIMEZONE\r\nTZID:Trap\r\nBEGIN:STANDARD\r\n"
                             "DTSTART:19700101T000000\r\nTZOFFSETFROM:+0000\r\nTZOFFSETTO:+0100\r\n"
                             "RRULE:FREQ=SECONDLY\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    EXPECT_EQ(startsOf(calendar(zone + event("DTSTART;TZID=Trap:20260115T100000\r\n"))), Starts{3})
        << "as in the user's own zone";
}

TEST(IcalFile, AfterTheDeadlineNothingMoreIsTakenIn) {
    IcalFile file({noon, noon + day, "America/New_York", std::chrono::steady_clock::now()});
    EXPECT_FALSE(file.feed(calendar(event("DTSTART:20260115T150000Z\r\n"))));
    EXPECT_TRUE(file.finish().empty());
}

} // namespace
} // namespace orvelle
