#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// What a scripted player says of its track.
struct AppleScriptMediaInfo {
    std::string title;
    std::string artist;
    std::string album;
    double duration = 0; ///< seconds
    double elapsed = 0;  ///< seconds
    bool isPlaying = false;
    std::string bundleID;
    std::string appName; ///< "Spotify" or "Music"
    std::optional<std::string> artworkURL;

    bool operator==(const AppleScriptMediaInfo&) const = default;

    /// Tells whether a cover was already asked for.
    std::string trackKey() const { return title + "—" + artist; }

    /// Reads a line of fields with "||" between them: title, artist, album, duration, position,
    /// "true" while it plays, and perhaps the cover's address. None with fewer than six.
    static std::optional<AppleScriptMediaInfo> parse(std::string_view line, std::string bundleID,
                                                     std::string appName);
};

} // namespace orvelle
