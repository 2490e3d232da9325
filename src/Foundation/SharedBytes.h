#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvelle {

/// Bytes, shared and never changed after they are made: a copy costs nothing.
class SharedBytes {
public:
    SharedBytes() = default;
    explicit SharedBytes(std::string bytes)
        : bytes_(std::make_shared<const std::string>(std::move(bytes))) {}

    std::string_view view() const {
        return bytes_ ? std::string_view(*bytes_) : std::string_view();
    }
    bool empty() const { return view().empty(); }

    /// The same bytes; at once when both are copies of one another.
    bool operator==(const SharedBytes& other) const {
        return bytes_ == other.bytes_ || view() == other.view();
    }

private:
    std::shared_ptr<const std::string> bytes_;
};

} // namespace orvelle
