#pragma once

#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Foundation/Published.h"
#include "Platform/RunLoop.h"

#include <array>
#include <random>
#include <vector>

namespace orvelle {

/// Bars that dance while something plays. At rest it costs nothing. Lengths are points.
class AudioVisualizer {
public:
    struct Measures {
        int bars;
        double barWidth;
        double gap;
        double lowest;
        double highest;
    };
    static constexpr Measures regular{10, 3, 2.5, 3, 32};
    static constexpr Measures compact{5, 2.5, 2, 2, 16};

    static constexpr Seconds interval = 1.0 / 30;
    /// Of the way to its new random height that a bar goes in one step.
    static constexpr double smoothing = 0.35;
    static constexpr Seconds changeDuration = 0.1; ///< of a step, eased in and out
    static constexpr Seconds stopDuration = 0.3;   ///< of the way down, eased out

    /// From top to bottom.
    static std::array<Color, 2> barGradient(Color tint);
    /// Rounded this much at the corners.
    static double cornerRadius(const Measures& measures) { return measures.barWidth / 2; }
    static double width(const Measures& measures);

    AudioVisualizer(RunLoop& runLoop, bool isCompact);

    const Measures measures;
    /// One height a bar, from the left.
    Published<std::vector<double>> barHeights;

    /// Shows the bars at rest, and lets them dance while something plays.
    void appear(bool isPlaying);
    void setPlaying(bool isPlaying);
    void disappear();

    void updateBars();
    bool isAnimating() const { return static_cast<bool>(animationTimer_); }

private:
    void startAnimating();
    void stopAnimating();
    void lower();

    RunLoop& runLoop_;
    Timer animationTimer_;
    bool isPlaying_ = false;
    std::minstd_rand random_{std::random_device{}()};
};

} // namespace orvelle
