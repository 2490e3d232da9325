#include "Extensions/ViewModifiers.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(FadeInModifierTest, WithoutADelayItStillStartsInvisible) {
    const FadeInModifier modifier{.delay = 0};
    const bool hasAppeared = false;
    EXPECT_EQ(modifier.opacity(hasAppeared), 0);
    EXPECT_EQ(modifier.offset(hasAppeared), 5);
    EXPECT_EQ(modifier.opacity(!hasAppeared), 1);
    EXPECT_EQ(modifier.offset(!hasAppeared), 0);
}

} // namespace
} // namespace orvelle
