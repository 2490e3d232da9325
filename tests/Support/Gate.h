#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace orvelle {

/// Holds other threads up at a point of their work until the test lets them on. Every wait has a
/// bound, so that a test fails rather than hangs.
class Gate {
public:
    void close() { set(false); }
    void open() { set(true); }

    /// For the held thread.
    void pass() {
        std::unique_lock lock(mutex_);
        isReached_ = true;
        changed_.notify_all();
        changed_.wait_for(lock, bound, [this] { return isOpen_; });
        isReached_ = false;
    }
    bool isReached() const {
        const std::lock_guard lock(mutex_);
        return isReached_;
    }
    /// Waits for a thread to be held up.
    bool awaitArrival() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, bound, [this] { return isReached_; });
    }

private:
    static constexpr std::chrono::seconds bound{10};

    void set(bool isOpen) {
        const std::lock_guard lock(mutex_);
        isOpen_ = isOpen;
        changed_.notify_all();
    }

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool isOpen_ = true;
    bool isReached_ = false;
};

} // namespace orvelle
