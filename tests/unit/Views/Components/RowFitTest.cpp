#include "Views/Components/RowFit.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(RowFitTest, WhatFitsIsNotCut) {
    EXPECT_EQ(widthCap({30, 50}, 80), 50);
    EXPECT_EQ(widthCap({}, 80), 0);
}

TEST(RowFitTest, EqualOnesShareTheLack) {
    EXPECT_EQ(widthCap({100, 100}, 80), 40);
}

TEST(RowFitTest, TheWidestGiveWayFirst) {
    EXPECT_EQ(widthCap({200, 20, 90}, 140), 60);
    EXPECT_EQ(widthCap({200, 20, 40}, 140), 80);
}

TEST(RowFitTest, WithoutRoomNothingIsLeftAndNeverLess) {
    EXPECT_EQ(widthCap({10, 20}, 0), 0);
    EXPECT_EQ(widthCap({10, 20}, -50), 0);
}

FittedRow fitted(double room) {
    // A title, an icon with a figure, figures alone, a symbol.
    return fittedRow({{20, {}, 60}, {15, {25}, 0}, {20, {20, 30}, 0}, {12, {}, 0}}, 10, room);
}

TEST(RowFitTest, WhereAllHasRoomNothingIsLeftOut) {
    const auto row = fitted(232);
    EXPECT_EQ(row.texts, (std::vector{0, 1, 2, 0}));
    EXPECT_EQ(row.titleCap, 60);
}

TEST(RowFitTest, TitlesAreCutWhileSomethingCanBeReadOfThem) {
    const auto row = fitted(188);
    EXPECT_EQ(row.texts, (std::vector{0, 1, 2, 0}));
    EXPECT_EQ(row.titleCap, 16);
}

TEST(RowFitTest, ThenTheLastTextsAreLeftOutAndTitlesTakeTheirRoom) {
    auto row = fitted(187);
    EXPECT_EQ(row.texts, (std::vector{0, 1, 1, 0}));
    EXPECT_EQ(row.titleCap, 45);
    row = fitted(130);
    EXPECT_EQ(row.texts, (std::vector{0, 0, 0, 0}));
    EXPECT_EQ(row.titleCap, 33);
}

TEST(RowFitTest, ThenTheTitlesAndAtLastWholeParts) {
    auto row = fitted(112);
    EXPECT_EQ(row.texts, (std::vector{0, 0, 0, 0}));
    EXPECT_EQ(row.titleCap, 0);
    row = fitted(90);
    EXPECT_EQ(row.texts, (std::vector{0, 0, 0, FittedRow::hidden}));
    row = fitted(0);
    EXPECT_EQ(row.texts, std::vector(4, FittedRow::hidden));
    EXPECT_TRUE(fittedRow({}, 10, 50).texts.empty());
}

} // namespace
} // namespace orvelle
