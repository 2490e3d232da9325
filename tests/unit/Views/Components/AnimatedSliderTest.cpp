#include "Views/Components/AnimatedSlider.h"

#include "Features/Battery/BatteryPanelView.h"
#include "Views/NotchContentView.h"
#include "unit/Views/NotchManagers.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

AnimatedSlider slider(double value) {
    return {.value = value, .lowerBound = 20, .upperBound = 60, .height = 6};
}

TEST(AnimatedSliderTest, TheFractionStaysBetweenTheEnds) {
    EXPECT_EQ(slider(30).fraction(), 0.25);
    EXPECT_EQ(slider(0).fraction(), 0);
    EXPECT_EQ(slider(99).fraction(), 1);
    EXPECT_EQ(slider(30).fillWidth(200), 50);
}

TEST(AnimatedSliderTest, ADragBeyondEitherEndStopsAtTheBound) {
    EXPECT_EQ(slider(30).valueAt(-40, 200), 20);
    EXPECT_EQ(slider(30).valueAt(50, 200), 30);
    EXPECT_EQ(slider(30).valueAt(200, 200), 60);
    EXPECT_EQ(slider(30).valueAt(1000, 200), 60);
}

TEST(AnimatedSliderTest, EveryCallersRangeHasAWidth) {
    NotchManagers managers;
    managers.notchState.hudType = HUDType::volume;
    managers.notchState.isHUDVisible = true;
    const NotchContentView content(managers.environment(), {}, managers.platform);
    const BatteryPanelView battery(managers.batteryManager, managers.platform);
    for (const auto& used : {content.hudOverlay()->slider, battery.level().value()})
        EXPECT_GT(used.upperBound, used.lowerBound);
}

TEST(AnimatedSliderTest, TheThumbIsCentredOnTheLevelAndGrowsWhileItIsDragged) {
    EXPECT_EQ(slider(30).thumbDiameter(), 15);
    EXPECT_EQ(slider(30).thumbOffset(200), 50 - 7.5);
    EXPECT_EQ(AnimatedSlider::thumbScale(false), 1.0);
    EXPECT_EQ(AnimatedSlider::thumbScale(true), 1.2);
}

} // namespace
} // namespace orvelle
