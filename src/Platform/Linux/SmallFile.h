#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// The first `limit` bytes of one of the kernel's small text files; none when it cannot be read.
std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit = 4096);

/// A whole number at the start of `text`, after blanks; none when there is none or it overflows.
std::optional<long long> parseNumber(std::string_view text);

} // namespace orvelle
