#include "Foundation/PercentEncoding.h"

#include "Foundation/Format.h"

namespace orvelle {

std::string percentEncoded(std::string_view text, std::string_view alsoPlain) {
    constexpr std::string_view unreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                            "abcdefghijklmnopqrstuvwxyz"
                                            "0123456789-._~";
    std::string encoded;
    for (const char byte : text) {
        if (unreserved.find(byte) != std::string_view::npos ||
            alsoPlain.find(byte) != std::string_view::npos)
            encoded += byte;
        else
            encoded += format("%%%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    }
    return encoded;
}

} // namespace orvelle
