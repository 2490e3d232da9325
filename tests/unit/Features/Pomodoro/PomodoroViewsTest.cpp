#include "Extensions/ColorTheme.h"
#include "Features/Pomodoro/PomodoroCollapsedView.h"
#include "Features/Pomodoro/PomodoroExpandedView.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TextStyle monospaced(double size, FontWeight weight, Color color = colors::white) {
    return {size, weight, color, FontDesign::monospaced};
}

class PomodoroViewsTest : public testing::Test {
protected:
    void setPhase(PomodoroPhase phase) {
        manager.state.update([&](auto& state) { state.phase = phase; });
    }
    void setStyle(const char* style) {
        platform.userDefaultsPort.set("pomodoroTimerStyle", std::string(style));
    }

    SimulatedPlatform platform;
    PomodoroManager manager{platform};
    ThemeManager theme{platform};
    PomodoroExpandedView view{manager, theme, platform};
    PomodoroCollapsedView collapsed{manager};
};

TEST_F(PomodoroViewsTest, ThePhaseHasTheAccentUnlessTheThemeIsMulticolor) {
    EXPECT_EQ(view.phaseColor(), notchSecondary);
    setPhase(PomodoroPhase::shortBreak);
    EXPECT_EQ(view.phaseColor(), theme.accentColor());
    platform.userDefaultsPort.set("themeMode", std::string("multicolor"));
    EXPECT_EQ(view.phaseColor(), colors::green);
    setPhase(PomodoroPhase::work);
    EXPECT_EQ(view.phaseColor(), colors::red);
    setPhase(PomodoroPhase::longBreak);
    EXPECT_EQ(view.phaseColor(), colors::blue);
    setPhase(PomodoroPhase::idle);
    EXPECT_EQ(view.phaseColor(), notchSecondary);
}

TEST_F(PomodoroViewsTest, TheStyleIsRingUntilChosenAndDigitalForAnUnknownText) {
    EXPECT_EQ(view.style(), PomodoroTimerStyle::ring);
    setStyle("sundial");
    EXPECT_EQ(view.style(), PomodoroTimerStyle::digital);
}

TEST_F(PomodoroViewsTest, TheButtonPlaysAndPauses) {
    EXPECT_EQ(view.playButton().name, "play.fill");
    view.togglePlaying();
    EXPECT_TRUE(manager.state->isRunning);
    EXPECT_EQ(view.playButton().name, "pause.fill");
    platform.runLoopPort.advance(60);
    view.togglePlaying();
    EXPECT_FALSE(manager.state->isRunning);
    EXPECT_EQ(manager.state->timeRemaining, 24 * 60) << "a pause keeps what was left";
}

TEST_F(PomodoroViewsTest, ResetGoesBackToTheVeryBeginning) {
    view.togglePlaying();
    manager.state.update([](auto& state) { state.sessionsCompleted = 3; });
    view.reset();
    EXPECT_EQ(manager.state.get(), PomodoroState{});
    EXPECT_FALSE(manager.timer);
}

TEST_F(PomodoroViewsTest, SkipLeadsOnWithoutCountingTheSession) {
    view.togglePlaying();
    view.skip();
    EXPECT_EQ(manager.state->phase, PomodoroPhase::shortBreak);
    EXPECT_EQ(manager.state->sessionsCompleted, 0);
    EXPECT_FALSE(manager.state->isRunning);
    EXPECT_TRUE(platform.userNotificationsPort.requests.empty());
}

TEST_F(PomodoroViewsTest, TheButtonsAreDrawnInTheirSizes) {
    EXPECT_EQ(view.resetButton().size, 14);
    EXPECT_EQ(view.playButton().size, 20);
    EXPECT_EQ(view.skipButton().size, 14);
}

TEST_F(PomodoroViewsTest, TheMenuListsTheStylesAndMarksTheCurrentOne) {
    const auto menu = view.contextMenu();
    ASSERT_EQ(menu.size(), 4u);
    EXPECT_EQ(menu[0].title, "Digital");
    EXPECT_EQ(menu[1].title, "Ring");
    EXPECT_EQ(menu[2].title, "Analog");
    EXPECT_EQ(menu[3].title, "Minimal");
    EXPECT_TRUE(menu[1].isChecked);
    EXPECT_FALSE(menu[0].isChecked);
    menu[3].perform();
    EXPECT_EQ(platform.userDefaultsPort.string("pomodoroTimerStyle"), "minimal");
}

