#include "Features/Media/AppleScriptMediaInfo.h"

#include "Features/Media/MediaTime.h"

#include <charconv>
#include <utility>
#include <vector>

namespace orvelle {

namespace {

constexpr std::string_view fieldSeparator = "||";
constexpr std::size_t leastFields = 6;

std::vector<std::string_view> split(std::string_view line) {
    std::vector<std::string_view> fields;
    for (;;) {
        const auto end = line.find(fieldSeparator);
        fields.push_back(line.substr(0, end));
        if (end == std::string_view::npos)
            return fields;
        line.remove_prefix(end + fieldSeparator.size());
    }
}

/// The text as a whole, with a decimal point in every language.
double seconds(std::string_view text) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && parsed == end ? mediaTime(value) : 0;
}

} // namespace

std::optional<AppleScriptMediaInfo>
AppleScriptMediaInfo::parse(std::string_view line, std::string bundleID, std::string appName) {
    const auto fields = split(line);
    if (fields.size() < leastFields)
        return std::nullopt;
    AppleScriptMediaInfo info{.title = std::string(fields[0]),
                              .artist = std::string(fields[1]),
                              .album = std::string(fields[2]),
                              .duration = seconds(fields[3]),
                              .elapsed = seconds(fields[4]),
                              .isPlaying = fields[5] == "true",
                              .bundleID = std::move(bundleID),
                              .appName = std::move(appName),
                              .artworkURL = {}};
    if (fields.size() > leastFields && !fields[leastFields].empty())
        info.artworkURL = fields[leastFields];
    return info;
}

} // namespace orvelle
