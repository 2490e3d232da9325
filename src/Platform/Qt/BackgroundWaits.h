#pragma once

#include <chrono>
#include <mutex>
#include <set>

class QEventLoop;

namespace orvelle {

/// Lets background threads wait for what Qt's events bring them, until the program wants to end.
class BackgroundWaits {
public:
    /// Runs the events of the calling thread until `loop` is told to quit or the time is over.
    void wait(QEventLoop& loop, std::chrono::milliseconds bound);
    /// Ends all waits, those to come as well. Any thread.
    void end();

private:
    std::mutex mutex_;
    std::set<QEventLoop*> loops_; ///< guarded by the mutex, as is the next
    bool ended_ = false;
};

} // namespace orvelle
