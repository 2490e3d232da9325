#include "Features/Pomodoro/PomodoroManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Durations.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvelle {
namespace {

using Phase = PomodoroPhase;

class PomodoroManagerTest : public testing::Test {
protected:
    void advance(Seconds seconds) { platform.runLoopPort.advance(seconds); }
    const PomodoroState& state() const { return manager.state.get(); }
    void completePhase() {
        manager.startTimer();
        advance(manager.state->timeRemaining);
    }
    std::vector<NotificationRequest>& notices() { return platform.userNotificationsPort.requests; }
    void expectPhase(Phase phase, Seconds minutes, bool isRunning) {
        EXPECT_EQ(state().phase, phase);
        EXPECT_EQ(state().totalTime, minutes * minute);
        EXPECT_EQ(state().timeRemaining, minutes * minute);
        EXPECT_EQ(state().isRunning, isRunning);
    }

    SimulatedPlatform platform;
    PomodoroManager manager{platform};
};

TEST_F(PomodoroManagerTest, APauseAt12Minutes30AndAResumeAnHourLaterEnds12Minutes30After) {
    manager.startTimer();
    advance(12.5 * minute);
    manager.pauseTimer();
    EXPECT_EQ(state().timeRemaining, 12.5 * minute);
    advance(60 * minute);
    EXPECT_EQ(state().timeRemaining, 12.5 * minute);
    manager.startTimer();
    advance(12.5 * minute - 0.5);
    EXPECT_EQ(state().phase, Phase::work);
    EXPECT_TRUE(notices().empty());
    advance(0.5);
    expectPhase(Phase::shortBreak, 5, false);
    EXPECT_EQ(notices().size(), 1u);
}

TEST_F(PomodoroManagerTest, AfterFourSessionsTheNextPhaseIsALongBreakAfterTheFifthAShortOne) {
    for (int session = 1; session <= 3; ++session) {
        completePhase();
        expectPhase(Phase::shortBreak, 5, false);
        completePhase();
        expectPhase(Phase::work, 25, false);
    }
    EXPECT_EQ(state().sessionsCompleted, 3);
    completePhase();
    expectPhase(Phase::longBreak, 15, false);
    EXPECT_EQ(state().sessionsCompleted, 4);
    completePhase();
    completePhase();
    expectPhase(Phase::shortBreak, 5, false);
    EXPECT_EQ(state().sessionsCompleted, 5);
}

TEST_F(PomodoroManagerTest, TheEndDuringSleepCompletesThePhaseOnTheFirstTickWithOneNotification) {
    manager.startTimer();
    advance(minute);
    platform.runLoopPort.setNow(platform.runLoopPort.now() + 8 * 3600);
    advance(PomodoroManager::tickInterval);
    expectPhase(Phase::shortBreak, 5, false);
    EXPECT_EQ(notices().size(), 1u);
    advance(minute);
    EXPECT_EQ(notices().size(), 1u);
}

TEST_F(PomodoroManagerTest, ResetDuringABreakZeroesTheCount) {
    completePhase();
    ASSERT_EQ(state().sessionsCompleted, 1);
    manager.startTimer();
    manager.reset();
    EXPECT_EQ(state(), PomodoroState{});
    EXPECT_FALSE(manager.timer);
}

TEST_F(PomodoroManagerTest, ACompletedShortBreakDoesNotChangeTheCount) {
    completePhase();
    completePhase();
    EXPECT_EQ(state().sessionsCompleted, 1);
    expectPhase(Phase::work, 25, false);
}

TEST_F(PomodoroManagerTest, With30Point4SecondsLeftTheDisplayReads0030) {
    PomodoroState display;
    display.timeRemaining = 30.4;
    EXPECT_EQ(display.formattedTimeRemaining(), "00:30");
    display.timeRemaining = 0.9;
    EXPECT_EQ(display.formattedTimeRemaining(), "00:00");
    display.timeRemaining = 25 * minute;
    EXPECT_EQ(display.formattedTimeRemaining(), "25:00");
    display.timeRemaining = 120 * minute + 5;
    EXPECT_EQ(display.formattedTimeRemaining(), "120:05");
}

TEST_F(PomodoroManagerTest, AChangeOfTheWorkMinutesDoesNotTouchAPhasePreparedOrRunning) {
    manager.skip();
    platform.userDefaultsPort.set("pomodoroWorkMinutes", 50.0);
    expectPhase(Phase::work, 25, false);
    manager.startTimer();
    platform.userDefaultsPort.set("pomodoroWorkMinutes", 60.0);
    advance(minute);
    EXPECT_EQ(state().timeRemaining, 24 * minute);
    manager.reset();
    manager.startTimer();
    EXPECT_EQ(state().totalTime, 60 * minute);
}

TEST_F(PomodoroManagerTest, PlayStartsAWorkSession) {
    manager.startTimer();
    expectPhase(Phase::work, 25, true);
    EXPECT_EQ(manager.targetEndDate, platform.runLoopPort.now() + 25 * minute);
}

TEST_F(PomodoroManagerTest, SkipFromIdlePreparesAWorkSession) {
    manager.skip();
    expectPhase(Phase::work, 25, false);
}

TEST_F(PomodoroManagerTest, SkippingWorkCountsNothingAndIsSilent) {
    manager.startTimer();
    manager.skip();
    expectPhase(Phase::shortBreak, 5, false);
    EXPECT_EQ(state().sessionsCompleted, 0);
    EXPECT_TRUE(notices().empty());
    EXPECT_TRUE(platform.soundPort.played.empty());
    manager.skip();
    expectPhase(Phase::work, 25, false);
}

TEST_F(PomodoroManagerTest, SkippingWorkOnAMultipleLeadsToAFurtherLongBreak) {
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 2.0);
    completePhase();
    completePhase();
    completePhase();
    EXPECT_EQ(state().phase, Phase::longBreak);
    manager.skip();
    manager.skip();
    EXPECT_EQ(state().phase, Phase::longBreak);
}

