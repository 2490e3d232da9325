#include "Platform/UserDefaults.h"

#include <cctype>
#include <charconv>
#include <cmath>

namespace orvelle {

namespace {

std::optional<double> numberIn(std::string_view text) {
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<bool> booleanIn(std::string_view text) {
    std::string lower;
    for (const char letter : text)
        lower += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    if (lower == "true" || lower == "yes" || lower == "1")
        return true;
    if (lower == "false" || lower == "no" || lower == "0")
        return false;
    return std::nullopt;
}

} // namespace

std::optional<bool> UserDefaults::readableBoolean(std::string_view key) const {
    if (const auto text = string(key))
        return booleanIn(*text);
    if (const auto value = readableNumber(key))
        return *value != 0;
    return std::nullopt;
}

std::optional<double> UserDefaults::readableNumber(std::string_view key) const {
    const auto value = object(key);
    if (!value)
        return std::nullopt;
    if (const auto* flag = std::get_if<bool>(&*value))
        return *flag ? 1 : 0;
    if (const auto* whole = std::get_if<std::int64_t>(&*value))
        return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&*value); real && std::isfinite(*real))
        return *real;
    if (const auto* text = std::get_if<std::string>(&*value))
        return numberIn(*text);
    return std::nullopt;
}

std::int64_t UserDefaults::integer(std::string_view key) const {
    const auto value = object(key);
    if (value)
        if (const auto* whole = std::get_if<std::int64_t>(&*value))
            return *whole;
    const double real = std::trunc(number(key));
    constexpr double limit = 9.2e18; // within 64 bits with room to spare
    return std::fabs(real) < limit ? static_cast<std::int64_t>(real) : 0;
}

namespace {

template <class T>
std::optional<T> held(const std::optional<DefaultsValue>& value) {
    if (value)
        if (const auto* typed = std::get_if<T>(&*value))
            return *typed;
    return std::nullopt;
}

} // namespace

std::optional<std::string> UserDefaults::string(std::string_view key) const {
    return held<std::string>(object(key));
}

std::optional<Data> UserDefaults::data(std::string_view key) const {
    return held<Data>(object(key));
}

std::optional<Date> UserDefaults::date(std::string_view key) const {
    return held<Date>(object(key));
}

std::optional<bool> UserDefaults::storedBoolean(std::string_view key) const {
    return held<bool>(object(key));
}

} // namespace orvelle
