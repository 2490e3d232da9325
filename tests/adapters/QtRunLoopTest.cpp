#include "Platform/Qt/QtRunLoop.h"

#include "Support/Gate.h"
#include "adapters/EventLoopWait.h"

#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <memory>
#include <optional>
#include <semaphore>
#include <thread>

namespace orvelle {
namespace {

struct QtRunLoopTest : ::testing::Test {
    QtRunLoopTest() { loop_.emplace(); }
    QtRunLoop& loop() { return *loop_; }
    std::optional<QtRunLoop> loop_;
};

TEST_F(QtRunLoopTest, AOneShotFiresOnceAndNotDuringTheCall) {
    int fired = 0;
    bool laterFired = false;
    const auto timer = loop().after(0, [&] { ++fired; });
    EXPECT_EQ(fired, 0);
    const auto later = loop().after(0.05, [&] { laterFired = true; });
    EXPECT_TRUE(waitUntil([&] { return laterFired; }));
    EXPECT_EQ(fired, 1);
}

TEST_F(QtRunLoopTest, ATimerMayBeResetFromItsOwnCallback) {
    int ticks = 0;
    Timer timer;
    timer = loop().every(0.01, [&] {
        ++ticks;
        timer.reset();
    });
    bool isOver = false;
    const auto end = loop().after(0.1, [&] { isOver = true; });
    EXPECT_TRUE(waitUntil([&] { return isOver; }));
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtRunLoopTest, ACallbackThatOwnsAnotherTimerMayDieWithIt) {
    auto inner = std::make_shared<Timer>(loop().after(0.01, [] { FAIL(); }));
    auto outer = loop().after(0.01, [inner] { FAIL(); });
    inner.reset();
    outer.reset();
    bool isOver = false;
    const auto end = loop().after(0.05, [&] { isOver = true; });
    EXPECT_TRUE(waitUntil([&] { return isOver; }));
}

TEST_F(QtRunLoopTest, TimersGoOnWhileACallbackRunsALoopOfItsOwn) {
    bool innerFired = false;
    bool outerEnded = false;
    const auto inner = loop().after(0.02, [&] { innerFired = true; });
    const auto outer = loop().after(0.01, [&] {
        EXPECT_TRUE(waitUntil([&] { return innerFired; }));
        outerEnded = true;
    });
    EXPECT_TRUE(waitUntil([&] { return outerEnded; }));
}

TEST_F(QtRunLoopTest, HandlesMayOutliveTheLoop) {
    auto timer = loop().every(1, [] {});
    auto work = loop().detach([] {}, [] { FAIL(); });
    loop_.reset();
    timer.reset();
    work.reset();
    QCoreApplication::processEvents();
}

TEST_F(QtRunLoopTest, ATimerOfWholeSecondsTicksOnTheSecond) {
    for (const double fraction : {0.0, 0.1, 0.49, 0.51, 0.99}) {
        const Date now{800000000 + fraction};
        const Seconds delay = QtRunLoop::delayOfTick(1, now);
        const double tick = fraction + delay;
        EXPECT_NEAR(tick, std::round(tick), 0.005) << fraction;
        EXPECT_GT(tick, std::floor(tick)) << "a tick before the second shows the last one";
        EXPECT_NEAR(delay, 1, 0.51) << fraction;
    }
}

TEST_F(QtRunLoopTest, ATimerOfHalfASecondMovesByAQuarterSecondAtMost) {
    for (const double fraction : {0.0, 0.1, 0.24, 0.26, 0.74, 0.9}) {
        const Seconds delay = QtRunLoop::delayOfTick(0.5, Date{800000000 + fraction});
        EXPECT_NEAR(delay, 0.5, 0.255) << fraction;
        EXPECT_NEAR(2 * (fraction + delay), std::round(2 * (fraction + delay)), 0.01);
    }
}

TEST_F(QtRunLoopTest, OtherIntervalsStayAsTheyAre) {
    EXPECT_EQ(QtRunLoop::delayOfTick(0.3, Date{800000000.1}), 0.3);
    EXPECT_EQ(QtRunLoop::delayOfTick(0.7, Date{800000000.1}), 0.7);
}

TEST_F(QtRunLoopTest, TimersOfDifferentBirthShareTheirTick) {
    std::vector<Seconds> ticks;
    const auto first = loop().every(0.5, [&] { ticks.push_back(loop().monotonicNow()); });
    Timer second;
    const auto between = loop().after(
        0.1, [&] { second = loop().every(1, [&] { ticks.push_back(-loop().monotonicNow()); }); });
    EXPECT_TRUE(waitUntil([&] { return !ticks.empty() && ticks.back() < 0; }));
    ASSERT_GE(ticks.size(), 2u);
    // The whole second belongs to both, in either order.
    const auto shared = -ticks.back();
    waitUntil([&] { return ticks.back() > shared; }, std::chrono::milliseconds(100));
    Seconds nearest = 1;
    for (const Seconds tick : ticks)
        if (tick > 0)
            nearest = std::min(nearest, std::abs(tick - shared));
    EXPECT_LT(nearest, 0.02);
}

TEST_F(QtRunLoopTest, WhatAnyThreadPostsRunsOnTheMainThreadInOrder) {
    std::vector<int> order;
    std::thread other([&] {
        for (int number = 0; number < 3; ++number)
            loop().post([&, number] {
                EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
                order.push_back(number);
            });
    });
    other.join();
    EXPECT_TRUE(order.empty());
    EXPECT_TRUE(waitUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector{0, 1, 2}));
}

TEST_F(QtRunLoopTest, DetachedWorkRunsElsewhereAndCompletesOnTheMainThread) {
    std::atomic<QThread*> worker = nullptr;
    bool isDone = false;
    const auto handle = loop().detach([&] { worker = QThread::currentThread(); },
                                      [&] {
                                          EXPECT_EQ(QThread::currentThread(),
                                                    QCoreApplication::instance()->thread());
                                          isDone = true;
                                      });
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_NE(worker.load(), QCoreApplication::instance()->thread());
}

TEST_F(QtRunLoopTest, WhatACompletionHoldsDiesOnTheMainThread) {
    struct Witness {
        std::atomic<int>& strays;
        std::atomic<int>& deaths;
        ~Witness() {
            if (QThread::currentThread() != QCoreApplication::instance()->thread())
                ++strays;
            ++deaths;
        }
    };
    std::atomic<int> strays = 0;
    std::atomic<int> deaths = 0;
    // Each time the main thread is as fast as can be, and may be done before the other is.
    for (int number = 1; number <= 2000 && strays == 0; ++number) {
        const auto handle =
            loop().detach([] {}, [witness = std::make_shared<Witness>(strays, deaths)] {});
        ASSERT_TRUE(waitUntil([&] { return deaths == number; }));
    }
    EXPECT_EQ(strays, 0);
}

TEST_F(QtRunLoopTest, ACompletionIsDroppedWithItsHandle) {
    std::binary_semaphore mayEnd(0);
    auto handle = loop().detach([&] { mayEnd.acquire(); }, [] { FAIL(); });
    handle.reset();
    mayEnd.release();
    bool isDone = false;
    const auto later = loop().detach([] {}, [&] { isDone = true; });
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
    loop_.reset(); // the first work has ended for certain
    QCoreApplication::processEvents();
}

/// More works than there are threads, none of which ends before its handle dies.
class HangingWork {
public:
    HangingWork(QtRunLoop& loop,
                Subscription (QtRunLoop::*detach)(std::function<void()>, std::function<void()>)) {
        constexpr int count = 50;
        gate_->close();
        for (int number = 0; number < count; ++number)
            running_.push_back((loop.*detach)([gate = gate_] { gate->pass(); }, [] {}));
        EXPECT_TRUE(gate_->awaitArrival());
    }
    ~HangingWork() { gate_->open(); }

private:
    std::shared_ptr<Gate> gate_ = std::make_shared<Gate>();
    std::vector<Subscription> running_;
};

TEST_F(QtRunLoopTest, WorkThatHangsHoldsUpNoSaving) {
    const HangingWork hanging(loop(), &QtRunLoop::detach);
    bool isSaved = false;
    const auto saving = loop().detachSaving([] {}, [&] { isSaved = true; });
    EXPECT_TRUE(waitUntil([&] { return isSaved; }));
}

TEST_F(QtRunLoopTest, ASaveThatHangsHoldsUpNoOtherFilesSave) {
    Gate gate;
    gate.close();
    constexpr int otherFiles = 4; // three lists' and the settings
    std::vector<Subscription> hanging;
    for (int number = 0; number < otherFiles; ++number)
        hanging.push_back(loop().detachSaving([&] { gate.pass(); }, [] {}));
    bool isSaved = false;
    const auto saving = loop().detachSaving([] {}, [&] { isSaved = true; });
    EXPECT_TRUE(waitUntil([&] { return isSaved; }));
    gate.open();
    loop_.reset();
}

TEST_F(QtRunLoopTest, AnyTwentyWorksThatHangHoldUpNoOtherWork) {
    Gate gate;
    gate.close();
    std::vector<Subscription> hanging;
    for (int number = 0; number < 20; ++number)
        hanging.push_back(loop().detach([&] { gate.pass(); }, [] {}));
    bool isDone = false;
    const auto other = loop().detach([] {}, [&] { isDone = true; });
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
    gate.open();
    loop_.reset();
}

TEST(QtRunLoopDeathTest, WorkThatHangsDoesNotKeepTheProcessFromEnding) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const auto detach : {&QtRunLoop::detach, &QtRunLoop::detachSaving})
        EXPECT_EXIT(
            {
                std::binary_semaphore never(0);
                QtRunLoop loop(std::chrono::milliseconds(10));
                const auto hanging = (loop.*detach)([&] { never.acquire(); }, [] {});
            },
            testing::ExitedWithCode(EXIT_FAILURE), "does not end");
}

} // namespace
} // namespace orvelle
