#include "Features/Pomodoro/PomodoroExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/Pomodoro/PomodoroPhaseStyle.h"
#include "Models/Symbol.h"

#include <algorithm>
#include <cctype>

namespace orvelle {

namespace {

constexpr double largestSize = 80;
constexpr double roomForOthers = 50; ///< of the area's height, beside a drawn style
constexpr double smallRing = 60;

std::string_view title(PomodoroTimerStyle style) {
    switch (style) {
    case PomodoroTimerStyle::digital:
        break;
    case PomodoroTimerStyle::ring:
        return "Ring";
    case PomodoroTimerStyle::analog:
        return "Analog";
    case PomodoroTimerStyle::minimal:
        return "Minimal";
    }
    return "Digital";
}

/// Of one width each, so that the time does not tremble.
StyledText figures(const std::string& text, double size, FontWeight weight) {
    return {text, {size, weight, colors::white, FontDesign::monospaced}};
}

std::string upperCase(std::string_view label) {
    std::string text(label);
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
        return static_cast<char>(std::toupper(character));
    });
    return text;
}

} // namespace

PomodoroExpandedView::PomodoroExpandedView(PomodoroManager& manager, const ThemeManager& theme,
                                           Platform& platform)
    : timerStyle(platform.userDefaults(), Settings::pomodoroTimerStyle), manager_(manager),
      theme_(theme) {}

PomodoroTimerStyle PomodoroExpandedView::style() const {
    return pomodoroTimerStyleFrom(timerStyle.get());
}

Color PomodoroExpandedView::phaseColor() const {
    return PomodoroPhaseStyle::color(manager_.state->phase, theme_);
}

double PomodoroExpandedView::progress() const {
    return manager_.state->progress();
}

double PomodoroExpandedView::availableSize(double areaHeight) {
    return std::clamp(areaHeight - roomForOthers, 0.0, largestSize);
}

StyledText PomodoroExpandedView::time(double size) const {
    const auto text = manager_.state->formattedTimeRemaining();
    switch (style()) {
    case PomodoroTimerStyle::digital:
        break;
    case PomodoroTimerStyle::ring:
        return figures(text, size <= smallRing ? 14 : 18, FontWeight::medium);
    case PomodoroTimerStyle::analog:
        return figures(text, 10, FontWeight::regular);
    case PomodoroTimerStyle::minimal:
        return figures(text, 44, FontWeight::ultraLight);
    }
    return figures(text, 36, FontWeight::light);
}

StyledText PomodoroExpandedView::phaseLabel() const {
    const auto label = PomodoroPhaseStyle::label(manager_.state->phase);
    switch (style()) {
    case PomodoroTimerStyle::digital:
        break;
    case PomodoroTimerStyle::ring:
    case PomodoroTimerStyle::analog:
        return {std::string(label), {9, FontWeight::regular, notchSecondary}};
    case PomodoroTimerStyle::minimal:
        return {std::string(label), {10, FontWeight::semibold, phaseColor()}};
    }
    return {upperCase(label), {12, FontWeight::medium, phaseColor()}};
}

std::vector<PomodoroExpandedView::Tick> PomodoroExpandedView::ticks() {
    std::vector<Tick> ticks;
    for (int position = 0; position < 12; ++position)
        ticks.push_back({position * 30.0, position % 3 == 0 ? 6.0 : 3.0});
    return ticks;
}

Color PomodoroExpandedView::tickColor() const {
    return notchTertiary;
}

double PomodoroExpandedView::analogTimeOffset(double size) {
    return size / 4 - 5;
}

std::vector<Color> PomodoroExpandedView::sessionDots() const {
    std::vector<Color> dots;
    for (std::int64_t index = 0; index < manager_.sessionCount(); ++index)
        dots.push_back(index < manager_.state->sessionsCompleted ? phaseColor() : notchSurface);
    return dots;
}

StyledSymbol PomodoroExpandedView::resetButton() const {
    return {"arrow.counterclockwise"_symbol, 14, notchSecondary};
}

StyledSymbol PomodoroExpandedView::playButton() const {
    return {manager_.state->isRunning ? "pause.fill"_symbol : "play.fill"_symbol, 20,
            colors::white};
}

StyledSymbol PomodoroExpandedView::skipButton() const {
    return {"forward.fill"_symbol, 14, notchSecondary};
}

void PomodoroExpandedView::reset() {
    manager_.reset();
}

void PomodoroExpandedView::togglePlaying() {
    if (manager_.state->isRunning)
        manager_.pauseTimer();
    else
        manager_.startTimer();
}

void PomodoroExpandedView::skip() {
    manager_.skip();
}

std::vector<MenuEntry> PomodoroExpandedView::contextMenu() {
    std::vector<MenuEntry> entries;
    for (const auto each : allPomodoroTimerStyles)
        entries.push_back({.title = std::string(title(each)),
                           .perform = [this, each] { timerStyle.set(std::string(rawValue(each))); },
                           .isChecked = each == style()});
    return entries;
}

} // namespace orvelle
