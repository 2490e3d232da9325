#include "Foundation/Utf8.h"

#include <cstddef>

namespace orvelle {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

bool isContinuation(unsigned char byte, unsigned char low = 0x80, unsigned char high = 0xBF) {
    return byte >= low && byte <= high;
}

} // namespace

// The ranges are those of the Unicode standard's table 3-7: no overlong forms, no surrogates.
std::size_t utf8SequenceLength(std::string_view text) {
    const auto first = byteAt(text, 0);
    const auto second = byteAt(text, 1);
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return isContinuation(second) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool isWhole =
            isContinuation(second, first == 0xE0 ? 0xA0 : 0x80, first == 0xED ? 0x9F : 0xBF) &&
            isContinuation(byteAt(text, 2));
        return isWhole ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool isWhole =
            isContinuation(second, first == 0xF0 ? 0x90 : 0x80, first == 0xF4 ? 0x8F : 0xBF) &&
            isContinuation(byteAt(text, 2)) && isContinuation(byteAt(text, 3));
        return isWhole ? 4 : 0;
    }
    return 0;
}

std::string wellFormedUtf8(std::string_view text, char replacement) {
    std::string result;
    while (!text.empty()) {
        const auto length = utf8SequenceLength(text);
        if (length)
            result += text.substr(0, length);
        else
            result += replacement;
        text.remove_prefix(length ? length : 1);
    }
    return result;
}

} // namespace orvelle
