#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvelle {

/// A JSON document as a value. Whole numbers that fit are kept as integers, so that they are
/// written without a fraction; `number` gives either as a double.
class Json {
public:
    using Array = std::vector<Json>;
    using Object = std::map<std::string, Json, std::less<>>;

    /// Documents nested deeper than this are refused: they are hostile, not data.
    static constexpr int maximumDepth = 64;

    Json() = default;
    Json(std::nullptr_t) {}
    Json(bool value) : value_(value) {}
    Json(std::int64_t value) : value_(value) {}
    Json(int value) : value_(static_cast<std::int64_t>(value)) {}
    Json(double value) : value_(value) {}
    Json(std::string value) : value_(std::move(value)) {}
    Json(const char* value) : value_(std::string(value)) {}
    Json(Array value) : value_(std::move(value)) {}
    Json(Object value) : value_(std::move(value)) {}

    /// None for anything but one whole document of valid UTF-8. Never throws.
    static std::optional<Json> parse(std::string_view text);
    /// Compact, keys in ascending order, no escaping of characters outside ASCII. Numbers that are
    /// not finite become null; text that is not UTF-8 has its bad bytes replaced.
    std::string text() const;

    bool isNull() const { return std::holds_alternative<std::nullptr_t>(value_); }
    /// A number that is kept as a double: written with a fraction or an exponent, or too large for
    /// an integer.
    bool isReal() const { return std::holds_alternative<double>(value_); }
    std::optional<bool> boolean() const { return as<bool>(); }
    /// A whole number; a real one counts when it has no fraction and fits.
    std::optional<std::int64_t> integer() const;
    std::optional<double> number() const;
    std::optional<std::string> string() const { return as<std::string>(); }
    const Array* array() const { return std::get_if<Array>(&value_); }
    const Object* object() const { return std::get_if<Object>(&value_); }
    /// The member of an object; null without that key, or when this is no object.
    const Json* find(std::string_view key) const;
    /// The same by value: JSON's null where `find` gives none.
    Json member(std::string_view key) const;

    bool operator==(const Json&) const = default;

private:
    template <class T>
    std::optional<T> as() const {
        if (const auto* held = std::get_if<T>(&value_))
            return *held;
        return std::nullopt;
    }

    std::variant<std::nullptr_t, bool, std::int64_t, double, std::string, Array, Object> value_ =
        nullptr;
};

} // namespace orvelle
