#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace orvelle {

/// The management controller's parameter block, used for both question and answer. Its words are
/// little-endian; bytes that `SMCLayout` does not name are zero.
using SMCRecord = std::array<std::uint8_t, 80>;

/// Positions in the parameter block.
namespace SMCLayout {
inline constexpr std::size_t key = 0;       ///< word, a packed code
inline constexpr std::size_t dataSize = 28; ///< word, bytes of the key's value; 0 without a value
inline constexpr std::size_t dataType = 32; ///< word, a packed code
inline constexpr std::size_t command = 42;  ///< byte, an `SMCCommand`
inline constexpr std::size_t data = 48;     ///< 32 bytes of value
} // namespace SMCLayout

enum class SMCCommand : std::uint8_t { readKey = 5, keyInfo = 9 };

constexpr std::uint32_t smcWord(const SMCRecord& record, std::size_t offset) {
    std::uint32_t word = 0;
    for (std::size_t index = 4; index-- > 0;)
        word = word << 8 | record[offset + index];
    return word;
}

constexpr void setSMCWord(SMCRecord& record, std::size_t offset, std::uint32_t word) {
    for (std::size_t index = 0; index < 4; ++index)
        record[offset + index] = static_cast<std::uint8_t>(word >> (8 * index));
}

/// The packed form of a key or type: at most the first four bytes of `text`, each shifted in from
/// the low end.
constexpr std::uint32_t fourCharCode(std::string_view text) {
    std::uint32_t code = 0;
    for (const char character : text.substr(0, 4))
        code = code << 8 | static_cast<std::uint8_t>(character);
    return code;
}

/// An open connection; destroying it closes it.
class SMCConnection {
public:
    virtual ~SMCConnection() = default;
    /// None when the call itself failed.
    virtual std::optional<SMCRecord> call(const SMCRecord& input) = 0;
};

class SMCService {
public:
    virtual ~SMCService() = default;
    /// Null on a machine without a controller.
    virtual std::unique_ptr<SMCConnection> open() = 0;
};

} // namespace orvelle
