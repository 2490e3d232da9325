#pragma once

#include "Models/PomodoroState.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <optional>

namespace orvelle {

/// A focus timer of work sessions and breaks.
class PomodoroManager : public FeatureModule {
public:
    explicit PomodoroManager(Platform& platform = Platform::shared());

    Published<PomodoroState> state;
    Timer timer;
    std::optional<Date> targetEndDate;

    /// The remaining time stays at its last tick.
    void pauseTimer();
};

} // namespace orvelle
