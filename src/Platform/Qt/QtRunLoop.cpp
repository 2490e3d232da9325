#include "Platform/Qt/QtRunLoop.h"

#include <QMetaObject>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace orvelle {

namespace {

/// Besides those of works that are late.
constexpr int backgroundThreads = 5;

/// Above the number of files that are kept, each of which is saved by one work at a time: not even
/// a save that hangs holds up another.
constexpr int savingThreads = 8;

/// How far behind the second its ticks come, so that a clock being slewed never shows the second
/// before.
constexpr Seconds behindSecond = 0.002;

bool isWholeMultiple(Seconds interval, Seconds step) {
    return interval >= step && std::fmod(interval, step) == 0;
}

Seconds secondsOf(auto duration) {
    return std::chrono::duration<Seconds>(duration).count();
}

} // namespace

/// Background work on one of the pools.
struct QtRunLoop::Work {
    QThreadPool& pool;
    std::atomic_bool hasBegun = false;
    bool isWanted = true; ///< the handle is there; this and the rest belong to the main thread
    bool isLate = false;
    Timer lateness;
};

QtRunLoop::QtRunLoop(std::chrono::milliseconds patience) : patience_(patience) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &mainThread_, [this] { fireDue(); });
    pool_.setMaxThreadCount(backgroundThreads);
    savingPool_.setMaxThreadCount(savingThreads);
}

QtRunLoop::~QtRunLoop() {
    pool_.clear();
    savingPool_.clear();
    const auto patience = static_cast<int>(patience_.count());
    if (pool_.waitForDone(patience) && savingPool_.waitForDone(patience))
        return;
    qCritical("Background work does not end, and is left behind");
    std::_Exit(EXIT_FAILURE);
}

Date QtRunLoop::now() const {
    return Date::fromUnix(secondsOf(std::chrono::system_clock::now().time_since_epoch()));
}

Seconds QtRunLoop::monotonicNow() const {
    return secondsOf(std::chrono::steady_clock::now().time_since_epoch());
}

Seconds QtRunLoop::delayOfTick(Seconds interval, Date now) {
    const Seconds step = isWholeMultiple(interval, 1) ? 1 : 0.5;
    if (!isWholeMultiple(interval, step))
        return interval;
    const Seconds wanted = now.sinceReference + interval;
    const Seconds tick = std::round(wanted / step) * step + behindSecond;
    return std::max(tick - now.sinceReference, 0.0);
}

Timer QtRunLoop::every(Seconds interval, std::function<void()> tick) {
    return schedule(delayOfTick(interval, now()), interval, std::move(tick));
}

Timer QtRunLoop::after(Seconds delay, std::function<void()> fire) {
    return schedule(delay, 0, std::move(fire));
}

Timer QtRunLoop::schedule(Seconds delay, Seconds interval, std::function<void()> callback) {
    const auto id = nextId_++;
    timers_->emplace(Key{monotonicNow() + delay, id},
                     Entry{std::make_shared<std::function<void()>>(std::move(callback)), interval});
    arm();
    return Timer([id, timers = std::weak_ptr<Timers>(timers_)] {
        const auto list = timers.lock();
        if (!list)
            return;
        const auto found = std::find_if(list->begin(), list->end(),
                                        [id](const auto& item) { return item.first.second == id; });
        // Taken out before it dies, since its callback may own further timers.
        if (found != list->end())
            list->extract(found);
    });
}

void QtRunLoop::fireDue() {
    const Seconds wake = monotonicNow();
    while (!timers_->empty() && timers_->begin()->first.first <= wake) {
        auto node = timers_->extract(timers_->begin());
        const auto entry = node.mapped();
        if (entry.interval > 0) {
            // Counted from now and not from the last tick, so that what was missed stays missed.
            node.key().first = monotonicNow() + delayOfTick(entry.interval, now());
            timers_->insert(std::move(node));
        }
        arm(); // the callback may run an event loop of its own
        (*entry.callback)();
    }
    arm();
}

void QtRunLoop::arm() {
    if (timers_->empty()) {
        timer_.stop();
        return;
    }
    // Rounded up, since an early wake-up would only lead to another.
    const Seconds delay = std::max(timers_->begin()->first.first - monotonicNow(), 0.0);
    const auto milliseconds = static_cast<std::int64_t>(std::ceil(delay * 1000));
    timer_.start(std::chrono::milliseconds(std::min<std::int64_t>(milliseconds, INT32_MAX)));
}

void QtRunLoop::post(std::function<void()> work) {
    // Taken out before it runs: Qt may destroy the callable on the thread that posted it.
    QMetaObject::invokeMethod(
        &mainThread_,
        [work = std::move(work)]() mutable {
            const auto taken = std::exchange(work, nullptr);
            taken();
        },
        Qt::QueuedConnection);
}

Subscription QtRunLoop::detach(std::function<void()> work, std::function<void()> done) {
    return runIn(pool_, std::move(work), std::move(done));
}

Subscription QtRunLoop::detachSaving(std::function<void()> work, std::function<void()> done) {
    return runIn(savingPool_, std::move(work), std::move(done));
}

Subscription QtRunLoop::runIn(QThreadPool& pool, std::function<void()> work,
                              std::function<void()> done) {
    const auto state = std::make_shared<Work>(pool);
    watchForLateness(state);
    pool.start([this, work = std::move(work), done = std::move(done), state]() mutable {
        state->hasBegun = true;
        work();
        post([this, done = std::move(done), state = std::move(state)] {
            ended(*state);
            if (state->isWanted)
                done();
        });
    });
    return Subscription([state] { state->isWanted = false; });
}

void QtRunLoop::watchForLateness(const std::shared_ptr<Work>& work) {
    work->lateness = after(lateAfter, [this, work] {
        if (!work->hasBegun || lateWorks_ == mostLateWorks) {
            watchForLateness(work);
            return;
        }
        ++lateWorks_;
        work->isLate = true;
        work->pool.releaseThread();
    });
}

void QtRunLoop::ended(Work& work) {
    work.lateness.reset();
    if (!work.isLate)
        return;
    --lateWorks_;
    work.pool.reserveThread();
}

} // namespace orvelle