TEST_F(PomodoroManagerTest, NothingStartsTheNextPhaseByItself) {
    completePhase();
    advance(3600);
    expectPhase(Phase::shortBreak, 5, false);
}

TEST_F(PomodoroManagerTest, TheSoundAndTheNoticesTellThePhaseThatEnded) {
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 2.0);
    for (int phase = 0; phase < 4; ++phase)
        completePhase();
    ASSERT_EQ(notices().size(), 4u);
    EXPECT_EQ(notices()[0].title, "Work Session Complete");
    EXPECT_EQ(notices()[0].body, "Time for a break!");
    EXPECT_EQ(notices()[1].title, "Break Over");
    EXPECT_EQ(notices()[1].body, "Let's get back to work!");
    EXPECT_EQ(notices()[3].title, "Long Break Over");
    EXPECT_EQ(notices()[3].body, "Let's get back to work!");
    EXPECT_TRUE(notices()[0].hasSound);
    EXPECT_TRUE(notices()[0].identifier.starts_with("pomodoro-"));
    EXPECT_NE(notices()[0].identifier, notices()[2].identifier);
    EXPECT_EQ(platform.soundPort.played, std::vector<std::string>(4, "Glass"));
}

TEST_F(PomodoroManagerTest, WithoutSoundTheNoticeIsSilentToo) {
    platform.userDefaultsPort.set("pomodoroSoundEnabled", false);
    completePhase();
    EXPECT_TRUE(platform.soundPort.played.empty());
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_FALSE(notices()[0].hasSound);
}

TEST_F(PomodoroManagerTest, SessionsOfNoUseGiveNoLongBreakAndNoFault) {
    for (const double value : {0.0, 0.9, -3.0}) {
        platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", value);
        manager.reset();
        completePhase();
        EXPECT_EQ(state().phase, Phase::shortBreak);
        EXPECT_EQ(manager.sessionCount(), 0);
    }
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 2.9);
    EXPECT_EQ(manager.sessionCount(), 2);
}

TEST_F(PomodoroManagerTest, TheProgressIsWhatIsOverAnd0WithoutAPhase) {
    EXPECT_EQ(state().progress(), 0);
    manager.startTimer();
    advance(5 * minute);
    EXPECT_DOUBLE_EQ(state().progress(), 0.2);
}

TEST_F(PomodoroManagerTest, AnUnknownStyleIsDigital) {
    EXPECT_EQ(pomodoroTimerStyleFrom("ring"), PomodoroTimerStyle::ring);
    EXPECT_EQ(pomodoroTimerStyleFrom("sundial"), PomodoroTimerStyle::digital);
    for (const auto style : allPomodoroTimerStyles)
        EXPECT_EQ(pomodoroTimerStyleFrom(rawValue(style)), style);
}

TEST_F(PomodoroManagerTest, MinutesOfNoUseGiveAPhaseWithoutTime) {
    for (const double minutes : {0.0, -5.0}) {
        platform.userDefaultsPort.set("pomodoroWorkMinutes", minutes);
        manager.reset();
        manager.startTimer();
        EXPECT_EQ(state().totalTime, 0) << minutes;
    }
    platform.userDefaultsPort.set("pomodoroWorkMinutes", 1e9);
    manager.reset();
    manager.startTimer();
    EXPECT_EQ(state().totalTime, 24 * 60 * minute) << "no more than a day";
}

TEST_F(PomodoroManagerTest, WithOneSessionBeforeALongBreakEveryBreakIsLong) {
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 1.0);
    EXPECT_EQ(manager.sessionCount(), 1);
    completePhase();
    expectPhase(Phase::longBreak, 15, false);
    completePhase();
    completePhase();
    expectPhase(Phase::longBreak, 15, false);
}

TEST_F(PomodoroManagerTest, APhaseThatIsLongOverEndsAtExactlyNothingLeft) {
    manager.startTimer();
    Seconds least = 1;
    const auto watch = manager.state.observe(
        [&](const PomodoroState& shown) { least = std::min(least, shown.timeRemaining); });
    platform.runLoopPort.setNow(platform.runLoopPort.now() + 8 * 3600);
    advance(PomodoroManager::tickInterval);
    EXPECT_EQ(state().phase, Phase::shortBreak);
    EXPECT_EQ(least, 0);
}

TEST_F(PomodoroManagerTest, AHostileNumberOfSessionsIsBounded) {
    platform.userDefaultsPort.set("pomodoroSessionsBeforeLongBreak", 1e18);
    EXPECT_EQ(manager.sessionCount(), 1000) << "a row of dots has to be drawn";
}

} // namespace
} // namespace orvelle
