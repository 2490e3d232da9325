#pragma once

#include <string>
#include <string_view>

namespace orvelle {

/// Every byte but the letters, digits and "-._~" of ASCII as "%XX" (RFC 3986), so that the text can
/// be a value anywhere in an address. Those in `alsoPlain` stand for themselves too.
std::string percentEncoded(std::string_view text, std::string_view alsoPlain = {});

} // namespace orvelle
