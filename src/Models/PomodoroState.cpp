#include "Models/PomodoroState.h"

#include "Foundation/Format.h"

#include <algorithm>

namespace orvelle {

std::string PomodoroState::formattedTimeRemaining() const {
    const auto seconds = static_cast<std::int64_t>(timeRemaining);
    return format("%02d:%02d", static_cast<int>(seconds / 60), static_cast<int>(seconds % 60));
}

double PomodoroState::progress() const {
    return totalTime > 0 ? std::clamp(1 - timeRemaining / totalTime, 0.0, 1.0) : 0;
}

std::string_view rawValue(PomodoroTimerStyle style) {
    switch (style) {
    case PomodoroTimerStyle::digital:
        break;
    case PomodoroTimerStyle::ring:
        return "ring";
    case PomodoroTimerStyle::analog:
        return "analog";
    case PomodoroTimerStyle::minimal:
        return "minimal";
    }
    return "digital";
}

PomodoroTimerStyle pomodoroTimerStyleFrom(std::string_view text) {
    for (const auto style : allPomodoroTimerStyles)
        if (rawValue(style) == text)
            return style;
    return PomodoroTimerStyle::digital;
}

} // namespace orvelle
