#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace orvelle {

/// A running registration: an observer, a timer, a unit of background work. Destroying or resetting
/// it ends the registration; a callback that is already under way finishes. Move-only.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            cancel_ = std::exchange(other.cancel_, nullptr);
        }
        return *this;
    }
    ~Subscription() { reset(); }

    void reset() {
        if (auto cancel = std::exchange(cancel_, nullptr))
            cancel();
    }

    /// True while something is registered. A one-shot timer stays true until its owner resets it.
    explicit operator bool() const { return static_cast<bool>(cancel_); }

private:
    std::function<void()> cancel_;
};

/// Lets an object hand out callbacks that hold it weakly: once the object is gone, they do nothing.
/// Declare it as the last member, so that it dies first.
class Lifetime {
public:
    template <class Function>
    auto guard(Function function) const {
        return [weak = std::weak_ptr<const int>(token_),
                function = std::move(function)](auto&&... arguments) mutable {
            if (auto alive = weak.lock())
                function(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<const int> token_ = std::make_shared<const int>(0);
};

} // namespace orvelle
