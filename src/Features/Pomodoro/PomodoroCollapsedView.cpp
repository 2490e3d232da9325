#include "Features/Pomodoro/PomodoroCollapsedView.h"

#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/Pomodoro/PomodoroPhaseStyle.h"

namespace orvelle {

bool PomodoroCollapsedView::isIdle() const {
    return manager_.state->phase == PomodoroPhase::idle;
}

StyledSymbol PomodoroCollapsedView::icon() const {
    return {PomodoroPhaseStyle::symbol(manager_.state->phase), 10,
            Color::white(1, isIdle() ? 0.4 : 0.7)};
}

StyledText PomodoroCollapsedView::text() const {
    return {isIdle() ? "Focus" : manager_.state->formattedTimeRemaining(),
            {10, FontWeight::medium, Color::white(1, isIdle() ? 0.4 : 1), FontDesign::monospaced}};
}

} // namespace orvelle
