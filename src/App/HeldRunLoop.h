#pragma once

#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedRunLoop.h"

#include <functional>
#include <utility>

namespace orvelle {

/// Qt's event loop, whose delays can be made to wait for a time that moves only when told. Ticks of
/// repeating timers keep to the clock on the wall.
class HeldRunLoop : public QtRunLoop {
public:
    void hold() { isHeld_ = true; }
    void advance(Seconds seconds) { held_.advance(seconds); }
    /// Back to real time, for which nothing waits any more.
    void release() {
        constexpr Seconds longestDelay = 3600;
        isHeld_ = false;
        held_.advance(longestDelay);
    }

    Timer after(Seconds delay, std::function<void()> fire) override {
        return isHeld_ ? held_.after(delay, std::move(fire))
                       : QtRunLoop::after(delay, std::move(fire));
    }

private:
    SimulatedRunLoop held_;
    bool isHeld_ = false;
};

} // namespace orvelle
