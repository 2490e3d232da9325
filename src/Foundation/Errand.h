#pragma once

#include "Foundation/Date.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <utility>

namespace orvelle {

/// Work that another thread is asked to do, and that whoever waits for it may do sooner. It is done
/// once, by the thread that comes first.
template <class Result>
class Errand {
public:
    explicit Errand(std::function<Result()> work)
        : work_(std::move(work)), result_(work_.get_future()) {}

    /// Does the work unless a thread has begun it. Any thread.
    void run() {
        if (!begun_.test_and_set())
            work_();
    }
    /// Does the work here when no thread has begun it, else waits for its end.
    void complete() {
        run();
        result_.wait();
    }
    /// Does the work here when no thread has begun it, else waits for `patience` at most. False
    /// when it is not done by then.
    bool finish(Seconds patience) {
        run();
        return await(patience);
    }
    /// Waits for `patience` at most for another thread to do the work.
    bool await(Seconds patience) const {
        return result_.wait_for(std::chrono::duration<Seconds>(patience)) ==
               std::future_status::ready;
    }
    /// Once, after the work was done.
    Result take() { return result_.get(); }

private:
    std::atomic_flag begun_;
    std::packaged_task<Result()> work_;
    std::future<Result> result_;
};

} // namespace orvelle
