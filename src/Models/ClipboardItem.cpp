#include "Models/ClipboardItem.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvelle {

namespace {

bool isHexDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

/// Letters beyond ASCII count: what takes addresses escapes them.
constexpr auto urlBytes = [] {
    std::array<bool, 256> may{};
    for (std::size_t code = ' ' + 1; code < may.size(); ++code)
        may[code] = code != 0x7f;
    for (const char excluded : std::string_view("\"<>\\^`{|}"))
        may[static_cast<unsigned char>(excluded)] = false;
    return may;
}();

bool mayStandInUrl(char character) {
    return urlBytes[static_cast<unsigned char>(character)];
}

bool isUrl(std::string_view text) {
    if (!std::all_of(text.begin(), text.end(), mayStandInUrl))
        return false;
    for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (at + 2 >= text.size() || !isHexDigit(text[at + 1]) || !isHexDigit(text[at + 2]))
            return false;
    const auto fragment = text.find('#');
    return fragment == std::string_view::npos || !Text::contains(text.substr(fragment + 1), "#");
}

/// As the C library converts text to a double, but whatever the locale; the whole text counts.
bool isNumber(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    if (text.starts_with('+') || text.starts_with('-'))
        return false;
    auto format = std::chars_format::general;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        format = std::chars_format::hex;
        if (text.empty() || (!isHexDigit(text.front()) && text.front() != '.'))
            return false;
    }
    double ignored = 0;
    const auto [end, failure] =
        std::from_chars(text.data(), text.data() + text.size(), ignored, format);
    return end == text.data() + text.size() && failure != std::errc::invalid_argument;
}

} // namespace

ClipboardContentType detectContentType(std::string_view text) {
    const auto trimmed = Text::trimmingBlanksAndNewlines(text);
    if (Text::contains(trimmed, "://") && isUrl(trimmed))
        return ClipboardContentType::url;
    if (Text::contains(trimmed, "@") && Text::contains(trimmed, ".") &&
        !Text::contains(trimmed, " "))
        return ClipboardContentType::email;
    if (isNumber(trimmed))
        return ClipboardContentType::number;
    for (const char* sign : {"{", "func ", "class ", "import ", "let ", "var "})
        if (Text::contains(trimmed, sign))
            return ClipboardContentType::code;
    return ClipboardContentType::text;
}

std::string ClipboardItem::preview() const {
    constexpr std::size_t length = 100;
    const auto trimmed = Text::trimmingBlanksAndNewlines(content);
    const auto beginning = Text::firstCharacters(trimmed, length);
    std::string preview(beginning);
    if (beginning.size() < trimmed.size())
        preview += "...";
    return preview;
}

} // namespace orvelle
