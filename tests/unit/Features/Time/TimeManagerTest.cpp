#include "Features/Time/TimeManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

using namespace orvelle;

namespace {

constexpr Seconds day = 86400;
constexpr Seconds toJuly = 180 * day;

/// Knows no more zones than the test says, and no names of zones.
class FewZones : public IcuFormatting {
public:
    explicit FewZones(std::vector<std::string> known)
        : IcuFormatting("en_US", "America/New_York"), known_(std::move(known)) {}

    std::optional<TimeZone> timeZone(const std::string& identifier) const override {
        if (std::ranges::find(known_, identifier) == known_.end())
            return std::nullopt;
        return IcuFormatting::timeZone(identifier);
    }
    std::optional<std::string> standardName(const TimeZone&) const override { return std::nullopt; }

private:
    std::vector<std::string> known_;
};

class PlatformOfFewZones : public SimulatedPlatform {
public:
    explicit PlatformOfFewZones(std::vector<std::string> known) : zones_(std::move(known)) {}
    Formatting& formatting() override { return zones_; }

private:
    FewZones zones_;
};

std::vector<std::string> cities(const TimeManager& manager) {
    std::vector<std::string> names;
    for (const auto& entry : manager.surroundingTimezones())
        names.push_back(entry.cityName);
    return names;
}

using Cities = std::vector<std::string>;

/// 2026-01-15 07:00 in New York.
class TimeManagerTest : public testing::Test {
protected:
    void moveTo(const char* zone) { platform.formattingPort.setCurrentTimeZone(zone); }

    SimulatedPlatform platform;
    SimulatedRunLoop& runLoop = platform.runLoopPort;
    TimeManager manager{platform};
};

} // namespace

TEST_F(TimeManagerTest, InKolkataTheLabelReadsUTCPlus5And30) {
    moveTo("Asia/Kolkata");
    EXPECT_EQ(manager.localTimezoneString(), "India Standard Time (UTC+5:30)");
}

TEST_F(TimeManagerTest, InNewYorkTheLabelReadsMinus5InWinterAndMinus4InSummer) {
    EXPECT_EQ(manager.localTimezoneString(), "Eastern Standard Time (UTC-5)");
    manager.currentTime = runLoop.now() + toJuly;
    EXPECT_EQ(manager.localTimezoneString(), "Eastern Standard Time (UTC-4)");
}

TEST_F(TimeManagerTest, NewYorkItselfDropsFromTheRowThere) {
    EXPECT_EQ(cities(manager),
              (Cities{"Los Angeles", "Denver", "Chicago", "Halifax", "São Paulo"}));
    manager.currentTime = runLoop.now() + toJuly;
    EXPECT_EQ(cities(manager),
              (Cities{"Los Angeles", "Denver", "Chicago", "Halifax", "São Paulo"}));
}

TEST_F(TimeManagerTest, CitiesAtTheUsersOffsetOfTheMomentDropFromTheRow) {
    moveTo("America/Phoenix"); // level with Denver in winter, with Los Angeles in summer
    EXPECT_EQ(cities(manager),
              (Cities{"Honolulu", "Anchorage", "Los Angeles", "Chicago", "New York"}));
    manager.currentTime = runLoop.now() + toJuly;
    EXPECT_EQ(cities(manager), (Cities{"Honolulu", "Anchorage", "Denver", "Chicago", "New York"}));
}

TEST(TimeManager, FewerThanFiveKnownCandidatesGiveAShorterRow) {
    PlatformOfFewZones platform(
        {"Asia/Tokyo", "America/New_York", "America/Chicago", "Europe/London"});
    const TimeManager manager(platform);
    EXPECT_EQ(cities(manager), (Cities{"Chicago", "London", "Tokyo"}));
}

TEST(TimeManager, AnEmptyRowWhenNoCandidateIsKnown) {
    PlatformOfFewZones platform({});
    EXPECT_TRUE(TimeManager(platform).surroundingTimezones().empty());
}

TEST_F(TimeManagerTest, HoldsExactlyFiveEntriesWhenAllZonesAreKnown) {
    for (const auto* zone : {"America/New_York", "Pacific/Honolulu", "Pacific/Kiritimati",
                             "Europe/Berlin", "Asia/Kathmandu", "UTC"}) {
        moveTo(zone);
        EXPECT_EQ(manager.surroundingTimezones().size(), 5u) << zone;
    }
}

TEST_F(TimeManagerTest, AtATieTheEarlierCandidateComesFirst) {
    moveTo("Asia/Dubai"); // Cairo and Dhaka both lie two hours away, for one place in the row
    EXPECT_EQ(cities(manager), (Cities{"Cairo", "Istanbul", "Moscow", "Karachi", "Kolkata"}));
}

TEST_F(TimeManagerTest, EntriesCarryZoneAndIdentifier) {
    const auto entry = manager.surroundingTimezones().back();
    EXPECT_EQ(entry.id, "America/Sao_Paulo");
    EXPECT_EQ(entry.timeZone, (TimeZone{"America/Sao_Paulo"}));
}

TEST(TimeManager, AZoneWithoutANameReadsAsItsIdentifier) {
    PlatformOfFewZones platform({});
    EXPECT_EQ(TimeManager(platform).localTimezoneString(), "America/New_York (UTC-5)");
}

TEST_F(TimeManagerTest, LocalTextsFollowTheirPatternsInTheCurrentZone) {
    manager.currentTime = runLoop.now() + 125;
    EXPECT_EQ(manager.compactTimeString(), "7:02 AM");
    EXPECT_EQ(manager.localTimeString(), "7:02:05 AM");
    EXPECT_EQ(manager.localDateString(), "Thursday, January 15");
    moveTo("Asia/Tokyo");
    EXPECT_EQ(manager.compactTimeString(), "9:02 PM");
}

TEST_F(TimeManagerTest, BeginsWithTheTimeOfItsMakingAndAsksNothing) {
    EXPECT_EQ(manager.currentTime.get(), runLoop.now());
    EXPECT_TRUE(manager.isEnabled);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(TimeManagerTest, StartSetsTheTimeAtOnceAndThenEachSecond) {
    runLoop.advance(10);
    manager.start();
    EXPECT_EQ(manager.currentTime.get(), runLoop.now());
    const auto started = runLoop.now();
    runLoop.advance(0.9);
    EXPECT_EQ(manager.currentTime.get(), started);
    runLoop.advance(0.1);
    EXPECT_EQ(manager.currentTime.get(), started + 1);
    runLoop.advance(4);
    EXPECT_EQ(manager.currentTime.get(), started + 5);
}

TEST_F(TimeManagerTest, StartWhileSwitchedOffTicksNot) {
    const auto made = manager.currentTime.get();
    runLoop.advance(10);
    manager.isEnabled = false;
    manager.start();
    runLoop.advance(10);
    EXPECT_EQ(manager.currentTime.get(), made);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(TimeManagerTest, ASecondStartReplacesTheTimer) {
    manager.start();
    manager.start();
    EXPECT_EQ(runLoop.timerCount(), 1u);
}

TEST_F(TimeManagerTest, WithoutItsTimerItStandsStillUntilTheNextStart) {
    manager.start();
    manager.timer.reset();
    const auto stopped = manager.currentTime.get();
    runLoop.advance(10);
    EXPECT_EQ(manager.currentTime.get(), stopped);
    manager.start();
    EXPECT_EQ(manager.currentTime.get(), runLoop.now());
}

TEST(TimeManager, TheTimerEndsWithTheManager) {
    SimulatedPlatform platform;
    std::optional<TimeManager> manager(std::in_place, platform);
    manager->start();
    manager.reset();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}
