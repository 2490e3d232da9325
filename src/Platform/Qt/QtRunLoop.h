#pragma once

#include "Platform/RunLoop.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace orvelle {

/// Qt's event loop. Needs a QCoreApplication, on whose thread it is made and dies; handles may
/// outlive it.
///
/// One system timer serves all timers. Repeating timers of whole seconds tick on the wall clock's
/// seconds, those of whole half seconds on its half seconds, so that a clock changes on time and
/// that timers wake the process together; after the clock was set they find their place again.
class QtRunLoop : public RunLoop {
public:
    static constexpr std::chrono::milliseconds defaultPatience{5000};
    /// Background work that takes longer is taken to wait for somebody, and keeps no place from
    /// other work.
    static constexpr Seconds lateAfter = 0.25;
    /// Of such works; beyond that the next one waits.
    static constexpr int mostLateWorks = 32;

    explicit QtRunLoop(std::chrono::milliseconds patience = defaultPatience);
    /// Drops what has not begun, and waits for background work under way; its completions are lost.
    /// Work that does not end within `patience` would use what dies with the program: the process
    /// ends here and now, with exit code 1.
    ~QtRunLoop() override;

    Date now() const override;
    Seconds monotonicNow() const override;
    Timer every(Seconds interval, std::function<void()> tick) override;
    Timer after(Seconds delay, std::function<void()> fire) override;
    void post(std::function<void()> work) override;
    Subscription detach(std::function<void()> work, std::function<void()> done) override;
    Subscription detachSaving(std::function<void()> work, std::function<void()> done) override;

    /// How long before the first or next tick of a repeating timer, when it is `now`.
    static Seconds delayOfTick(Seconds interval, Date now);

private:
    struct Entry {
        std::shared_ptr<std::function<void()>> callback;
        Seconds interval; ///< 0 for a one-shot timer
    };
    using Key = std::pair<Seconds, std::uint64_t>; ///< monotonic time due, order of creation
    using Timers = std::map<Key, Entry>;
    struct Work;

    Timer schedule(Seconds delay, Seconds interval, std::function<void()> callback);
    Subscription runIn(QThreadPool& pool, std::function<void()> work, std::function<void()> done);
    void watchForLateness(const std::shared_ptr<Work>& work);
    void ended(Work& work);
    void fireDue();
    void arm();

    const std::chrono::milliseconds patience_; ///< at the end
    QObject mainThread_;                       ///< receives what other threads post
    QTimer timer_;
    std::uint64_t nextId_ = 0;
    std::shared_ptr<Timers> timers_ = std::make_shared<Timers>();
    int lateWorks_ = 0;
    // These die first: their work posts to the main thread.
    QThreadPool pool_;
    QThreadPool savingPool_;
};

} // namespace orvelle
