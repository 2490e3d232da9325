#pragma once

#include "Foundation/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace orvelle {

/// Operations under way, any number at a time; those that are not done end with their owner. Main
/// thread only. Declare it behind what the operations' callbacks use.
class Tasks {
public:
    /// Ends the operation's entry; to be called from its completion.
    using Finished = std::function<void()>;

    /// `begin` starts the operation and gives its handle. It must not complete during the call.
    void start(const std::function<Subscription(Finished)>& begin) {
        const auto id = nextId_++;
        running_.emplace(id, begin([this, id] { running_.erase(id); }));
    }

private:
    std::uint64_t nextId_ = 0;
    std::map<std::uint64_t, Subscription> running_;
};

} // namespace orvelle
