#include "Features/Time/TimeExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Time/TimeManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class TimeExpandedViewTest : public testing::Test {
protected:
    TimeExpandedViewTest() { manager.currentTime = platform.runLoopPort.now(); }

    SimulatedPlatform platform;
    TimeManager manager{platform};
    TimeExpandedView view{manager};
};

TEST_F(TimeExpandedViewTest, TheLocalTimeStandsOverDateAndZone) {
    EXPECT_EQ(view.localTime(), (StyledText{"7:00:00 AM", {30, FontWeight::bold, colors::white}}));
    EXPECT_EQ(view.localDate(),
              (StyledText{"Thursday, January 15", {13, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.localTimezone(), (StyledText{"Eastern Standard Time (UTC-5)",
                                                {11, FontWeight::regular, notchTertiary}}));
}

TEST_F(TimeExpandedViewTest, EveryNearZoneHasItsCard) {
    const auto cards = view.cards();
    ASSERT_EQ(cards.size(), 5u);
    EXPECT_EQ(cards[0],
              (TimeExpandedView::Card{"America/Los_Angeles",
                                      {"Los Angeles", {9, FontWeight::medium, notchSecondary}},
                                      {"4:00 AM", {12, FontWeight::semibold, colors::white}},
                                      {"UTC-8", {8, FontWeight::regular, notchTertiary}}}));
}

} // namespace
} // namespace orvelle
