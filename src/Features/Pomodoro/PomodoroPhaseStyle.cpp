#include "Features/Pomodoro/PomodoroPhaseStyle.h"

#include "Extensions/ColorTheme.h"
#include "Features/Theme/ThemeManager.h"
#include "Models/Symbol.h"
#include "Models/ThemeMode.h"

namespace orvelle::PomodoroPhaseStyle {

Color color(PomodoroPhase phase, const ThemeManager& theme) {
    if (phase == PomodoroPhase::idle)
        return notchSecondary;
    if (themeModeFrom(theme.themeMode.get()) != ThemeMode::multicolor)
        return theme.accentColor();
    switch (phase) {
    case PomodoroPhase::work:
    case PomodoroPhase::idle:
        break;
    case PomodoroPhase::shortBreak:
        return colors::green;
    case PomodoroPhase::longBreak:
        return colors::blue;
    }
    return colors::red;
}

std::string_view label(PomodoroPhase phase) {
    switch (phase) {
    case PomodoroPhase::work:
        return "Work";
    case PomodoroPhase::shortBreak:
        return "Break";
    case PomodoroPhase::longBreak:
        return "Long Break";
    case PomodoroPhase::idle:
        break;
    }
    return "Ready";
}

std::string_view symbol(PomodoroPhase phase) {
    switch (phase) {
    case PomodoroPhase::work:
        return "brain.head.profile"_symbol;
    case PomodoroPhase::shortBreak:
    case PomodoroPhase::longBreak:
        return "cup.and.saucer"_symbol;
    case PomodoroPhase::idle:
        break;
    }
    return "timer"_symbol;
}

} // namespace orvelle::PomodoroPhaseStyle
