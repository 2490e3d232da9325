#include "Features/Media/NowPlayingReading.h"

#include "Features/Media/MediaTime.h"

namespace orvelle {

namespace {

template <class T>
std::optional<T> valueOf(const NowPlayingInfo& info, std::string_view key) {
    const auto found = info.find(key);
    const auto* value = found == info.end() ? nullptr : std::get_if<T>(&found->second);
    return value ? std::optional(*value) : std::nullopt;
}

double numberOf(const NowPlayingInfo& info, std::string_view key) {
    if (const auto whole = valueOf<std::int64_t>(info, key))
        return static_cast<double>(*whole);
    return valueOf<double>(info, key).value_or(0);
}

} // namespace

NowPlayingReading::NowPlayingReading(const NowPlayingInfo& info)
    : media{.title = valueOf<std::string>(info, NowPlayingKey::title).value_or(""),
            .artist = valueOf<std::string>(info, NowPlayingKey::artist).value_or(""),
            .album = valueOf<std::string>(info, NowPlayingKey::album).value_or(""),
            .artwork = {},
            .isPlaying = numberOf(info, NowPlayingKey::playbackRate) > 0,
            .duration = mediaTime(numberOf(info, NowPlayingKey::duration)),
            .elapsed = mediaTime(numberOf(info, NowPlayingKey::elapsedTime)),
            .appBundleIdentifier = valueOf<std::string>(info, NowPlayingKey::bundleIdentifier),
            .appName = valueOf<std::string>(info, NowPlayingKey::displayName).value_or("")},
      artwork(valueOf<SharedBytes>(info, NowPlayingKey::artworkData)) {}

} // namespace orvelle
