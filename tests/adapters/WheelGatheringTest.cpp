#include "Platform/Linux/WheelGathering.h"

#include "adapters/EventLoopWait.h"

#include <QWheelEvent>
#include <QWindow>

#include <gtest/gtest.h>

#include <vector>

namespace orvelle {
namespace {

struct WheelGatheringTest : ::testing::Test {
    WheelGatheringTest() {
        window.resize(566, 220);
        otherWindow.resize(100, 100);
    }

    bool scroll(QWindow& target, QPoint units, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
        QWheelEvent step(QPointF(100, 60), QPointF(573, 60), {}, units, Qt::NoButton,
                         Qt::NoModifier, phase, false);
        step.setTimestamp(time);
        return gathering.add(target, step);
    }
    /// Notches of a wheel this long after each other; gives what each of them reported.
    std::vector<double> turn(std::vector<QPoint> notches, quint64 pause) {
        std::vector<double> reported;
        for (const auto& notch : notches) {
            events.clear();
            scroll(window, notch * 120);
            EXPECT_EQ(events.size(), 1u) << "at once";
            if (!events.empty())
                reported.push_back(events[0].scrollingDeltaX + events[0].scrollingDeltaY);
            time += pause;
        }
        return reported;
    }

    quint64 time = 5'000; ///< the display server's, in milliseconds
    QWindow window;
    QWindow otherWindow;
    std::vector<ScrollEvent> events;
    /// What the window under the pointer can scroll, and by what it did.
    WheelGathering::Answer answer = WheelGathering::Answer::notAsked;
    std::vector<int> scrolled;
    WheelGathering gathering{[this](const ScrollEvent& event) { events.push_back(event); },
                             [this](const QWindow&, const QWheelEvent& step) {
                                 ++asked;
                                 if (answer == WheelGathering::Answer::scrolled)
                                     scrolled.push_back(step.angleDelta().y());
                                 return answer;
                             }};
    int asked = 0;
};

TEST_F(WheelGatheringTest, ANotchDownCountsTwentyPointsDownwardAtOnce) {
    scroll(window, {0, -120});
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].scrollingDeltaY, 20);
    EXPECT_EQ(events[0].scrollingDeltaX, 0);
    EXPECT_EQ(events[0].locationInWindow, (Point{100, 160}));
    EXPECT_EQ(events[0].momentumPhase, MomentumPhase::none);
    EXPECT_EQ(events[0].panel, nullptr);
}

TEST_F(WheelGatheringTest, ANotchToTheRightIsPositive) {
    scroll(window, {-120, 0});
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].scrollingDeltaX, 20);
    EXPECT_EQ(events[0].scrollingDeltaY, 0);
}

using Sums = std::vector<double>;

TEST_F(WheelGatheringTest, NotchesInOneDirectionAreOneStrokeWhoseSumEachReports) {
    EXPECT_EQ(turn({{0, 1}, {0, 1}, {0, 1}}, 249), (Sums{-20, -40, -60}));
}

TEST_F(WheelGatheringTest, TiltsOfTheWheelAddUpLikeTurns) {
    EXPECT_EQ(turn({{1, 0}, {1, 0}, {1, 0}}, 200), (Sums{-20, -40, -60}));
}

TEST_F(WheelGatheringTest, APauseBeginsAnotherStroke) {
    EXPECT_EQ(turn({{0, 1}, {0, 1}}, 250), (Sums{-20, -20}));
}

TEST_F(WheelGatheringTest, ThePauseCountsFromTheLatestNotch) {
    EXPECT_EQ(turn({{0, 1}, {0, 1}, {0, 1}, {0, 1}}, 200), (Sums{-20, -40, -60, -80}));
}

TEST_F(WheelGatheringTest, AnotherDirectionBeginsAnotherStroke) {
    EXPECT_EQ(turn({{0, 1}, {0, 1}, {0, -1}, {0, 1}}, 10), (Sums{-20, -40, 20, -20}));
    time += 1'000;
    EXPECT_EQ(turn({{0, 1}, {1, 0}, {0, 1}}, 10), (Sums{-20, -20, -20}));
}

TEST_F(WheelGatheringTest, AnotherWindowBeginsAnotherStroke) {
    turn({{0, 1}, {0, 1}}, 10);
    events.clear();
    scroll(otherWindow, {0, 120});
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].scrollingDeltaY, -20);
}

TEST_F(WheelGatheringTest, SeveralNotchesInOneStepCountAllOfThem) {
    EXPECT_EQ(turn({{0, 2}, {0, 1}}, 10), (Sums{-40, -60}));
}

TEST_F(WheelGatheringTest, AFastStepOfATouchpadIsNoNotch) {
    scroll(window, {0, 90});
    scroll(window, {0, 120});
    EXPECT_TRUE(events.empty());
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_DOUBLE_EQ(events[0].scrollingDeltaY, -35);
    time += 100;
    scroll(window, {0, 240});
    EXPECT_EQ(events.size(), 1u) << "the same stroke of the fingers";
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_DOUBLE_EQ(events[1].scrollingDeltaY, -40);
}

TEST_F(WheelGatheringTest, AWheelTurnedAfterATouchpadCountsByItsNotches) {
    scroll(window, {0, 90});
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    time += 250;
    EXPECT_EQ(turn({{0, 1}, {0, 1}}, 100), (Sums{-20, -40}));
}

TEST_F(WheelGatheringTest, SmoothStepsSumToOneEvent) {
    for (int step = 0; step < 6; ++step)
        scroll(window, {0, 18});
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events.size(), 1u);
    EXPECT_DOUBLE_EQ(events[0].scrollingDeltaY, -18);
}

