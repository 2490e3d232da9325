#pragma once

#include "Foundation/Color.h"
#include "Models/PomodoroState.h"

#include <string_view>

namespace orvelle {

class ThemeManager;

/// What both views of the focus timer call a phase and how they colour it.
namespace PomodoroPhaseStyle {

/// The accent while a phase is on, unless the theme leaves the colours to the features.
Color color(PomodoroPhase phase, const ThemeManager& theme);
std::string_view label(PomodoroPhase phase);
std::string_view symbol(PomodoroPhase phase);

} // namespace PomodoroPhaseStyle

} // namespace orvelle
