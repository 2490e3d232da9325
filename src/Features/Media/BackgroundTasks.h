#pragma once

#include "Platform/RunLoop.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace orvelle {

/// Work on background threads, any amount at once, whose results come to the main thread as long as
/// the owner lives.
class BackgroundTasks {
public:
    explicit BackgroundTasks(RunLoop& runLoop) : runLoop_(runLoop) {}

    /// `work` carries copies of what it needs. `done` takes its result; without one nobody wants to
    /// know.
    template <class Work>
    void run(Work work) {
        run(std::move(work), [](const auto&) {});
    }
    template <class Work, class Done>
    void run(Work work, Done done) {
        auto result = std::make_shared<std::optional<std::invoke_result_t<Work&>>>();
        const auto id = nextId_++;
        handles_[id] =
            runLoop_.detach([work = std::move(work), result]() mutable { result->emplace(work()); },
                            [this, id, result, done = std::move(done)]() mutable {
                                handles_.erase(id);
                                done(*std::move(*result));
                            });
    }

private:
    RunLoop& runLoop_;
    std::uint64_t nextId_ = 0;
    std::map<std::uint64_t, Subscription> handles_;
};

} // namespace orvelle
