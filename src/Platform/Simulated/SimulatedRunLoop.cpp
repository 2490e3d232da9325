#include "Platform/Simulated/SimulatedRunLoop.h"

namespace orvelle {

void SimulatedRunLoop::advance(Seconds seconds) {
    const Seconds end = time_ + seconds;
    runPosted();
    while (!timers_->empty() && timers_->begin()->first.first <= end) {
        auto node = timers_->extract(timers_->begin());
        time_ = node.key().first;
        const auto entry = node.mapped();
        if (entry.interval > 0) {
            node.key().first += entry.interval;
            timers_->insert(std::move(node));
        }
        (*entry.callback)();
        runPosted();
    }
    time_ = end;
}

void SimulatedRunLoop::runPosted() {
    while (!posted_.empty()) {
        const auto work = std::move(posted_.front());
        posted_.pop_front();
        work();
    }
}

void SimulatedRunLoop::setNow(Date now) {
    start_ = now + -time_;
}

Timer SimulatedRunLoop::every(Seconds interval, std::function<void()> tick) {
    return schedule(interval, interval, std::move(tick));
}

Timer SimulatedRunLoop::after(Seconds delay, std::function<void()> fire) {
    return schedule(delay, 0, std::move(fire));
}

void SimulatedRunLoop::post(std::function<void()> work) {
    posted_.push_back(std::move(work));
}

Subscription SimulatedRunLoop::detach(std::function<void()> work, std::function<void()> done) {
    auto wanted = std::make_shared<bool>(true);
    post([work = std::move(work), done = std::move(done), wanted] {
        work();
        if (*wanted)
            done();
    });
    return Subscription([wanted] { *wanted = false; });
}

Timer SimulatedRunLoop::schedule(Seconds delay, Seconds interval, std::function<void()> callback) {
    const auto id = nextId_++;
    timers_->emplace(Key{time_ + delay, id},
                     Entry{std::make_shared<std::function<void()>>(std::move(callback)), interval});
    return Timer([id, timers = std::weak_ptr<Timers>(timers_)] {
        if (auto list = timers.lock())
            std::erase_if(*list, [id](const auto& item) { return item.first.second == id; });
    });
}

} // namespace orvelle
