#include "Foundation/FileURL.h"

#include "Foundation/PercentEncoding.h"

#include <algorithm>
#include <cstddef>

namespace orvelle::FileURL {

namespace {

constexpr std::string_view scheme = "file:";
/// No system takes paths of more than 4096 bytes, each of which an address may write with three.
constexpr std::size_t longestAddress = 3 * 4096 + 1024;

char lowered(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lowered, lowered);
}

std::optional<int> hexadecimal(char digit) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value =
        digits.find(digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 32) : digit);
    return value == digits.npos ? std::nullopt : std::optional(static_cast<int>(value));
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            bytes += text[index];
            continue;
        }
        if (index + 2 >= text.size())
            return std::nullopt;
        const auto high = hexadecimal(text[index + 1]);
        const auto low = hexadecimal(text[index + 2]);
        if (!high || !low)
            return std::nullopt;
        bytes += static_cast<char>(*high * 16 + *low);
        index += 2;
    }
    return bytes;
}

} // namespace

std::string ofPath(std::string_view path) {
    return "file://" + percentEncoded(path, "/");
}

std::optional<std::string> path(std::string_view url, std::string_view hostName) {
    if (url.size() > longestAddress || !equalIgnoringCase(url.substr(0, scheme.size()), scheme))
        return std::nullopt;
    url.remove_prefix(scheme.size());
    if (url.starts_with("//")) {
        url.remove_prefix(2);
        const auto host = url.substr(0, url.find('/'));
        if (!host.empty() && !equalIgnoringCase(host, "localhost") &&
            !equalIgnoringCase(host, hostName))
            return std::nullopt;
        url.remove_prefix(host.size());
    }
    auto bytes = unescaped(url.substr(0, url.find_first_of("?#")));
    if (!bytes || !bytes->starts_with('/') || bytes->find('\0') != bytes->npos)
        return std::nullopt;
    return bytes;
}

std::vector<std::string> list(std::string_view uriList, std::string_view hostName,
                              std::size_t most) {
    std::vector<std::string> urls;
    while (!uriList.empty() && urls.size() < most) {
        const auto end = uriList.find_first_of("\r\n");
        if (const auto file = path(uriList.substr(0, end), hostName))
            urls.push_back(ofPath(*file));
        uriList.remove_prefix(end == uriList.npos ? uriList.size() : end + 1);
    }
    return urls;
}

std::string lastPathComponent(std::string_view path) {
    while (path.ends_with('/'))
        path.remove_suffix(1);
    return std::string(path.substr(path.rfind('/') + 1));
}

} // namespace orvelle::FileURL
