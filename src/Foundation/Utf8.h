#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvelle {

/// The length of the sequence that the text begins with; 0 when it is not well-formed.
std::size_t utf8SequenceLength(std::string_view text);

/// The text with each byte that belongs to no well-formed UTF-8 sequence replaced by the ASCII
/// character `replacement`; never longer than the text.
std::string wellFormedUtf8(std::string_view text, char replacement);

} // namespace orvelle
