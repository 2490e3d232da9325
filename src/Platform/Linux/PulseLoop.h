#pragma once

#include "Platform/Linux/Descriptor.h"

#include <pulse/mainloop.h>

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace orvelle {

/// The sound library's own loop on a thread of its own, since connecting reads files and may ask
/// the display.
class PulseLoop {
public:
    PulseLoop();
    /// Runs what was posted, then ends the thread.
    ~PulseLoop();
    PulseLoop(const PulseLoop&) = delete;
    PulseLoop& operator=(const PulseLoop&) = delete;

    /// For use in posted work and in the library's callbacks only.
    pa_mainloop_api& api() { return *pa_mainloop_get_api(loop_.get()); }
    /// Runs `work` on the loop's thread, in order of posting. Any thread.
    void post(std::function<void()> work);

private:
    void runPosted();

    struct Free {
        void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
    };

    std::unique_ptr<pa_mainloop, Free> loop_{pa_mainloop_new()};
    Descriptor wakeUp_;
    std::mutex mutex_;
    std::vector<std::function<void()>> posted_; ///< guarded by the mutex
    std::thread thread_;
};

} // namespace orvelle
