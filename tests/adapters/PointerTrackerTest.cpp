#include "Platform/Linux/PointerTracker.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using enum PointerTracker::Crossing;

constexpr Rect small{{666, 950}, {180, 32}};
constexpr Rect large{{473, 762}, {566, 220}};
constexpr Point onSmall{700, 970};
constexpr Point onLargeOnly{700, 800};
constexpr Point elsewhere{100, 100};

struct PointerTrackerTest : ::testing::Test {
    PointerTrackerTest() { tracker.frameChanged(small, elsewhere); }
    PointerTracker tracker;
};

TEST_F(PointerTrackerTest, TellsOfEachCrossingOnce) {
    EXPECT_EQ(tracker.reportedInside(onSmall), entered);
    EXPECT_EQ(tracker.reportedInside({701, 970}), none);
    EXPECT_EQ(tracker.reportedOutside(elsewhere), exited);
    EXPECT_EQ(tracker.reportedOutside(elsewhere), none);
}

TEST_F(PointerTrackerTest, AJumpToALargerFrameGivesNeither) {
    tracker.reportedInside(onSmall);
    tracker.frameChanged(large, onSmall);
    EXPECT_EQ(tracker.reportedOutside(onSmall), none);
    EXPECT_EQ(tracker.reportedInside(onSmall), none);
    EXPECT_EQ(tracker.reportedOutside(elsewhere), exited);
}

TEST_F(PointerTrackerTest, AFrameThatGrowsUnderARestingPointerWaitsForItToMove) {
    tracker.frameChanged(large, onLargeOnly);
    EXPECT_EQ(tracker.reportedInside(onLargeOnly), none);
    EXPECT_EQ(tracker.reportedInside({701, 800}), entered);
}

TEST_F(PointerTrackerTest, AFrameThatShrinksAwayFromARestingPointerGivesNoExit) {
    tracker.frameChanged(large, elsewhere);
    tracker.reportedInside(onLargeOnly);
    tracker.frameChanged(small, onLargeOnly);
    EXPECT_EQ(tracker.reportedOutside(onLargeOnly), none);
    EXPECT_EQ(tracker.reportedInside(onSmall), entered);
}

TEST_F(PointerTrackerTest, APointerThatLeftBeforeTheFrameGrewStillExits) {
    tracker.reportedInside(onSmall);
    tracker.frameChanged(large, elsewhere);
    EXPECT_EQ(tracker.reportedOutside(elsewhere), exited);
}

TEST_F(PointerTrackerTest, StaysUnsureWhileThePointerIsInTheFrameButNotOnTheWindow) {
    tracker.frameChanged(large, elsewhere);
    tracker.reportedInside(onSmall);
    EXPECT_EQ(tracker.reportedOutside(onLargeOnly), none);
    EXPECT_TRUE(tracker.isUnsure());
    EXPECT_EQ(tracker.reportedOutside(elsewhere), exited);
    EXPECT_FALSE(tracker.isUnsure());
}

TEST_F(PointerTrackerTest, AWindowThatIsTakenAwayForgetsThePointer) {
    tracker.reportedInside(onSmall);
    tracker.frameChanged({}, onSmall);
    EXPECT_EQ(tracker.reportedOutside(elsewhere), none);
    tracker.frameChanged(small, elsewhere);
    EXPECT_EQ(tracker.reportedInside(onSmall), entered);
}

} // namespace
} // namespace orvelle
