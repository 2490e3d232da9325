#include "Views/Qt/SpringValue.h"

#include "Views/Qt/HeldAnimations.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace orvelle {

namespace {

bool turnUntil(const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > 3000)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace

TEST(SpringValueTest, theFirstTargetIsTakenAtOnce) {
    SpringValue spring;
    spring.classBegin();
    spring.setTarget(42);
    spring.componentComplete();
    EXPECT_EQ(spring.value(), 42);
    EXPECT_FALSE(spring.isRunning());
}

TEST(SpringValueTest, comesToRestExactlyAtItsTargetAndStopsTicking) {
    SpringValue spring;
    spring.setResponse(0.15);
    spring.setTarget(100);
    EXPECT_TRUE(spring.isRunning());
    ASSERT_TRUE(turnUntil([&] { return !spring.isRunning(); }));
    EXPECT_EQ(spring.value(), 100);
}

TEST(SpringValueTest, withoutOvershootAtFullDamping) {
    SpringValue spring;
    spring.setResponse(0.15);
    spring.setDampingFraction(1);
    double highest = 0;
    QObject::connect(&spring, &SpringValue::valueChanged, &spring,
                     [&] { highest = std::max(highest, spring.value()); });
    spring.setTarget(100);
    ASSERT_TRUE(turnUntil([&] { return !spring.isRunning(); }));
    EXPECT_EQ(highest, 100);
}

TEST(SpringValueTest, aNewTargetOnTheWayCarriesTheSpeedOn) {
    SpringValue spring;
    spring.setResponse(0.4);
    spring.setTarget(1000);
    ASSERT_TRUE(turnUntil([&] { return spring.value() > 300; }));
    const double turned = spring.value();
    double highest = turned;
    QObject::connect(&spring, &SpringValue::valueChanged, &spring,
                     [&] { highest = std::max(highest, spring.value()); });
    spring.setTarget(0);
    ASSERT_TRUE(turnUntil([&] { return !spring.isRunning(); }));
    EXPECT_GT(highest, turned + 10) << "it runs on before it comes back";
    EXPECT_EQ(spring.value(), 0);
}

TEST(SpringValueTest, aJumpStandsStill) {
    SpringValue spring;
    spring.setTarget(1000);
    spring.jump(5);
    EXPECT_FALSE(spring.isRunning());
    EXPECT_EQ(spring.value(), 5);
    EXPECT_EQ(spring.target(), 5);
}

TEST(SpringValueTest, anotherCurveOnTheWayGoesOnFromWhereTheValueStands) {
    HeldAnimations animations;
    SpringValue spring;
    spring.setResponse(0.4);
    spring.setTarget(100);
    animations.step(0);
    animations.step(100);
    const double before = spring.value();
    const auto motion = Spring{0.4, 1}.at(0.1, {-100, 0});
    EXPECT_NEAR(before, 100 + motion.displacement, 0.01);
    spring.setResponse(0.15);
    animations.step(1);
    EXPECT_NEAR(spring.value(), before, 2);
}

} // namespace orvelle
