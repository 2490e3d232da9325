#include "Platform/Linux/WheelGathering.h"
#include "adapters/QtTest.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <vector>

namespace orvelle {
namespace {

/// A window needs the application object of a platform that has windows.
struct WheelGatheringTest : ::testing::Test {
    WheelGatheringTest() {
        window.resize(566, 220);
        otherWindow.resize(100, 100);
    }

    void scroll(QWindow& target, QPoint units, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
        gathering.add(target, QWheelEvent(QPointF(100, 60), QPointF(573, 60), {}, units,
                                          Qt::NoButton, Qt::NoModifier, phase, false));
    }

    int argumentCount = 3;
    char name[8] = "orvelle", option[10] = "-platform", platform[10] = "offscreen";
    char* arguments[4] = {name, option, platform, nullptr};
    QGuiApplication guiApplication{argumentCount, arguments};
    QWindow window;
    QWindow otherWindow;
    std::vector<ScrollEvent> events;
    WheelGathering gathering{[this](const ScrollEvent& event) { events.push_back(event); }};
};

TEST_F(WheelGatheringTest, ANotchDownCountsTwentyPointsDownward) {
    scroll(window, {0, -120});
    EXPECT_TRUE(events.empty());
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events[0].scrollingDeltaY, 20);
    EXPECT_EQ(events[0].scrollingDeltaX, 0);
    EXPECT_EQ(events[0].locationInWindow, (Point{100, 160}));
    EXPECT_EQ(events[0].momentumPhase, MomentumPhase::none);
    EXPECT_EQ(events[0].panel, nullptr);
}

TEST_F(WheelGatheringTest, ANotchToTheRightIsPositive) {
    scroll(window, {-120, 0});
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events[0].scrollingDeltaX, 20);
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
