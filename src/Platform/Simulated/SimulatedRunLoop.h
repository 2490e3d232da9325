#pragma once

#include "Platform/RunLoop.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <utility>

namespace orvelle {

/// Virtual time: nothing happens until the owner advances the clock.
class SimulatedRunLoop : public RunLoop {
public:
    /// 2026-01-15 12:00:00 UTC, a Thursday.
    static constexpr Date defaultStart{790171200};

    explicit SimulatedRunLoop(Date start = defaultStart) : start_(start) {}

    /// Plays `seconds` with every timer that falls due, in the order of their times.
    void advance(Seconds seconds);
    /// Runs what was posted, and what that posts, without moving the clock.
    void runPosted();
    /// Sets the wall clock alone, as a user or the network does.
    void setNow(Date now);
    std::size_t timerCount() const { return timers_->size(); }

    Date now() const override { return start_ + time_; }
    Seconds monotonicNow() const override { return time_; }
    Timer every(Seconds interval, std::function<void()> tick) override;
    Timer after(Seconds delay, std::function<void()> fire) override;
    void post(std::function<void()> work) override;
    /// Both parts run on the main thread at the next turn.
    Subscription detach(std::function<void()> work, std::function<void()> done) override;
    Subscription detachSaving(std::function<void()> work, std::function<void()> done) override {
        return detach(std::move(work), std::move(done));
    }

private:
    struct Entry {
        std::shared_ptr<std::function<void()>> callback;
        Seconds interval; ///< 0 for a one-shot timer
    };
    using Key = std::pair<Seconds, std::uint64_t>;
    using Timers = std::map<Key, Entry>;

    Timer schedule(Seconds delay, Seconds interval, std::function<void()> callback);

    Date start_;
    Seconds time_ = 0;
    std::uint64_t nextId_ = 0;
    std::shared_ptr<Timers> timers_ = std::make_shared<Timers>();
    std::deque<std::function<void()>> posted_;
};

} // namespace orvelle
