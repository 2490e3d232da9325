#pragma once

#include "Foundation/Subscription.h"
#include "Platform/RunLoop.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace orvelle {

/// Work in the background, one piece after the other in the order of asking. What was asked for is
/// done even when the queue has gone meanwhile, as long as the run loop lives. Main thread only.
class SerialQueue {
public:
    SerialQueue(RunLoop& runLoop, std::string name)
        : label(std::move(name)), state_(std::make_shared<State>(State{runLoop, {}, {}, false})) {}

    const std::string label;

    void async(std::function<void()> work) {
        state_->waiting.push_back(std::move(work));
        proceed(state_);
    }

private:
    struct State {
        RunLoop& runLoop;
        std::deque<std::function<void()>> waiting;
        Subscription running;
        bool isRunning;
    };

    static void proceed(const std::shared_ptr<State>& state) {
        if (state->isRunning || state->waiting.empty())
            return;
        state->isRunning = true;
        auto work = std::move(state->waiting.front());
        state->waiting.pop_front();
        state->running = state->runLoop.detach(
            [work = std::move(work)]() mutable {
                std::exchange(work, nullptr)(); // what it holds dies in the background, too
            },
            [state] {
                state->isRunning = false;
                proceed(state);
            });
    }

    std::shared_ptr<State> state_;
};

} // namespace orvelle
