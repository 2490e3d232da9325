#include "Features/Media/MarqueeText.h"

namespace orvelle {

namespace {

/// A byte in the middle of a character.
bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

} // namespace

bool MarqueeText::scrolls(double textWidth, double containerWidth) {
    return textWidth > containerWidth;
}

double MarqueeText::travel(double textWidth) {
    return textWidth + gap;
}

Seconds MarqueeText::duration(double textWidth) {
    return travel(textWidth) / speed;
}

std::string singleLine(std::string_view text) {
    std::string line;
    std::size_t characters = 0;
    for (const char byte : text) {
        if (!isContinuation(byte) && ++characters > MarqueeText::longestText)
            return line + "…";
        line += isControl(byte) ? ' ' : byte;
    }
    return line;
}

} // namespace orvelle
