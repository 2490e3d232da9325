#pragma once

#include "Foundation/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvelle {

enum class PomodoroPhase { work, shortBreak, longBreak, idle };

struct PomodoroState {
    PomodoroPhase phase = PomodoroPhase::idle;
    Seconds timeRemaining = 0; ///< fractional while running
    Seconds totalTime = 0;
    std::int64_t sessionsCompleted = 0; ///< since the last reset
    bool isRunning = false;
    bool operator==(const PomodoroState&) const = default;

    /// Whole minutes and seconds, such as "24:59"; a fraction is cut off.
    std::string formattedTimeRemaining() const;
    /// How much of the phase is over, 0 to 1.
    double progress() const;
};

enum class PomodoroTimerStyle { digital, ring, analog, minimal };

inline constexpr PomodoroTimerStyle allPomodoroTimerStyles[] = {
    PomodoroTimerStyle::digital, PomodoroTimerStyle::ring, PomodoroTimerStyle::analog,
    PomodoroTimerStyle::minimal};

/// The text that stands for a style in the settings.
std::string_view rawValue(PomodoroTimerStyle style);
/// `digital` for an unknown text.
PomodoroTimerStyle pomodoroTimerStyleFrom(std::string_view rawValue);

} // namespace orvelle
