#include "Extensions/ViewModifiers.h"
#include "views/ViewFixture.h"

namespace orvelle {

class FadeInTest : public ViewFixture {};

TEST_F(FadeInTest, WithoutADelayItStillStartsInvisible) {
    const auto content = part("FadeIn", {{"delay", 0}});
    ASSERT_NE(content, nullptr);
    const auto* fading = item(content.get(), "fading");
    EXPECT_EQ(fading->opacity(), 0);
    EXPECT_EQ(fading->y(), 5);
    EXPECT_TRUE(eventually([&] { return fading->opacity() > 0.2 && fading->opacity() < 0.9; }));
    EXPECT_TRUE(eventually([&] { return fading->opacity() == 1 && fading->y() == 0; }));
}

TEST_F(FadeInTest, nothingMovesBeforeTheDelayIsOver) {
    const auto content = part("FadeIn", {{"delay", 0.3}});
    ASSERT_NE(content, nullptr);
    const auto* fading = item(content.get(), "fading");
    animations.step(1);
    animations.step(290);
    EXPECT_EQ(fading->opacity(), 0);
    EXPECT_TRUE(eventually([&] { return fading->opacity() == 1; }));
}

} // namespace orvelle
