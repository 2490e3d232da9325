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

} // namespace
} // namespace orvelle
