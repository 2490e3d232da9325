#pragma once

#include "Foundation/Subscription.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvelle {

/// Observers of something that happens. Main thread only. An observer may register, unregister or
/// fire again while it is being called, and may even destroy the event.
template <class... Arguments>
class Event {
public:
    using Observer = std::function<void(const Arguments&...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription observe(Observer observer) {
        auto slot = std::make_shared<Slot>(Slot{std::move(observer), true});
        slots_->push_back(slot);
        return Subscription([slot, slots = std::weak_ptr<Slots>(slots_)] {
            slot->active = false;
            if (auto list = slots.lock())
                std::erase(*list, slot);
        });
    }

    void operator()(const Arguments&... arguments) const {
        const auto calling = *slots_;
        for (const auto& slot : calling)
            if (slot->active)
                slot->observer(arguments...);
    }

private:
    struct Slot {
        Observer observer;
        bool active;
    };
    using Slots = std::vector<std::shared_ptr<Slot>>;

    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

/// A value that tells its observers of every assignment, equal values included: whoever draws
/// compares for itself. Main thread only; the rules of `Event` hold for its observers.
template <class T>
class Published {
public:
    using Effect = std::function<void(const T&)>;

    Published() : Published(T{}) {}
    /// `onAssign` runs at every assignment, before the observers; never for the initial value.
    explicit Published(T initial, Effect onAssign = {})
        : state_(std::make_shared<State>(std::move(initial))), onAssign_(std::move(onAssign)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& get() const { return state_->value; }
    operator const T&() const { return state_->value; }
    const T* operator->() const { return &state_->value; }

    Published& operator=(T value) {
        set(std::move(value));
        return *this;
    }
    void set(T value) {
        const auto state = state_; // an observer may destroy this object
        state->value = std::move(value);
        if (onAssign_)
            onAssign_(state->value);
        state->changed(state->value);
    }
    /// Changes the value in place and publishes once.
    template <class Change>
    void update(Change change) {
        T value = state_->value;
        change(value);
        set(std::move(value));
    }

    /// Delivers the present value at once, then every later one.
    [[nodiscard]] Subscription observe(const Effect& observer) const {
        auto subscription = state_->changed.observe(observer);
        observer(state_->value);
        return subscription;
    }

private:
    struct State {
        explicit State(T initial) : value(std::move(initial)) {}
        T value;
        Event<T> changed;
    };

    std::shared_ptr<State> state_;
    Effect onAssign_;
};

} // namespace orvelle
