#include "Platform/Linux/SmallFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>

namespace orvelle {

std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return std::nullopt;
    std::string text(limit, '\0');
    std::size_t length = 0;
    ssize_t count = 0;
    do {
        count = ::read(file, text.data() + length, limit - length);
        if (count > 0)
            length += static_cast<std::size_t>(count);
    } while ((count > 0 && length < limit) || (count < 0 && errno == EINTR));
    ::close(file);
    if (count < 0)
        return std::nullopt;
    text.resize(length);
    return text;
}

std::optional<long long> parseNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    long long number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc())
        return std::nullopt;
    return number;
}

} // namespace orvelle
