#pragma once

#include <string_view>

namespace orvelle {

/// A player that the program knows by its name on another platform.
struct KnownPlayer {
    std::string_view bundleIdentifier;
    std::string_view scriptName; ///< in scripts: tell application "…"
    std::string_view mprisName;  ///< on the bus, behind "org.mpris.MediaPlayer2."
};

inline constexpr KnownPlayer knownPlayers[] = {
    {"com.spotify.client", "Spotify", "spotify"},
    {"com.apple.Music", "Music", "music"},
};

} // namespace orvelle
