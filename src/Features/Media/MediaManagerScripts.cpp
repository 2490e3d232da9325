#include "Features/Media/MediaManager.h"
#include "Features/Media/MediaScripts.h"
#include "Features/Media/MediaTime.h"
#include "Foundation/Format.h"
#include "Foundation/KeyedValue.h"
#include "Platform/ImageCodec.h"
#include "Platform/RunningApplications.h"
#include "Platform/ScriptExecutor.h"
#include "Platform/Workspace.h"

namespace orvelle {

namespace {

std::string textOf(const NotificationUserInfo& info, std::string_view key) {
    return keyedValue<std::string>(info, key).value_or("");
}

AppleScriptMediaInfo spotifyInfo(const NotificationUserInfo& info, const std::string& state) {
    constexpr double millisecondsPerSecond = 1000;
    return {.title = textOf(info, "Name"),
            .artist = textOf(info, "Artist"),
            .album = textOf(info, "Album"),
            .duration = mediaTime(keyedNumber(info, "Duration") / millisecondsPerSecond),
            .elapsed = mediaTime(keyedNumber(info, "Playback Position")),
            .isPlaying = state == "Playing",
            .bundleID = std::string(MediaScripts::spotify),
            .appName = "Spotify",
            .artworkURL = {}};
}

} // namespace

void MediaManager::fetchViaAppleScript() {
    if (appleScriptSourceBundleID_ &&
        !platform_.runningApplications().isRunning(*appleScriptSourceBundleID_)) {
        log_.info(format("AppleScript source app %s is no longer running, clearing media",
                         appleScriptSourceBundleID_->c_str()));
        clearFallback();
        return;
    }
    background_.run([&platform = platform_] { return MediaScripts::readPlayers(platform); },
                    [this](const std::optional<AppleScriptMediaInfo>& info) {
                        if (info) {
                            applyAppleScriptInfo(*info);
                        } else if (usingAppleScriptFallback_) {
                            log_.info("No media app running, clearing AppleScript fallback state");
                            clearFallback();
                        }
                    });
}

void MediaManager::applyAppleScriptInfo(const AppleScriptMediaInfo& info) {
    consecutiveEmptyResponses_ = 0;
    usingAppleScriptFallback_ = true;
    appleScriptSourceBundleID_ = info.bundleID;
    lastFetchedElapsed_ = info.elapsed;
    lastFetchTime_ = platform_.runLoop().now();
    const bool isOther = !isCurrent(info.title, info.artist);
    currentMedia = MediaInfo{.title = info.title,
                             .artist = info.artist,
                             .album = info.album,
                             .artwork = isOther ? std::nullopt : currentMedia->artwork,
                             .isPlaying = info.isPlaying,
                             .duration = info.duration,
                             .elapsed = info.elapsed,
                             .appBundleIdentifier = info.bundleID,
                             .appName = info.appName};
    if (isOther) {
        fetchAppleScriptArtwork(info);
        fetchLoveStatus();
    }
    followPosition(info.isPlaying);
}

void MediaManager::clearFallback() {
    currentMedia = MediaInfo();
    usingAppleScriptFallback_ = false;
    appleScriptSourceBundleID_.reset();
    lastArtworkTrackKey_.reset();
    // Not 0, which would let the service's play state act on an empty display.
    consecutiveEmptyResponses_ = 1;
    elapsedTimer_.reset();
}

void MediaManager::spotifyDistributedNotification(
    const std::optional<NotificationUserInfo>& userInfo) {
    if (!userInfo)
        return;
    const auto state = textOf(*userInfo, "Player State");
    if (state == "Stopped") {
        log_.info("Spotify distributed notification: Stopped");
        clearFallback();
        return;
    }
    const auto info = spotifyInfo(*userInfo, state);
    log_.debug(format("Spotify distributed notification: %s — %s - %s", state.c_str(),
                      info.artist.c_str(), info.title.c_str()));
    applyAppleScriptInfo(info);
}

void MediaManager::fetchAppleScriptArtwork(const AppleScriptMediaInfo& info) {
    if (lastArtworkTrackKey_ == info.trackKey())
        return;
    lastArtworkTrackKey_ = info.trackKey();
    artworkReading_.request_stop(); // nobody waits for the cover of the track before any more
    artworkReading_ = {};
    background_.run(
        [&platform = platform_, info, stop = artworkReading_.get_token()] {
            const auto bytes = MediaScripts::artwork(platform, info, stop);
            return bytes ? platform.imageCodec().decode(*bytes, coverSide) : std::nullopt;
        },
        [this, info](const std::optional<Image>& image) {
            if (image)
                showArtwork(info.title, info.artist, *image);
        });
}

void MediaManager::showArtwork(const std::string& title, const std::string& artist,
                               const Image& image) {
    if (isCurrent(title, artist))
        currentMedia.update([&](MediaInfo& media) { media.artwork = image; });
}

void MediaManager::toggleLove() {
    if (currentMedia->appBundleIdentifier != MediaScripts::music)
        return;
    background_.run([&platform = platform_] { return MediaScripts::toggleLoved(platform); },
                    [this](bool wasSent) {
                        if (wasSent)
                            isLoved = !isLoved;
                    });
}

void MediaManager::fetchLoveStatus() {
    if (currentMedia->appBundleIdentifier != MediaScripts::music) {
        isLoved = false;
        return;
    }
    background_.run([&platform = platform_] { return MediaScripts::isLoved(platform); },
                    [this](bool loved) { isLoved = loved; });
}

void MediaManager::openSourceApp() {
    if (const auto& app = currentMedia->appBundleIdentifier)
        platform_.workspace().launch(*app);
}

} // namespace orvelle
