#pragma once

#include "Features/Media/AppleScriptMediaInfo.h"
#include "Foundation/SharedBytes.h"
#include "Platform/Platform.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

/// The two players that are spoken with by script, and everything that is said to them. All but the
/// constants and `transport` waits for the player: not for the main thread.
namespace orvelle::MediaScripts {

inline constexpr std::string_view spotify = "com.spotify.client";
inline constexpr std::string_view music = "com.apple.Music";

/// Covers beyond this many bytes are not read.
inline constexpr std::size_t artworkLimit = std::size_t{20} << 20;

extern const std::string spotifyRead;
extern const std::string musicRead;
extern const std::string spotifyArtwork;
extern const std::string musicArtwork;
extern const std::string musicLoved;
extern const std::string musicToggleLoved;

/// Players that are controlled by script even while the service knows what they play.
bool isKnownMediaApp(const std::string& bundleID);
/// Sends `command` ("playpause", "next track", "previous track") to an application. One that is not
/// known is addressed by its bundle identifier.
std::string transport(std::string_view command, const std::string& bundleID);

/// What the players that run have to say, Spotify first.
std::optional<AppleScriptMediaInfo> readPlayers(Platform& platform);
/// The bytes of the track's cover; none once `stop` is requested.
std::optional<SharedBytes> artwork(Platform& platform, const AppleScriptMediaInfo& info,
                                   const std::stop_token& stop);
/// False on any error.
bool isLoved(Platform& platform);
/// False when the script could not be made, and so nothing was said to the player.
bool toggleLoved(Platform& platform);

} // namespace orvelle::MediaScripts
