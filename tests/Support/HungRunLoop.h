#pragma once

#include "Platform/Simulated/SimulatedRunLoop.h"

#include <functional>
#include <utility>

namespace orvelle {

/// Virtual time on a machine where background work hangs, and saving alone goes on.
class HungRunLoop : public SimulatedRunLoop {
public:
    Subscription detach(std::function<void()>, std::function<void()>) override {
        return Subscription([] {});
    }
    Subscription detachSaving(std::function<void()> work, std::function<void()> done) override {
        return SimulatedRunLoop::detach(std::move(work), std::move(done));
    }
};

} // namespace orvelle
