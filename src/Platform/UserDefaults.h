#pragma once

#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvelle {

using Data = std::vector<std::uint8_t>;
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, Date, Data>;

/// The user's settings: typed values under plain string keys. A key that nobody wrote is unset; no
/// default is registered here. Main thread only; reads and writes never wait for the disk.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    virtual std::optional<DefaultsValue> object(std::string_view key) const = 0;
    /// Ascending.
    virtual std::vector<std::string> keys() const = 0;
    /// Kept in memory at once, and on disk soon after. A write that the disk refuses is logged and
    /// tried again, at the next one and from time to time.
    virtual void set(std::string_view key, DefaultsValue value) = 0;
    virtual void remove(std::string_view key) = 0;

    /// Called after every change of any key, with this process or another as its writer.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> changed) = 0;

    /// Lenient reads: an unset key or a value of no use gives false, 0 or none. Numbers count as
    /// true when not 0; of texts "true", "yes" and "1" are true and "false", "no" and "0" false in
    /// any case, and a text that is a number reads as that number, since a command line writes
    /// texts.
    bool boolean(std::string_view key) const { return readableBoolean(key).value_or(false); }
    double number(std::string_view key) const { return readableNumber(key).value_or(0); }
    /// The same, but none instead of false and 0.
    std::optional<bool> readableBoolean(std::string_view key) const;
    std::optional<double> readableNumber(std::string_view key) const;
    /// A whole number; a real one is cut towards zero.
    std::int64_t integer(std::string_view key) const;
    std::optional<std::string> string(std::string_view key) const;
    std::optional<Data> data(std::string_view key) const;
    std::optional<Date> date(std::string_view key) const;
    /// The value only when it was stored as a boolean, so that unset differs from false.
    std::optional<bool> storedBoolean(std::string_view key) const;
};

} // namespace orvelle
