#include "Foundation/Url.h"

#include <algorithm>

namespace orvelle {

namespace {

bool isHexDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool isAllowed(char character) {
    constexpr std::string_view others = "-._~:/?#[]@!$&'()*+,;=%";
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z') ||
           others.find(character) != std::string_view::npos;
}

} // namespace

bool isUrl(std::string_view text) {
    if (text.empty() || !std::all_of(text.begin(), text.end(), isAllowed))
        return false;
    for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (at + 2 >= text.size() || !isHexDigit(text[at + 1]) || !isHexDigit(text[at + 2]))
            return false;
    return true;
}

} // namespace orvelle
