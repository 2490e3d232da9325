#pragma once

#include "Foundation/Date.h"
#include "Models/PomodoroState.h"
#include "Platform/Platform.h"
#include "Settings/Setting.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/TextStyle.h"

#include <string>
#include <vector>

namespace orvelle {

class PomodoroManager;
class ThemeManager;

/// The focus timer's panel: the time in one of four styles over the session dots and the controls.
/// Lengths are points, angles degrees from the top, clockwise.
class PomodoroExpandedView {
public:
    struct Tick {
        double angle = 0;
        double length = 0;
        bool operator==(const Tick&) const = default;
    };

    PomodoroExpandedView(PomodoroManager& manager, const ThemeManager& theme,
                         Platform& platform = Platform::shared());

    static constexpr double controlsHeight = 44;
    static constexpr double controlsSpacing = 6;
    static constexpr double dotSize = 6;
    static constexpr double dotSpacing = 4;
    static constexpr double buttonSpacing = 16;
    static constexpr double textSpacing = 4;
    static constexpr double barWidth = 120;
    static constexpr double barHeight = 4;
    static constexpr double ringWidth = 5; ///< of the line
    static constexpr Color trackColor = Color::white(1, 0.1);
    static constexpr double dialOpacity = 0.2;
    static constexpr double dialWidth = 2; ///< of the circle's line
    static constexpr double tickWidth = 1;
    static constexpr double tickInset = 8;
    static constexpr double handWidth = 2;
    static constexpr double handInset = 10;
    static constexpr double hubSize = 6;
    static constexpr Seconds progressDuration = 0.5; ///< linear

    Setting<std::string_view> timerStyle;

    PomodoroTimerStyle style() const;
    Color phaseColor() const;
    /// 0 to 1.
    double progress() const;

    /// The edge of the drawn styles in an area of this height.
    static double availableSize(double areaHeight);
    /// The remaining time as the style writes it; `size` is that of the drawn styles.
    StyledText time(double size) const;
    StyledText phaseLabel() const;
    /// The analog dial's twelve marks.
    static std::vector<Tick> ticks();
    Color tickColor() const;
    /// How far the time stands below the analog dial's centre.
    static double analogTimeOffset(double size);

    /// One colour for each session before a long break.
    std::vector<Color> sessionDots() const;
    StyledSymbol resetButton() const;
    StyledSymbol playButton() const;
    StyledSymbol skipButton() const;
    void reset();
    void togglePlaying();
    void skip();

    /// The styles by their titles, the current one marked.
    std::vector<MenuEntry> contextMenu();

private:
    PomodoroManager& manager_;
    const ThemeManager& theme_;
};

} // namespace orvelle
