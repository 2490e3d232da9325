#pragma once

#include <string_view>

namespace orvelle {

/// Whether the text is written as an address, relative ones included: not empty, of the characters
/// that RFC 3986 allows, and each percent sign before two hexadecimal digits. Says nothing of what
/// stands behind it.
bool isUrl(std::string_view text);

} // namespace orvelle
