#include "Views/Components/AnimatedSlider.h"

#include "Features/Battery/BatteryPanelView.h"
#include "Support/ViewFixture.h"
#include "Views/NotchContentView.h"

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

TEST(AnimatedSliderTest, TheLevelIsSaidInWholePercentOfTheRange) {
    EXPECT_EQ(slider(30).levelText(), "25%");
    EXPECT_EQ(slider(99).levelText(), "100%");
    EXPECT_EQ(slider(33.3).levelText(), "33%");
}

TEST(AnimatedSliderTest, ADragBeyondEitherEndStopsAtTheBound) {
    EXPECT_EQ(slider(30).valueAt(-40, 200), 20);
    EXPECT_EQ(slider(30).valueAt(50, 200), 30);
    EXPECT_EQ(slider(30).valueAt(200, 200), 60);
    EXPECT_EQ(slider(30).valueAt(1000, 200), 60);
}

using AnimatedSliderCallersTest = ViewFixture;

TEST_F(AnimatedSliderCallersTest, EveryRangeHasAWidth) {
    app.notchState.hudType = HUDType::volume;
    app.notchState.isHUDVisible = true;
    const NotchContentView content(app.environment(), {}, platform);
    const BatteryPanelView battery(app.batteryManager, platform);
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
