#include "Views/Components/GlassBackground.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(GlassBackgroundTest, WithoutABorderThereIsNoOverlay) {
    EXPECT_FALSE((GlassBackground{8, 0.15, false}.border()));
    EXPECT_EQ((GlassBackground{8, 0.15, true}.border()), (Stroke{Color::white(1, 0.1), 0.5, 10}));
}

} // namespace
} // namespace orvelle
