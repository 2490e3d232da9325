#include "Foundation/UUID.h"

#include <random>

namespace orvelle {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isDashPosition(std::size_t byteIndex) {
    return byteIndex == 4 || byteIndex == 6 || byteIndex == 8 || byteIndex == 10;
}

std::optional<std::uint8_t> hexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    return std::nullopt;
}

} // namespace

UUID UUID::random() {
    std::random_device source;
    UUID id;
    for (auto& byte : id.bytes)
        byte = static_cast<std::uint8_t>(source());
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40); // version 4
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    UUID id;
    std::size_t position = 0;
    for (std::size_t index = 0; index < id.bytes.size(); ++index) {
        if (isDashPosition(index)) {
            if (position >= text.size() || text[position] != '-')
                return std::nullopt;
            ++position;
        }
        if (position + 2 > text.size())
            return std::nullopt;
        const auto high = hexValue(text[position]);
        const auto low = hexValue(text[position + 1]);
        if (!high || !low)
            return std::nullopt;
        id.bytes[index] = static_cast<std::uint8_t>(*high << 4 | *low);
        position += 2;
    }
    if (position != text.size())
        return std::nullopt;
    return id;
}

std::string UUID::text() const {
    std::string result;
    result.reserve(36);
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        if (isDashPosition(index))
            result += '-';
        result += hexDigits[bytes[index] >> 4];
        result += hexDigits[bytes[index] & 0x0F];
    }
    return result;
}

} // namespace orvelle
