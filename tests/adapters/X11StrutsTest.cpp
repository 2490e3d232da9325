#include "Platform/Linux/X11Struts.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

constexpr QRect left{0, 0, 1512, 982};
constexpr QRect right{1512, 0, 1920, 1080};
constexpr QSize display{3432, 1080};

TEST(X11Struts, ABarAtTheTopTakesItsHeightFromItsOwnScreenAlone) {
    const X11Strut bar{.top = 28, .topX = {0, 1511}};
    EXPECT_EQ(withoutStruts(left, display, {bar}), QRect(0, 28, 1512, 954));
    EXPECT_EQ(withoutStruts(right, display, {bar}), right);
}

TEST(X11Struts, DepthsCountFromTheDisplaysEdges) {
    const QRect below{0, 982, 1512, 800};
    const QSize tall{1512, 1782};
    const X11Strut bar{.top = 1010, .topX = {0, 1511}};
    EXPECT_EQ(withoutStruts(below, tall, {bar}), QRect(0, 1010, 1512, 772));

    const X11Strut dock{.bottom = 60, .bottomX = {0, 1511}};
    EXPECT_EQ(withoutStruts(left, tall, {dock}), left);
    EXPECT_EQ(withoutStruts(below, tall, {dock}), QRect(0, 982, 1512, 740));
}

TEST(X11Struts, SidesAndSeveralBarsAddUp) {
    const X11Strut launcher{.left = 70, .leftY = {0, 1079}};
    const X11Strut side{.right = 40, .rightY = {0, 1079}};
    const X11Strut top{.top = 20, .topX = {0, 3431}};
    EXPECT_EQ(withoutStruts(left, display, {launcher, side, top}), QRect(70, 20, 1442, 962));
    EXPECT_EQ(withoutStruts(right, display, {launcher, side, top}), QRect(1512, 20, 1880, 1060));
}

TEST(X11Struts, AStrutThatWouldLeaveNothingIsIgnored) {
    const X11Strut all{.top = 5000, .topX = {0, 1511}};
    EXPECT_EQ(withoutStruts(left, display, {all}), left);
}

} // namespace
} // namespace orvelle
