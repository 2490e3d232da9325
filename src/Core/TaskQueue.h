#pragma once

#include "Foundation/Subscription.h"

#include <deque>
#include <functional>
#include <utility>

namespace orvelle {

/// Tasks that each take a while, one after the other in the order in which they were given. Main
/// thread only. Destroying the queue cancels the running task and forgets the others.
class TaskQueue {
public:
    /// Begins when its turn comes. Gives the handle of what it started, which calls `finished` at
    /// the end, or an empty handle when there is nothing to wait for.
    using Task = std::function<Subscription(std::function<void()> finished)>;

    TaskQueue() = default;
    TaskQueue(const TaskQueue&) = delete;
    TaskQueue& operator=(const TaskQueue&) = delete;

    void add(Task task) {
        waiting_.push_back(std::move(task));
        if (!running_)
            next();
    }

private:
    void next() {
        running_.reset();
        while (!running_ && !waiting_.empty()) {
            const auto task = std::move(waiting_.front());
            waiting_.pop_front();
            running_ = task([this] { next(); });
        }
    }

    std::deque<Task> waiting_;
    Subscription running_;
};

} // namespace orvelle
