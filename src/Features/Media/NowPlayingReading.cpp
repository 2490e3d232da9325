#include "Features/Media/NowPlayingReading.h"

#include "Features/Media/MediaTime.h"
#include "Foundation/KeyedValue.h"

namespace orvelle {

NowPlayingReading::NowPlayingReading(const NowPlayingInfo& info)
    : media{.title = keyedValue<std::string>(info, NowPlayingKey::title).value_or(""),
            .artist = keyedValue<std::string>(info, NowPlayingKey::artist).value_or(""),
            .album = keyedValue<std::string>(info, NowPlayingKey::album).value_or(""),
            .artwork = {},
            .isPlaying = keyedNumber(info, NowPlayingKey::playbackRate) > 0,
            .duration = mediaTime(keyedNumber(info, NowPlayingKey::duration)),
            .elapsed = mediaTime(keyedNumber(info, NowPlayingKey::elapsedTime)),
            .appBundleIdentifier = keyedValue<std::string>(info, NowPlayingKey::bundleIdentifier),
            .appName = keyedValue<std::string>(info, NowPlayingKey::displayName).value_or("")},
      artwork(keyedValue<SharedBytes>(info, NowPlayingKey::artworkData)) {}

} // namespace orvelle
