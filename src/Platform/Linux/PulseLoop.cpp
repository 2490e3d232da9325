#include "Platform/Linux/PulseLoop.h"

#include <sys/eventfd.h>

namespace orvelle {

PulseLoop::PulseLoop() : wakeUp_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    // The library's own wake-up is lost when it comes just before the loop goes to sleep.
    api().io_new(
        &api(), wakeUp_.get(), PA_IO_EVENT_INPUT,
        [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* self) {
            static_cast<PulseLoop*>(self)->runPosted();
        },
        this);
    thread_ = std::thread([this] { pa_mainloop_run(loop_.get(), nullptr); });
}

PulseLoop::~PulseLoop() {
    post([this] { pa_mainloop_quit(loop_.get(), 0); });
    thread_.join();
}

void PulseLoop::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
    }
    eventfd_write(wakeUp_.get(), 1);
}

void PulseLoop::runPosted() {
    eventfd_t count = 0;
    eventfd_read(wakeUp_.get(), &count);
    std::vector<std::function<void()>> work;
    {
        const std::lock_guard lock(mutex_);
        work.swap(posted_);
    }
    for (const auto& each : work)
        each();
}

} // namespace orvelle
