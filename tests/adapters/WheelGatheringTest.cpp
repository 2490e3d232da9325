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

    void scroll(QWindow& target, QPoint units, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
        QWheelEvent step(QPointF(100, 60), QPointF(573, 60), {}, units, Qt::NoButton,
                         Qt::NoModifier, phase, false);
        step.setTimestamp(time);
        gathering.add(target, step);
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
    WheelGathering gathering{[this](const ScrollEvent& event) { events.push_back(event); }};
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

} // namespace
} // namespace orvelle
