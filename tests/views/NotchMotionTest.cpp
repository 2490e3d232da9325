#include "Core/Animation/NotchAnimator.h"
#include "Views/Qt/NotchShapeItem.h"
#include "views/Motion.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace orvelle {

namespace {

using State = NotchExpandedState;

const char* nameOf(State state) {
    switch (state) {
    case State::collapsed:
        return "Collapsed";
    case State::hovering:
        return "Hovering";
    case State::expanded:
        return "Expanded";
    case State::fullExpanded:
        break;
    }
    return "FullExpanded";
}

bool isWithin(double value, double one, double other) {
    return value >= std::min(one, other) - 0.01 && value <= std::max(one, other) + 0.01;
}

} // namespace

/// Each change of state, frame by frame.
class NotchMotionTest : public Motion, public testing::WithParamInterface<std::pair<State, State>> {
protected:
    State from() const { return GetParam().first; }
    State to() const { return GetParam().second; }
};

INSTANTIATE_TEST_SUITE_P(, NotchMotionTest,
                         testing::Values(std::pair{State::collapsed, State::hovering},
                                         std::pair{State::hovering, State::collapsed},
                                         std::pair{State::hovering, State::expanded},
                                         std::pair{State::expanded, State::hovering},
                                         std::pair{State::collapsed, State::expanded},
                                         std::pair{State::expanded, State::collapsed},
                                         std::pair{State::fullExpanded, State::collapsed}),
                         [](const auto& change) {
                             return std::string(nameOf(change.param.first)) + "To" +
                                    nameOf(change.param.second);
                         });

TEST_P(NotchMotionTest, everythingStandsInItsPlaceInEveryFrameUntilItHasFaded) {
    rest(to());
    auto settled = places();
    rest(from());
    settled.merge(places());

    std::set<std::string> seen;
    int frames = 0;
    move(to(), [&] {
        ++frames;
        for (const auto& [name, place] : places()) {
            EXPECT_EQ(place, settled[name]) << name << " in frame " << frames;
            seen.insert(name);
        }
    });
    const auto has = [&](State state) { return from() == state || to() == state; };
    EXPECT_EQ(seen.contains("widget.battery"), has(State::hovering));
    EXPECT_EQ(seen.contains("tab.media"), has(State::expanded) || has(State::fullExpanded));
}

TEST_P(NotchMotionTest, noTabsOverlapInAnyFrame) {
    rest(from());
    move(to(), [&] {
        QRectF before;
        for (const auto panel : panelOrder.visiblePanels()) {
            const auto tab = frameOf("tab." + QString::fromStdString(std::string(rawValue(panel))));
            if (tab.isNull())
                continue;
            EXPECT_GT(tab.width(), 20);
            EXPECT_TRUE(before.isNull() || tab.left() >= before.right() + 3);
            before = tab;
        }
    });
}

TEST_P(NotchMotionTest, theBodyIsFilledAndNothingIsPaintedBesideIt) {
    rest(from());
    int frames = 0;
    move(to(), [&] {
        ++frames;
        EXPECT_EQ(strayPixels(), 0) << "in frame " << frames;
        EXPECT_TRUE(isBodyFilled()) << "in frame " << frames;
    });
    EXPECT_GT(frames, 20);
}

TEST_P(NotchMotionTest, theShapeOnlyGrowsOrOnlyShrinks) {
    rest(from());
    const auto start = frameOf("shape").size();
    rest(to());
    const auto end = frameOf("shape").size();
    rest(from());
    QSizeF last = start;
    move(to(), [&] {
        const auto size = frameOf("shape").size();
        EXPECT_TRUE(isWithin(size.width(), last.width(), end.width()));
        EXPECT_TRUE(isWithin(size.height(), last.height(), end.height()));
        last = size;
    });
    EXPECT_EQ(last, end);
}

