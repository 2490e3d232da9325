#pragma once

#include "Foundation/Json.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// A record as it was read from a document, or why it could not be.
template <class Record>
struct Decoded {
    std::optional<Record> record;
    std::string error; ///< for people; empty with a record
};

/// What a web service replied, as a document. None for a long one as well: real ones are a few
/// thousand bytes, and taking apart what a hostile server sends would hold up the main thread.
namespace JsonReply {
inline constexpr std::size_t longest = 128 << 10; ///< bytes

inline std::optional<Json> parse(std::string_view body) {
    return body.size() <= longest ? Json::parse(body) : std::nullopt;
}
} // namespace JsonReply

/// Reads the members of one JSON object, and remembers the first that is not as it must be. Members
/// that nobody asks for do not matter.
class JsonRecord {
public:
    /// `json` is null when the object is missing; it outlives this reader.
    explicit JsonRecord(const Json* json) : json_(json) {
        if (!json || json->isNull())
            error_ = isMissing;
        else if (!json->object())
            error_ = isInWrongFormat;
    }

    // Required members; 0 or empty when they are no good.
    double number(std::string_view key) { return take(key, &Json::number); }
    std::int64_t integer(std::string_view key) { return take(key, &Json::integer); }
    std::string string(std::string_view key) { return take(key, &Json::string); }
    /// A member that may be missing or null.
    std::optional<std::string> optionalString(std::string_view key) {
        const auto* member = find(key);
        if (!member)
            return std::nullopt;
        return value(*member, &Json::string);
    }

    /// Empty while every member was as it must be.
    const std::string& error() const { return error_; }

    template <class Record>
    Decoded<Record> decoded(Record record) const {
        if (!error_.empty())
            return {std::nullopt, error_};
        return {std::move(record), {}};
    }

    static constexpr const char* isMissing = "The data couldn’t be read because it is missing.";
    static constexpr const char* isInWrongFormat =
        "The data couldn’t be read because it isn’t in the correct format.";

private:
    template <class Value>
    using Reader = std::optional<Value> (Json::*)() const;

    /// Null as well when it is null.
    const Json* find(std::string_view key) const {
        const auto* member = json_ ? json_->find(key) : nullptr;
        return member && !member->isNull() ? member : nullptr;
    }
    template <class Value>
    Value value(const Json& member, Reader<Value> read) {
        auto found = (member.*read)();
        if (!found)
            fail(isInWrongFormat);
        return found ? *std::move(found) : Value{};
    }
    template <class Value>
    Value take(std::string_view key, Reader<Value> read) {
        if (const auto* member = find(key))
            return value(*member, read);
        fail(isMissing);
        return {};
    }
    void fail(const char* reason) {
        if (error_.empty())
            error_ = reason;
    }

    const Json* json_;
    std::string error_;
};

} // namespace orvelle
