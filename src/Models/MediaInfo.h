#pragma once

#include "Foundation/Image.h"

#include <optional>
#include <string>

namespace orvelle {

/// What plays. An empty title means that nothing does.
struct MediaInfo {
    std::string title;
    std::string artist;
    std::string album;
    std::optional<Image> artwork;
    bool isPlaying = false;
    double duration = 0; ///< seconds
    double elapsed = 0;  ///< seconds, the position shown now
    std::optional<std::string> appBundleIdentifier;
    std::string appName;

    /// Artwork and application name take no part: a cover that arrives later makes no other value.
    bool operator==(const MediaInfo& other) const {
        return title == other.title && artist == other.artist && album == other.album &&
               isPlaying == other.isPlaying && duration == other.duration &&
               elapsed == other.elapsed && appBundleIdentifier == other.appBundleIdentifier;
    }

    /// Minutes and seconds, such as "2:05" for 125.9.
    std::string formattedElapsed() const;
    std::string formattedDuration() const;
};

} // namespace orvelle
