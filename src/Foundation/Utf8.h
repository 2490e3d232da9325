#pragma once

#include <string>
#include <string_view>

namespace orvelle {

/// The text with each byte that belongs to no well-formed UTF-8 sequence replaced by the ASCII
/// character `replacement`; never longer than the text.
std::string wellFormedUtf8(std::string_view text, char replacement);

} // namespace orvelle
