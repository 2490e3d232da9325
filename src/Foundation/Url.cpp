#include "Foundation/Url.h"

#include "Foundation/Format.h"

namespace orvelle::Url {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";
constexpr std::string_view queryMarks = "-._~!$&'()*+,;=:@/?";

bool isLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

bool mayStandInQuery(char character) {
    return isLetterOrDigit(character) || queryMarks.find(character) != std::string_view::npos;
}

bool isEscape(std::string_view text) {
    return text.size() >= 3 && text[0] == '%' &&
           hexDigits.find(text[1]) != std::string_view::npos &&
           hexDigits.find(text[2]) != std::string_view::npos;
}

/// Brackets enclose a numeric host: "//[::1]".
std::string_view withoutBracketedHost(std::string_view text) {
    const auto open = text.find("//[");
    const auto close = text.find(']');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
        return text;
    return text.substr(close + 1);
}

} // namespace

bool isValid(std::string_view text) {
    if (text.empty())
        return false;
    bool hasFragment = false;
    const auto rest = withoutBracketedHost(text);
    for (std::size_t index = 0; index < rest.size(); ++index) {
        const char character = rest[index];
        if (character == '#' && !hasFragment)
            hasFragment = true;
        else if (!mayStandInQuery(character) && !isEscape(rest.substr(index)))
            return false;
    }
    return true;
}

std::string escapedForQuery(std::string_view text) {
    std::string escaped;
    for (const char character : text)
        if (mayStandInQuery(character))
            escaped += character;
        else
            escaped +=
                format("%%%02X", static_cast<unsigned>(static_cast<unsigned char>(character)));
    return escaped;
}

} // namespace orvelle::Url
