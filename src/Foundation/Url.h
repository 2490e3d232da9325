#pragma once

#include <string>
#include <string_view>

/// Web addresses as texts.
namespace orvelle::Url {

/// Whether this is an absolute or relative address by RFC 3986: no blanks, no letters outside
/// ASCII, each "%" before two hexadecimal digits, brackets around a host only. False for nothing.
bool isValid(std::string_view text);

/// Fit for the query of an address: what may not stand there is escaped, byte by byte in capital
/// hexadecimal digits. "&", "+" and "=" may, and stay.
std::string escapedForQuery(std::string_view text);

} // namespace orvelle::Url
