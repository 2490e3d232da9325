#include "Features/UpdateChecker/VersionManifest.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace orvelle {

namespace {

/// A piece as a whole number, with or without a sign; none when anything else is in it.
std::optional<std::int64_t> number(std::string_view piece) {
    if (piece.starts_with('+') && !piece.starts_with("+-"))
        piece.remove_prefix(1);
    std::int64_t value = 0;
    const auto* end = piece.data() + piece.size();
    const auto parsed = std::from_chars(piece.data(), end, value);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        return std::nullopt;
    return value;
}

std::vector<std::int64_t> numbers(std::string_view version) {
    std::vector<std::int64_t> list;
    while (!version.empty()) {
        const auto dot = std::min(version.find('.'), version.size());
        if (const auto value = number(version.substr(0, dot)))
            list.push_back(*value);
        version.remove_prefix(std::min(dot + 1, version.size()));
    }
    return list;
}

} // namespace

Decoded<VersionManifest> VersionManifest::decode(std::string_view body) {
    const auto document = JsonReply::parse(body);
    if (!document || !document->object())
        return {std::nullopt, JsonRecord::isInWrongFormat};
    JsonRecord manifest(&*document);
    return manifest.decoded(VersionManifest{.version = manifest.string("version"),
                                            .build = manifest.string("build"),
                                            .url = manifest.string("url"),
                                            .notes = manifest.string("notes")});
}

bool isNewerVersion(std::string_view candidate, std::string_view reference) {
    auto left = numbers(candidate);
    auto right = numbers(reference);
    const auto length = std::max(left.size(), right.size());
    left.resize(length);
    right.resize(length);
    return left > right;
}

} // namespace orvelle