TEST_F(WheelGatheringTest, InertiaIsMarkedAndKeptApart) {
    scroll(window, {0, -60});
    scroll(window, {0, -30}, Qt::ScrollMomentum);
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events[0].scrollingDeltaY, 10);
    EXPECT_EQ(events[0].momentumPhase, MomentumPhase::none);
    EXPECT_EQ(events[1].scrollingDeltaY, 5);
    EXPECT_EQ(events[1].momentumPhase, MomentumPhase::changed);
}

TEST_F(WheelGatheringTest, EachWindowGathersForItself) {
    scroll(window, {0, -60});
    scroll(otherWindow, {0, -120});
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events[0].scrollingDeltaY, 10);
    EXPECT_EQ(events[1].scrollingDeltaY, 20);
    EXPECT_EQ(events[1].locationInWindow.y, 40);
}

TEST_F(WheelGatheringTest, StepsThatCancelOutGiveNothing) {
    scroll(window, {0, -60});
    scroll(window, {0, 60});
    scroll(otherWindow, {0, -120});
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].scrollingDeltaY, 20);
}

struct ScrollingWindowTest : WheelGatheringTest {
    using Answer = WheelGathering::Answer;
    using Units = std::vector<int>;

    /// One step, `pause` after the one before.
    bool step(QPoint units, quint64 pause = 20) {
        time += pause;
        return scroll(window, units);
    }
    /// Whether nothing comes of what was gathered.
    bool isNoStroke() {
        gathering.add(otherWindow, QWheelEvent({}, {}, {}, {0, -30}, Qt::NoButton, Qt::NoModifier,
                                               Qt::NoScrollPhase, false));
        EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
        return events.size() == 1 && events[0].scrollingDeltaY == 5;
    }
};

TEST_F(ScrollingWindowTest, ATurnThatScrollsIsNoStroke) {
    answer = Answer::scrolled;
    EXPECT_TRUE(step({0, 120}));
    EXPECT_EQ(scrolled, Units{120});
    EXPECT_TRUE(events.empty());
}

TEST_F(ScrollingWindowTest, AStrokeThatBeganByScrollingEndsSoAtTheEndToo) {
    answer = Answer::scrolled;
    step({0, 120});
    answer = Answer::nothingToScroll;
    EXPECT_TRUE(step({0, 120}, 249));
    EXPECT_TRUE(step({0, 120}, 249));
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(asked, 3) << "there may be more to scroll by then";
    step({0, 120}, 250);
    ASSERT_EQ(events.size(), 1u) << "another stroke";
    EXPECT_EQ(events[0].scrollingDeltaY, -20) << "of which that is the first turn";
}

TEST_F(ScrollingWindowTest, ATurnBackIsAnotherStroke) {
    answer = Answer::scrolled;
    step({0, -120});
    answer = Answer::nothingToScroll;
    step({0, 120});
    EXPECT_EQ(events.size(), 1u);
}

TEST_F(ScrollingWindowTest, AStrokeThatScrolledNothingScrollsNothingLater) {
    answer = Answer::nothingToScroll;
    EXPECT_TRUE(step({0, -120})) << "the items hear nothing of it";
    answer = Answer::scrolled;
    EXPECT_TRUE(step({0, -120}, 200));
    EXPECT_TRUE(scrolled.empty());
    EXPECT_EQ(events.size(), 2u);
    step({0, -120}, 250);
    EXPECT_EQ(scrolled, Units{-120});
    EXPECT_EQ(events.size(), 2u);
}

TEST_F(ScrollingWindowTest, TurnsSidewaysAreLeftToTheItems) {
    answer = Answer::scrolled;
    EXPECT_FALSE(step({120, 0}));
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(events.size(), 1u);
}

TEST_F(ScrollingWindowTest, WhatIsNotAskedHearsEverything) {
    EXPECT_FALSE(step({0, 120}));
    EXPECT_FALSE(step({0, 120}));
    EXPECT_EQ(events.size(), 2u);
}

TEST_F(ScrollingWindowTest, FingersThatScrollMakeNoStroke) {
    answer = Answer::scrolled;
    for (int count = 0; count < 30; ++count)
        EXPECT_TRUE(step({0, 60}));
    answer = Answer::nothingToScroll;
    for (int count = 0; count < 30; ++count)
        EXPECT_TRUE(step({0, 60}));
    EXPECT_TRUE(isNoStroke());
}

TEST_F(ScrollingWindowTest, FingersThatWaverGoOnScrolling) {
    answer = Answer::scrolled;
    EXPECT_FALSE(step({4, 1})) << "it may become a stroke to the side";
    EXPECT_TRUE(step({1, 60}));
    answer = Answer::nothingToScroll;
    EXPECT_TRUE(step({9, 0}));
    EXPECT_TRUE(step({9, 2}));
    EXPECT_TRUE(step({0, 60}));
    EXPECT_EQ(scrolled, Units{60});
    events.clear();
    EXPECT_TRUE(isNoStroke());
}

TEST_F(ScrollingWindowTest, AStrokeOfFingersToTheSideIsNotTurnedUpwards) {
    answer = Answer::scrolled;
    for (int count = 0; count < 5; ++count) {
        EXPECT_FALSE(step({30, 2}));
        EXPECT_FALSE(step({1, 5}));
    }
    EXPECT_EQ(asked, 0);
}

} // namespace
} // namespace orvelle
