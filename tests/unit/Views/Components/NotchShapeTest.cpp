#include "Views/Components/NotchShape.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvelle {
namespace {

using PathKind = PathElement::Kind;

constexpr Rect bounds{{0, 0}, {200, 100}};

TEST(NotchShapeTest, ThePathRunsClockwiseFromTheTopLeft) {
    const std::vector<PathElement> expected{
        {PathKind::move, {0, 0}, {}},
        {PathKind::line, {200, 0}, {}},
        {PathKind::quadCurve, {192, 14}, {192, 0}},
        {PathKind::line, {192, 88}, {}},
        {PathKind::arc, {180, 100}, {192, 100}, 12},
        {PathKind::line, {20, 100}, {}},
        {PathKind::arc, {8, 88}, {8, 100}, 12},
        {PathKind::line, {8, 14}, {}},
        {PathKind::quadCurve, {0, 0}, {8, 0}},
        {PathKind::close, {0, 0}, {}},
    };
    EXPECT_EQ((NotchShape{12, 14, 8}.path(bounds)), expected);
}

TEST(NotchShapeTest, AnInsetOfExactlyHalfAPointIsStraightAndAboveItCurves) {
    const auto straight = NotchShape{12, 14, 0.5}.path(bounds);
    EXPECT_EQ(straight[2], (PathElement{PathKind::line, {200, 14}, {}}));
    EXPECT_EQ(straight[8], (PathElement{PathKind::line, {0, 0}, {}}));

    const auto curved = NotchShape{12, 14, 0.51}.path(bounds);
    EXPECT_EQ(curved[2].kind, PathKind::quadCurve);
    EXPECT_EQ(curved[8].kind, PathKind::quadCurve);
}

TEST(NotchShapeTest, ARectLowerThanFlareAndCornersIsStillDrawn) {
    const auto path = NotchShape{12, 14, 8}.path({{0, 0}, {60, 10}});
    ASSERT_EQ(path.size(), 10u);
    EXPECT_EQ(path.back().kind, PathKind::close);
    for (const auto& element : path)
        EXPECT_TRUE(std::isfinite(element.end.x) && std::isfinite(element.end.y));
}

TEST(NotchShapeTest, WithoutInsetTheSidesAreThoseOfTheRect) {
    const auto path = NotchShape{12, 14, 0}.path({{10, 20}, {100, 50}});
    EXPECT_EQ(path[3], (PathElement{PathKind::line, {110, 58}, {}}));
    EXPECT_EQ(path[7], (PathElement{PathKind::line, {10, 34}, {}}));
}

TEST(NotchShapeTest, ContentEndsWhereTheRoundCornersWouldLetItOut) {
    const auto content = NotchShape{12, 14, 8}.contentRect({{10, 20}, {100, 60}});
    const double margin = 12 - 12 / std::sqrt(2.0);
    EXPECT_NEAR(content.minX(), 10 + 8 + margin, 1e-9);
    EXPECT_NEAR(content.maxX(), 110 - 8 - margin, 1e-9);
    EXPECT_EQ(content.minY(), 20);
    EXPECT_NEAR(content.maxY(), 80 - margin, 1e-9);
    // The corner of the content lies on the arc.
    EXPECT_NEAR(std::hypot(content.minX() - (10 + 8 + 12), content.maxY() - (80 - 12)), 12, 1e-9);
}

TEST(NotchShapeTest, AShapeWithoutRoomHasNoneForContent) {
    EXPECT_EQ((NotchShape{12, 14, 8}.contentRect({{0, 0}, {20, 3}}).size), (Size{0, 0}));
}

} // namespace
} // namespace orvelle
