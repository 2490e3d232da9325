#include "Foundation/Base64.h"

#include <algorithm>

namespace orvelle {

namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string base64(std::span<const std::uint8_t> bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t start = 0; start < bytes.size(); start += 3) {
        const auto group = bytes.subspan(start, std::min<std::size_t>(3, bytes.size() - start));
        std::uint32_t bits = 0;
        for (std::size_t index = 0; index < 3; ++index)
            bits = bits << 8 | (index < group.size() ? group[index] : 0);
        for (std::size_t digit = 0; digit < 4; ++digit)
            text += digit <= group.size() ? alphabet[bits >> (18 - 6 * digit) & 0x3F] : '=';
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    unsigned bitCount = 0;
    for (const char letter : text.substr(0, text.find('='))) {
        const auto value = alphabet.find(letter);
        if (value == std::string_view::npos)
            return std::nullopt;
        bits = (bits << 6 | static_cast<std::uint32_t>(value)) & 0xFFFF;
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes.push_back(static_cast<std::uint8_t>(bits >> bitCount));
        }
    }
    if (base64(bytes) != text) // wrong padding, or stray bits in the last digit
        return std::nullopt;
    return bytes;
}

} // namespace orvelle
