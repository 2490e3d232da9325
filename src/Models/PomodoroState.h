#pragma once

#include "Foundation/Date.h"

#include <cstdint>

namespace orvelle {

enum class PomodoroPhase { work, shortBreak, longBreak, idle };

struct PomodoroState {
    PomodoroPhase phase = PomodoroPhase::idle;
    Seconds timeRemaining = 0; ///< fractional while running
    Seconds totalTime = 0;
    std::int64_t sessionsCompleted = 0; ///< since the last reset
    bool isRunning = false;
    bool operator==(const PomodoroState&) const = default;
};

} // namespace orvelle
