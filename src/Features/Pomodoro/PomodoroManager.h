#pragma once

#include "Models/PomodoroState.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"
#include "Settings/Setting.h"

#include <cstdint>
#include <optional>

namespace orvelle {

/// A focus timer of work sessions and breaks. Each phase waits for the user to start it. The end of
/// a running phase is a date, so that a machine that sleeps loses nothing.
class PomodoroManager : public FeatureModule {
public:
    static constexpr Seconds tickInterval = 0.5;

    explicit PomodoroManager(Platform& platform = Platform::shared());

    Published<PomodoroState> state;
    Setting<double> workDuration; ///< minutes, as the other two
    Setting<double> shortBreakDuration;
    Setting<double> longBreakDuration;
    Setting<double> sessionsBeforeLongBreak;
    Setting<bool> soundEnabled;
    Timer timer;
    std::optional<Date> targetEndDate; ///< of the running phase

    /// Begins, or resumes with what was left.
    void startTimer();
    /// The remaining time stays at its last tick.
    void pauseTimer();
    void reset();
    /// To the next phase; what is skipped does not count.
    void skip();
    /// Prepares the next phase with its full time.
    void advancePhase();

    /// The whole part of the setting; 0 for values that are of no use.
    std::int64_t sessionCount() const;

private:
    void tick();
    void phaseCompleted();
    void sendNotification(PomodoroPhase ended);

    Platform& platform_;
};

} // namespace orvelle
