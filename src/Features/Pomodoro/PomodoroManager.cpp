#include "Features/Pomodoro/PomodoroManager.h"

#include "Models/Symbol.h"

namespace orvelle {

PomodoroManager::PomodoroManager(Platform&)
    : FeatureModule("pomodoro", "Focus Timer", std::string("timer"_symbol)) {}

void PomodoroManager::pauseTimer() {
    timer.reset();
    targetEndDate.reset();
    state.update([](auto& value) { value.isRunning = false; });
}

} // namespace orvelle
