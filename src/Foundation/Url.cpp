#include "Foundation/Url.h"

#include "Foundation/Format.h"

#include <algorithm>
#include <optional>

namespace orvelle::Url {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";
constexpr std::string_view queryMarks = "-._~!$&'()*+,;=:@/?";

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           isDigit(character);
}

bool mayStandInQuery(char character) {
    return isLetterOrDigit(character) || queryMarks.find(character) != std::string_view::npos;
}

bool isEscape(std::string_view text) {
    return text.size() >= 3 && text[0] == '%' &&
           hexDigits.find(text[1]) != std::string_view::npos &&
           hexDigits.find(text[2]) != std::string_view::npos;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetterOrDigit(text[0]) && !isDigit(text[0]) &&
           std::ranges::all_of(text, [](char character) {
               return isLetterOrDigit(character) || character == '+' || character == '-' ||
                      character == '.';
           });
}

/// Where the authority begins in "//host" and "scheme://host"; none in any other text.
std::optional<std::size_t> authorityStart(std::string_view text) {
    const auto slashes = text.find("//");
    if (slashes == 0)
        return 2;
    if (slashes == std::string_view::npos || text[slashes - 1] != ':' ||
        !isScheme(text.substr(0, slashes - 1)))
        return std::nullopt;
    return slashes + 2;
}

/// What may stand between brackets: "::1", or "v1.x" of a form to come.
bool isNumericHost(std::string_view host) {
    const auto consistsOf = [](std::string_view text, std::string_view marks) {
        return !text.empty() && text.find_first_not_of(marks) == std::string_view::npos;
    };
    if (!host.starts_with('v'))
        return consistsOf(host, "0123456789abcdefABCDEF:.") && host.find(':') != host.npos;
    const auto point = host.find('.');
    return point != host.npos && consistsOf(host.substr(1, point - 1), hexDigits) &&
           point + 1 < host.size() && std::ranges::all_of(host.substr(point + 1), [](char mark) {
               return mayStandInQuery(mark) && mark != '/' && mark != '?' && mark != '@';
           });
}

/// The text without its bracketed host, "[::1]", which stands in an authority alone: at its
/// beginning or behind "@", and with nothing but a port behind. Any other text as it is.
std::string withoutBracketedHost(std::string_view text) {
    const auto start = authorityStart(text);
    if (!start)
        return std::string(text);
    const auto authority = text.substr(*start, text.find_first_of("/?#", *start) - *start);
    const auto open = authority.find('[');
    const auto close = authority.find(']');
    if (open == authority.npos || close == authority.npos || close < open ||
        (open > 0 && authority[open - 1] != '@') ||
        !isNumericHost(authority.substr(open + 1, close - open - 1)))
        return std::string(text);
    const auto port = authority.substr(close + 1);
    if (!port.empty() && (port[0] != ':' || !std::ranges::all_of(port.substr(1), isDigit)))
        return std::string(text);
    return std::string(text.substr(0, *start + open)).append(text.substr(*start + close + 1));
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
        else if (!mayStandInQuery(character) && !isEscape(std::string_view(rest).substr(index)))
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
