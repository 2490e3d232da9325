#pragma once

#include "Platform/Simulated/SimulatedRunLoop.h"

#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace orvelle {

/// Virtual time, with background work on a thread of its own; its completion waits for the test.
class ThreadedRunLoop : public SimulatedRunLoop {
public:
    ~ThreadedRunLoop() override { awaitWork(); }

    int detachCount = 0;
    /// The threads have other things to do, and begin nothing before `complete`.
    bool isBusy = false;

    Subscription detach(std::function<void()> work, std::function<void()> done) override {
        awaitWork();
        ++detachCount;
        work_ = std::move(work);
        if (!isBusy)
            begin();
        auto wanted = std::make_shared<bool>(true);
        completion_ = [wanted, done = std::move(done)] {
            if (*wanted)
                done();
        };
        return Subscription([wanted] { *wanted = false; });
    }
    void awaitWork() {
        if (thread_.joinable())
            thread_.join();
    }
    void complete() {
        begin();
        awaitWork();
        if (const auto completion = std::exchange(completion_, nullptr))
            completion();
    }

private:
    void begin() {
        if (auto work = std::exchange(work_, nullptr))
            thread_ = std::thread(std::move(work));
    }

    std::function<void()> work_;
    std::thread thread_;
    std::function<void()> completion_;
};

} // namespace orvelle
