#include "Features/Media/MediaScripts.h"

#include "Foundation/Format.h"
#include "Foundation/Url.h"
#include "Platform/Log.h"
#include "Platform/RunningApplications.h"
#include "Platform/ScriptExecutor.h"
#include "Platform/UrlData.h"

namespace orvelle::MediaScripts {

const std::string spotifyRead = R"(tell application "System Events"
    if not (exists process "Spotify") then return "NOT_RUNNING"
end tell
tell application "Spotify"
    if player state is not stopped then
        set trackName to name of current track
        set trackArtist to artist of current track
        set trackAlbum to album of current track
        set trackDuration to duration of current track
        set trackPosition to player position
        set isPlaying to (player state is playing)
        try
            set artURL to artwork url of current track
        on error
            set artURL to ""
        end try
        return trackName & "||" & trackArtist & "||" & trackAlbum & "||" & (trackDuration / 1000) & "||" & trackPosition & "||" & isPlaying & "||" & artURL
    else
        return "STOPPED"
    end if
end tell)";

const std::string musicRead = R"(tell application "System Events"
    if not (exists process "Music") then return "NOT_RUNNING"
end tell
tell application "Music"
    if player state is not stopped then
        set trackName to name of current track
        set trackArtist to artist of current track
        set trackAlbum to album of current track
        set trackDuration to duration of current track
        set trackPosition to player position
        set isPlaying to (player state is playing)
        return trackName & "||" & trackArtist & "||" & trackAlbum & "||" & trackDuration & "||" & trackPosition & "||" & isPlaying
    else
        return "STOPPED"
    end if
end tell)";

const std::string spotifyArtwork = R"(tell application "Spotify"
    try
        return artwork url of current track
    on error
        return ""
    end try
end tell)";

const std::string musicArtwork = R"(tell application "Music"
    try
        return raw data of artwork 1 of current track
    on error
        return ""
    end try
end tell)";

const std::string musicLoved = R"(tell application "Music"
    return loved of current track
end tell)";

const std::string musicToggleLoved = R"(tell application "Music"
    set loved of current track to (not loved of current track)
end tell)";

namespace {

constexpr std::string_view category = "MediaManager.AppleScript";

struct Player {
    std::string bundleID;
    std::string name;
    const std::string& readScript;
};

const Player players[] = {
    {std::string(spotify), "Spotify", spotifyRead},
    {std::string(music), "Music", musicRead},
};

std::string messageOf(const ScriptError& error) {
    return error.message.value_or("unknown");
}

std::optional<AppleScriptMediaInfo> runAppleScript(Platform& platform, const Player& player) {
    const Logger log(platform.log(), category);
    const auto outcome = platform.scriptExecutor().execute(player.readScript);
    if (std::holds_alternative<ScriptNotMade>(outcome)) {
        log.error(format("Failed to create NSAppleScript for %s", player.name.c_str()));
        return std::nullopt;
    }
    if (const auto* error = std::get_if<ScriptError>(&outcome)) {
        log.error(format("AppleScript error for %s: %s (code %ld)", player.name.c_str(),
                         messageOf(*error).c_str(), error->number.value_or(-1)));
        return std::nullopt;
    }
    const auto text = std::get<ScriptResult>(outcome).stringValue.value_or("");
    if (text == "NOT_RUNNING" || text == "STOPPED" || text.empty()) {
        log.info(format("AppleScript %s: %s", player.name.c_str(),
                        text.empty() ? "empty" : text.c_str()));
        return std::nullopt;
    }
    return AppleScriptMediaInfo::parse(text, player.bundleID, player.name);
}

std::optional<SharedBytes> fetchSpotifyArtworkViaAppleScript(Platform& platform,
                                                             const std::stop_token& stop) {
    const Logger log(platform.log(), category);
    const auto outcome = platform.scriptExecutor().execute(spotifyArtwork);
    if (std::holds_alternative<ScriptNotMade>(outcome)) {
        log.error("Failed to create Spotify artwork NSAppleScript");
        return std::nullopt;
    }
    if (const auto* error = std::get_if<ScriptError>(&outcome)) {
        log.error(format("Spotify artwork URL error: %s", messageOf(*error).c_str()));
        return std::nullopt;
    }
    const auto url = std::get<ScriptResult>(outcome).stringValue.value_or("");
    return Url::isValid(url) ? platform.urlData().read(url, artworkLimit, stop) : std::nullopt;
}

std::optional<SharedBytes> fetchAppleMusicArtworkData(Platform& platform) {
    const Logger log(platform.log(), category);
    const auto outcome = platform.scriptExecutor().execute(musicArtwork);
    if (std::holds_alternative<ScriptNotMade>(outcome)) {
        log.error("Failed to create artwork NSAppleScript");
        return std::nullopt;
    }
    if (const auto* error = std::get_if<ScriptError>(&outcome)) {
        log.error(format("Apple Music artwork error: %s", messageOf(*error).c_str()));
        return std::nullopt;
    }
    return std::get<ScriptResult>(outcome).data;
}

} // namespace

bool isKnownMediaApp(const std::string& bundleID) {
    return bundleID == spotify || bundleID == music;
}

std::string transport(std::string_view command, const std::string& bundleID) {
    auto name = bundleID;
    for (const auto& player : players)
        if (player.bundleID == bundleID)
            name = player.name;
    return "tell application \"" + name + "\" to " + std::string(command);
}

std::optional<AppleScriptMediaInfo> readPlayers(Platform& platform) {
    for (const auto& player : players)
        if (platform.runningApplications().isRunning(player.bundleID))
            if (auto info = runAppleScript(platform, player))
                return info;
    return std::nullopt;
}

std::optional<SharedBytes> artwork(Platform& platform, const AppleScriptMediaInfo& info,
                                   const std::stop_token& stop) {
    if (info.bundleID == spotify) {
        if (info.artworkURL && Url::isValid(*info.artworkURL))
            return platform.urlData().read(*info.artworkURL, artworkLimit, stop);
        return fetchSpotifyArtworkViaAppleScript(platform, stop);
    }
    if (info.bundleID == music)
        return fetchAppleMusicArtworkData(platform);
    return std::nullopt;
}

bool isLoved(Platform& platform) {
    const auto outcome = platform.scriptExecutor().execute(musicLoved);
    const auto* result = std::get_if<ScriptResult>(&outcome);
    return result && result->booleanValue;
}

bool toggleLoved(Platform& platform) {
    const auto outcome = platform.scriptExecutor().execute(musicToggleLoved);
    return !std::holds_alternative<ScriptNotMade>(outcome);
}

} // namespace orvelle::MediaScripts
