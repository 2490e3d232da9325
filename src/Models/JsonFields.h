#pragma once

#include "Foundation/Date.h"
#include "Foundation/Json.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>
#include <string_view>

/// The fields of a stored record. Each is none when the key is missing or has another type.
namespace orvelle::JsonFields {

inline std::optional<std::string> text(const Json& record, std::string_view key) {
    const auto* field = record.find(key);
    return field ? field->string() : std::nullopt;
}

inline std::optional<bool> boolean(const Json& record, std::string_view key) {
    const auto* field = record.find(key);
    return field ? field->boolean() : std::nullopt;
}

inline std::optional<double> number(const Json& record, std::string_view key) {
    const auto* field = record.find(key);
    return field ? field->number() : std::nullopt;
}

/// Upper-case text; read in either case.
inline std::optional<UUID> uuid(const Json& record, std::string_view key) {
    const auto identifier = text(record, key);
    return identifier ? UUID::parse(*identifier) : std::nullopt;
}

/// A number of seconds since 2001-01-01 00:00:00 UTC.
inline std::optional<Date> date(const Json& record, std::string_view key) {
    const auto seconds = number(record, key);
    return seconds ? std::optional(Date{*seconds}) : std::nullopt;
}

} // namespace orvelle::JsonFields
