#include "Features/Pomodoro/PomodoroManager.h"

#include "Foundation/UUID.h"
#include "Models/Symbol.h"
#include "Platform/Sound.h"
#include "Platform/UserNotifications.h"

#include <algorithm>

namespace orvelle {

namespace {

/// Nothing sensible is longer; keeps hostile settings within what clocks can show.
constexpr double maximumMinutes = 24 * 60;
constexpr double maximumSessions = 1000;

Seconds secondsOf(const Setting<double>& minutes) {
    const double value = minutes.get();
    return value > 0 ? std::min(value, maximumMinutes) * 60 : 0;
}

struct Notice {
    const char* title;
    const char* body;
};

std::optional<Notice> noticeOf(PomodoroPhase ended) {
    switch (ended) {
    case PomodoroPhase::work:
        return Notice{"Work Session Complete", "Time for a break!"};
    case PomodoroPhase::shortBreak:
        return Notice{"Break Over", "Let's get back to work!"};
    case PomodoroPhase::longBreak:
        return Notice{"Long Break Over", "Let's get back to work!"};
    case PomodoroPhase::idle:
        break;
    }
    return std::nullopt;
}

} // namespace

PomodoroManager::PomodoroManager(Platform& platform)
    : FeatureModule("pomodoro", "Focus Timer", std::string("timer"_symbol)),
      workDuration(platform.userDefaults(), Settings::pomodoroWorkMinutes),
      shortBreakDuration(platform.userDefaults(), Settings::pomodoroShortBreakMinutes),
      longBreakDuration(platform.userDefaults(), Settings::pomodoroLongBreakMinutes),
      sessionsBeforeLongBreak(platform.userDefaults(), Settings::pomodoroSessionsBeforeLongBreak),
      soundEnabled(platform.userDefaults(), Settings::pomodoroSoundEnabled), platform_(platform) {}

void PomodoroManager::startTimer() {
    auto next = state.get();
    if (next.phase == PomodoroPhase::idle) {
        next.phase = PomodoroPhase::work;
        next.totalTime = next.timeRemaining = secondsOf(workDuration);
    }
    targetEndDate = platform_.runLoop().now() + next.timeRemaining;
    next.isRunning = true;
    timer = platform_.runLoop().every(tickInterval, [this] { tick(); });
    state = next;
}

void PomodoroManager::pauseTimer() {
    timer.reset();
    targetEndDate.reset();
    state.update([](auto& value) { value.isRunning = false; });
}

void PomodoroManager::reset() {
    pauseTimer();
    state = PomodoroState{};
}

void PomodoroManager::skip() {
    pauseTimer();
    advancePhase();
}

void PomodoroManager::tick() {
    if (!targetEndDate)
        return;
    const Seconds remaining = *targetEndDate - platform_.runLoop().now();
    state.update([&](auto& value) { value.timeRemaining = std::max(remaining, 0.0); });
    if (remaining <= 0)
        phaseCompleted();
}

void PomodoroManager::phaseCompleted() {
    pauseTimer();
    if (soundEnabled.get())
        platform_.sound().play("Glass");
    const auto ended = state->phase;
    sendNotification(ended);
    if (ended == PomodoroPhase::work)
        state.update([](auto& value) { ++value.sessionsCompleted; });
    advancePhase();
}

std::int64_t PomodoroManager::sessionCount() const {
    const double sessions = sessionsBeforeLongBreak.get();
    return sessions >= 1 ? static_cast<std::int64_t>(std::min(sessions, maximumSessions)) : 0;
}

void PomodoroManager::advancePhase() {
    auto next = state.get();
    if (next.phase == PomodoroPhase::work) {
        const auto sessions = sessionCount();
        const bool isLong =
            next.sessionsCompleted > 0 && sessions > 0 && next.sessionsCompleted % sessions == 0;
        next.phase = isLong ? PomodoroPhase::longBreak : PomodoroPhase::shortBreak;
        next.totalTime = secondsOf(isLong ? longBreakDuration : shortBreakDuration);
    } else {
        next.phase = PomodoroPhase::work;
        next.totalTime = secondsOf(workDuration);
    }
    next.timeRemaining = next.totalTime;
    state = next;
}

void PomodoroManager::sendNotification(PomodoroPhase ended) {
    if (const auto notice = noticeOf(ended))
        platform_.userNotifications().add(
            {"pomodoro-" + UUID::random().text(), notice->title, notice->body, soundEnabled.get()});
}

} // namespace orvelle
