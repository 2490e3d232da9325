#pragma once

#include "Foundation/Published.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <concepts>
#include <string>
#include <type_traits>
#include <variant>

namespace orvelle {

/// A view's live binding to one setting: the stored value, or the key's default while it is unset
/// or of a type that does not fit; writes go through. Booleans, numbers and texts fit booleans and
/// numbers, by the store's lenient reads; a text takes a text alone.
template <class T>
class Setting {
public:
    using Value = std::conditional_t<std::same_as<T, std::string_view>, std::string, T>;

    Setting(UserDefaults& defaults, const SettingKey<T>& key)
        : defaults_(defaults), key_(key), value_(read()), changes_(defaults.observeChanges([this] {
              if (auto stored = read(); stored != value_.get())
                  value_ = std::move(stored);
          })) {}

    Value get() const { return read(); }
    void set(Value value) { defaults_.set(key_.name, std::move(value)); }

    /// The present value at once, then every different one.
    [[nodiscard]] Subscription observe(std::function<void(const Value&)> observer) const {
        return value_.observe(std::move(observer));
    }

private:
    Value read() const {
        if constexpr (std::same_as<Value, bool>)
            return defaults_.readableBoolean(key_.name).value_or(key_.defaultValue);
        else if constexpr (std::same_as<Value, double>)
            return defaults_.readableNumber(key_.name).value_or(key_.defaultValue);
        else
            return defaults_.string(key_.name).value_or(Value(key_.defaultValue));
    }

    UserDefaults& defaults_;
    SettingKey<T> key_;
    Published<Value> value_;
    Subscription changes_;
};

} // namespace orvelle
