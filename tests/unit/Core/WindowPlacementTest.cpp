#include "Core/WindowPlacement.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(WindowPlacementTest, AWindowStandsInTheMiddleWhereThatIsClear) {
    EXPECT_EQ(windowTop(500, {0, 982}, 220), 241);
    EXPECT_EQ(windowTop(500, {28, 1080}, 220), 304);
    EXPECT_EQ(windowTop(500, {0, 940}, 220), 220);
}

TEST(WindowPlacementTest, ItGoesBeneathWhatIsToStayClearWhereThereIsRoom) {
    EXPECT_EQ(windowTop(540, {0, 768}, 220), 220);
    EXPECT_EQ(windowTop(540, {28, 760}, 220), 220);
}

TEST(WindowPlacementTest, WithoutRoomBeneathItStandsInTheMiddle) {
    EXPECT_EQ(windowTop(540, {0, 600}, 220), 30);
    EXPECT_EQ(windowTop(540, {0, 759}, 220), 109.5);
}

TEST(WindowPlacementTest, OneHigherThanTheScreenKeepsItsTitleBarInSight) {
    EXPECT_EQ(windowTop(540, {28, 500}, 220), 28);
}

} // namespace
} // namespace orvelle
