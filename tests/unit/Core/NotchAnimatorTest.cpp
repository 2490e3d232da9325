#include "Core/Animation/NotchAnimator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvelle {
namespace {

using State = NotchExpandedState;

TEST(NotchAnimator, SizeWithoutANotchSizeIs180By32Collapsed) {
    EXPECT_EQ(NotchAnimator::sizeForState(State::collapsed), (Size{180, 32}));
}

TEST(NotchAnimator, HoveringSizeOf200By37WithPadding100Is416By73) {
    EXPECT_EQ(NotchAnimator::sizeForState(State::hovering, Size{200, 37}, 100), (Size{416, 73}));
}

TEST(NotchAnimator, HoveringWithoutPaddingTakesTheConstant) {
    EXPECT_EQ(NotchAnimator::sizeForState(State::hovering), (Size{180 + 260 + 16, 68}));
}

TEST(NotchAnimator, OpenSizesDoNotDependOnTheNotch) {
    for (const auto notch : {Size{180, 32}, Size{300, 50}, Size{}}) {
        EXPECT_EQ(NotchAnimator::sizeForState(State::expanded, notch, 10), (Size{566, 220}));
        EXPECT_EQ(NotchAnimator::sizeForState(State::fullExpanded, notch, 10), (Size{566, 390}));
    }
}

TEST(NotchAnimator, CollapsedSizeHasNoFlare) {
    EXPECT_EQ(NotchAnimator::sizeForState(State::collapsed, Size{200, 37}, 100), (Size{200, 37}));
}

TEST(NotchAnimator, SpringsAndDelaysFollowTheSpeed) {
    EXPECT_EQ(NotchAnimator::panelSwitch, (Spring{0.3, 0.92}));
    EXPECT_EQ(NotchAnimator::stateSpring("slow"), (Spring{0.4, 1.0}));
    EXPECT_EQ(NotchAnimator::stateSpring("fast"), (Spring{0.15, 1.0}));
    EXPECT_EQ(NotchAnimator::stateSpring("normal"), (Spring{0.28, 1.0}));
    EXPECT_EQ(NotchAnimator::stateSpring("quick"), (Spring{0.28, 1.0}));
    EXPECT_EQ(NotchAnimator::shrinkDelay("slow"), 0.45);
    EXPECT_EQ(NotchAnimator::shrinkDelay("fast"), 0.18);
    EXPECT_EQ(NotchAnimator::shrinkDelay("normal"), 0.32);
    EXPECT_EQ(NotchAnimator::shrinkDelay(""), 0.32);
}

/// Integrates the oscillator's equation in small steps, as an independent check of the closed form.
Spring::Motion integrate(const Spring& spring, Seconds time, Spring::Motion motion) {
    const double omega = 2 * M_PI / spring.response;
    constexpr int steps = 200000;
    const double dt = time / steps;
    for (int step = 0; step < steps; ++step) {
        const double acceleration = -omega * omega * motion.displacement -
                                    2 * spring.dampingFraction * omega * motion.velocity;
        motion.velocity += acceleration * dt;
        motion.displacement += motion.velocity * dt;
    }
    return motion;
}

TEST(Spring, FollowsTheDampedOscillatorForEveryDamping) {
    for (const double damping : {0.3, 0.8, 0.92, 1.0, 1.4})
        for (const Spring::Motion start : {Spring::Motion{-1, 0}, Spring::Motion{-0.4, 3}})
            for (const double time : {0.0, 0.05, 0.2}) {
                const Spring spring{0.3, damping};
                const auto exact = spring.at(time, start);
                const auto stepped = integrate(spring, time, start);
                EXPECT_NEAR(exact.displacement, stepped.displacement, 1e-3) << damping << time;
                EXPECT_NEAR(exact.velocity, stepped.velocity, 2e-2) << damping << time;
            }
}

TEST(Spring, CriticalDampingNeverOvershoots) {
    const Spring spring{0.28, 1.0};
    for (int step = 0; step <= 100; ++step)
        EXPECT_LE(spring.at(step * 0.01, {-1, 0}).displacement, 0);
}

} // namespace
} // namespace orvelle
