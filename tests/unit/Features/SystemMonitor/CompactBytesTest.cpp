#include "Models/SystemMetrics.h"

#include <gtest/gtest.h>

#include <limits>

using namespace orvelle;

TEST(CompactBytes, ChangesItsUnitExactlyAtEachPowerOf1024) {
    EXPECT_EQ(compactBytes(1023), "0K");
    EXPECT_EQ(compactBytes(1024), "1K");
    EXPECT_EQ(compactBytes(1048576), "1.0M");
    EXPECT_EQ(compactBytes(1073741824), "1.0G");
}

TEST(CompactBytes, StaysInItsUnitUpToTheLastByte) {
    EXPECT_EQ(compactBytes(0), "0K");
    EXPECT_EQ(compactBytes(1048575), "1024K");
    EXPECT_EQ(compactBytes(1073741823), "1024.0M");
}

TEST(CompactBytes, RoundsToWholeKilobytesAndToTenthsAbove) {
    EXPECT_EQ(compactBytes(12 * 1024 + 600), "13K");
    EXPECT_EQ(compactBytes(1048576 + 524288), "1.5M");
    EXPECT_EQ(compactBytes(std::numeric_limits<std::uint64_t>::max()), "17179869184.0G");
}