TEST_F(PomodoroViewsTest, EveryStyleHasItsOwnFigures) {
    setStyle("digital");
    EXPECT_EQ(view.time(80).style, monospaced(36, FontWeight::light));
    EXPECT_EQ(view.phaseLabel().text, "READY");
    setStyle("ring");
    EXPECT_EQ(view.time(61).style, monospaced(18, FontWeight::medium));
    EXPECT_EQ(view.time(60).style, monospaced(14, FontWeight::medium));
    EXPECT_EQ(view.phaseLabel().style.size, 9);
    setStyle("analog");
    EXPECT_EQ(view.time(80).style, monospaced(10, FontWeight::regular));
    setStyle("minimal");
    EXPECT_EQ(view.time(80).style, monospaced(44, FontWeight::ultraLight));
    EXPECT_EQ(view.phaseLabel().style.weight, FontWeight::semibold);
}

TEST_F(PomodoroViewsTest, TheDrawnStylesAre50LowerThanTheAreaAndNoMoreThan80) {
    EXPECT_EQ(PomodoroExpandedView::availableSize(135), 80);
    EXPECT_EQ(PomodoroExpandedView::availableSize(100), 50);
    EXPECT_EQ(PomodoroExpandedView::availableSize(20), 0);
    EXPECT_EQ(PomodoroExpandedView::analogTimeOffset(80), 15);
}

TEST_F(PomodoroViewsTest, EveryThirdOfTheTwelveMarksIsLong) {
    const auto ticks = PomodoroExpandedView::ticks();
    ASSERT_EQ(ticks.size(), 12u);
    EXPECT_EQ(ticks[3], (PomodoroExpandedView::Tick{90, 6}));
    EXPECT_EQ(ticks[4], (PomodoroExpandedView::Tick{120, 3}));
}

TEST_F(PomodoroViewsTest, TheDotsFillWithTheSessions) {
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 3.7);
    setPhase(PomodoroPhase::work);
    manager.state.update([](auto& state) { state.sessionsCompleted = 1; });
    EXPECT_EQ(view.sessionDots(),
              (std::vector<Color>{view.phaseColor(), notchSurface, notchSurface}));
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 0.5);
    EXPECT_TRUE(view.sessionDots().empty());
}

TEST_F(PomodoroViewsTest, TheSmallFormSaysFocusUntilAPhaseIsOn) {
    EXPECT_EQ(collapsed.text(),
              (StyledText{"Focus", monospaced(10, FontWeight::medium, Color::white(1, 0.4))}));
    EXPECT_EQ(collapsed.icon(), (StyledSymbol{"timer", 10, Color::white(1, 0.4)}));
    manager.startTimer();
    EXPECT_EQ(collapsed.text(), (StyledText{"25:00", monospaced(10, FontWeight::medium)}));
    EXPECT_EQ(collapsed.icon(), (StyledSymbol{"brain.head.profile", 10, Color::white(1, 0.7)}));
    setPhase(PomodoroPhase::longBreak);
    EXPECT_EQ(collapsed.icon().name, "cup.and.saucer");
}

TEST_F(PomodoroViewsTest, EveryStyleNamesThePhaseInItsOwnWay) {
    setPhase(PomodoroPhase::longBreak);
    setStyle("digital");
    EXPECT_EQ(view.phaseLabel(),
              (StyledText{"LONG BREAK", {12, FontWeight::medium, view.phaseColor()}}));
    setStyle("minimal");
    EXPECT_EQ(view.phaseLabel(),
              (StyledText{"Long Break", {10, FontWeight::semibold, view.phaseColor()}}));
    setStyle("analog");
    EXPECT_EQ(view.phaseLabel(),
              (StyledText{"Long Break", {9, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.tickColor(), notchTertiary);
}

} // namespace
} // namespace orvelle
