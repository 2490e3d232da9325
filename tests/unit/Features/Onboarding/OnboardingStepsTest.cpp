#include "Features/Onboarding/OnboardingView.h"
#include "Features/Theme/ThemeManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class OnboardingStepsTest : public testing::Test {
protected:
    SimulatedPlatform platform;
    ThemeManager theme{platform};
    OnboardingView view{[] {}, theme, platform};

    OnboardingView::Content content(OnboardingView::Step step) { return view.stepContent(step); }
};

TEST_F(OnboardingStepsTest, TheFirstWelcomes) {
    const auto welcome = content(OnboardingView::Step::welcome);
    EXPECT_EQ(welcome.symbol.name, "rectangle.topthird.inset.filled");
    EXPECT_EQ(welcome.title.text, "Welcome to Orvelle");
    EXPECT_EQ(welcome.title.style.size, 22);
    EXPECT_EQ(welcome.title.style.weight, FontWeight::bold);
    ASSERT_EQ(welcome.paragraphs.size(), 2u);
    EXPECT_EQ(welcome.paragraphs[0].text.text,
              "Transform your MacBook's notch into a powerful control center with media controls, "
              "weather, calendar, file shelf, and more.");
    EXPECT_EQ(welcome.paragraphs[0].text.style.size, 13);
    EXPECT_EQ(welcome.paragraphs[0].maximumWidth, 360);
    EXPECT_EQ(welcome.paragraphs[1].text.text,
              "Let's set up a few permissions so everything works out of the box.");
    EXPECT_EQ(welcome.paragraphs[1].maximumWidth, 320);
    EXPECT_EQ(welcome.button, std::nullopt);
    EXPECT_EQ(welcome.status, std::nullopt);
}

TEST_F(OnboardingStepsTest, TheLastSaysHowToGoOn) {
    const auto done = content(OnboardingView::Step::done);
    EXPECT_EQ(done.symbol.name, "checkmark.circle.fill");
    EXPECT_EQ(done.title.text, "You're All Set!");
    EXPECT_EQ(done.title.style.size, 22);
    ASSERT_EQ(done.paragraphs.size(), 1u);
    EXPECT_EQ(done.paragraphs[0].text.text,
              "Orvelle is ready to use. Hover over the notch to see your widgets, or pull down to "
              "expand the full panel.");
    const std::pair<const char*, const char*> tips[] = {
        {"hand.point.up.fill", "Hover the notch to see quick widgets"},
        {"hand.draw.fill", "Swipe down to expand the full panel"},
        {"gearshape.fill", "Right-click the menu bar icon for settings"}};
    ASSERT_EQ(done.tips.size(), std::size(tips));
    for (std::size_t index = 0; index < std::size(tips); ++index) {
        EXPECT_EQ(done.tips[index].symbol.name, tips[index].first);
        EXPECT_EQ(done.tips[index].symbol.color, theme.accentColor());
        EXPECT_EQ(done.tips[index].text.text, tips[index].second);
        EXPECT_EQ(done.tips[index].text.style.color, colors::white);
    }
}

TEST_F(OnboardingStepsTest, TheLoginItemIsExplainedBesideItsSwitch) {
    const auto login = content(OnboardingView::Step::launchAtLogin);
    EXPECT_EQ(login.title.text, "Launch at Login");
    EXPECT_EQ(login.title.style.size, 18);
    EXPECT_EQ(login.paragraphs.at(0).text.text,
              "Orvelle is a productivity tool that works best when it's always available. Enable "
              "launch at login so it starts automatically with your Mac.");
    EXPECT_EQ(login.paragraphs.at(0).maximumWidth, 360);
    EXPECT_EQ(login.status->style.size, 11);
}

} // namespace
} // namespace orvelle