/// What is not bound to one change of state.
class NotchMotionOnTheWayTest : public Motion {
protected:
    void expectNothingBesideTheBody() {
        EXPECT_EQ(strayPixels(), 0);
        EXPECT_TRUE(isBodyFilled());
    }
};

TEST_F(NotchMotionOnTheWayTest, changesOnTheWayPaintNothingBesideTheBodyEither) {
    rest(State::collapsed);
    for (const auto state : {State::expanded, State::hovering, State::expanded, State::collapsed,
                             State::hovering, State::collapsed}) {
        notchState.expandedState = state;
        for (int count = 0; count < 9; ++count) {
            turn();
            frame();
            expectNothingBesideTheBody();
        }
    }
    move(State::collapsed, [&] { expectNothingBesideTheBody(); });
}

TEST_F(NotchMotionOnTheWayTest, aShapeThatSwingsPastItsSizeKeepsItsContentInside) {
    rest(State::expanded);
    notchState.expandedState = State::hovering;
    turn();
    double least = 1000;
    for (int count = 0; count < 16; ++count)
        frame();
    const double onTheWay = frameOf("shape").width();
    move(State::collapsed, [&] {
        least = std::min(least, frameOf("shape").width());
        expectNothingBesideTheBody();
    });
    EXPECT_LT(onTheWay, 540);
    EXPECT_LE(least, 180);
}

TEST_F(NotchMotionOnTheWayTest, aLevelDisplayIsCutToTheClosedNotchToo) {
    rest(State::collapsed);
    notchState.hudType = HUDType::volume;
    notchState.hudValue = 1;
    notchState.isHUDVisible = true;
    for (int count = 0; count < 40; ++count) {
        turn();
        frame();
        EXPECT_EQ(strayPixels(), 0);
    }
    EXPECT_EQ(item("hud")->parentItem()->opacity(), 1);
}

TEST_F(NotchMotionOnTheWayTest, theHighlightGoesFromTabToTabAsThePanelsSlide) {
    platform.appearancePort.accent = Color{1, 0, 0, 1};
    platform.appearancePort.notifyChanged();
    rest(State::expanded);
    const auto highlight = [&](const char* tab) {
        return item(tab)->property("color").value<QColor>().alphaF();
    };
    click("tab.time");
    double last = 0;
    int between = 0;
    // A movement may begin a little before the frame in which it is first seen.
    for (int milliseconds = frameTime; milliseconds <= 240; milliseconds += frameTime) {
        frame();
        const double reached =
            1 + NotchAnimator::panelSwitch.at(milliseconds / 1000.0, {-1, 0}).displacement;
        EXPECT_NEAR(highlight("tab.time"), 0.2 * std::min(1.0, reached), 0.005);
        EXPECT_NEAR(highlight("tab.systemMonitor"), 0.2 - highlight("tab.time"), 0.003);
        EXPECT_NEAR(item(item("tab.time"), "activeSymbol")->opacity(), std::min(1.0, reached),
                    0.025);
        EXPECT_GE(highlight("tab.time"), last - 0.001);
        last = highlight("tab.time");
        between += last > 0.02 && last < 0.18;
    }
    EXPECT_GT(between, 5);
    while (isMoving())
        frame();
    EXPECT_EQ(item("tab.time")->property("color").value<QColor>().rgba(), qRgba(255, 0, 0, 51));
    EXPECT_EQ(highlight("tab.systemMonitor"), 0);
}

TEST_F(NotchMotionOnTheWayTest, aPanelThatLeavesStaysWithTheEdgeThatItWasGiven) {
    rest(State::expanded);
    click("tab.time");
    while (isMoving())
        frame();
    const auto* panel = item("panels")->property("panel").value<QQuickItem*>();
    click("tab.time"); // turns the edge, and shows no other panel
    for (int count = 0; count < 20; ++count) {
        frame();
        EXPECT_EQ(item("panels")->property("panel").value<QQuickItem*>(), panel);
        EXPECT_FALSE(item("panels")->property("running").toBool());
    }
}

} // namespace orvelle
