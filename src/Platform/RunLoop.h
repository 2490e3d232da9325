#pragma once

#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <functional>

namespace orvelle {

/// A scheduled timer; destroying or resetting it cancels it. It may be reset from its own callback.
using Timer = Subscription;

/// The main thread's loop and its clocks. Everything is called on the main thread, and every
/// callback arrives there, except where a member says otherwise.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    virtual Date now() const = 0;
    /// Seconds since an arbitrary moment; never jumps when the clock is set.
    virtual Seconds monotonicNow() const = 0;

    /// Repeats each `interval` seconds (above 0), first after one interval. An adapter may move the
    /// ticks of timers of half a second and longer, once, so that they share wake-ups and come on
    /// the second: by up to a quarter second, or half a second when the interval is of whole
    /// seconds. Ticks that were missed while the machine slept are not made up for.
    [[nodiscard]] virtual Timer every(Seconds interval, std::function<void()> tick) = 0;
    /// Fires once after `delay` seconds (0 or above), never during the call.
    [[nodiscard]] virtual Timer after(Seconds delay, std::function<void()> fire) = 0;

    /// Runs `work` on the main thread after the present event, in order of posting. Any thread.
    virtual void post(std::function<void()> work) = 0;
    /// Runs `work` on a background thread, then `done` on the main thread unless the handle was
    /// reset before. `work` itself is never interrupted. What each of them holds dies on the thread
    /// that it is for.
    [[nodiscard]] virtual Subscription detach(std::function<void()> work,
                                              std::function<void()> done) = 0;
    /// The same for work that keeps the user's data. It waits for no other work, which may hang on
    /// a program or a device for as long as that likes.
    [[nodiscard]] virtual Subscription detachSaving(std::function<void()> work,
                                                    std::function<void()> done) = 0;
};

} // namespace orvelle
