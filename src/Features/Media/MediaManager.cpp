#include "Features/Media/MediaManager.h"

#include "Models/Symbol.h"

#include <utility>

namespace orvelle {

namespace {

constexpr const char* frameworkPath = "/System/Library/PrivateFrameworks/MediaRemote.framework";

} // namespace

MediaManager::MediaManager(Platform& platform)
    : FeatureModule("media", "Now Playing", std::string("music.note"_symbol), true,
                    [this](const bool& enabled) { enabled ? start() : stop(); }) {
    auto loaded = platform.nowPlaying().load(frameworkPath);
    if (auto* functions = std::get_if<NowPlayingFunctions>(&loaded))
        service_ = std::move(*functions);
}

void MediaManager::start() {
    if (isEnabled && service_.registerForNotifications)
        service_.registerForNotifications();
}

void MediaManager::stop() {
    if (service_.unregisterForNotifications)
        service_.unregisterForNotifications();
}

void MediaManager::playPause() {
    if (service_.sendCommand)
        service_.sendCommand(NowPlayingService::togglePlayPause);
    currentMedia.update([](auto& media) { media.isPlaying = !media.isPlaying; });
}

void MediaManager::nextTrack() {
    if (service_.sendCommand)
        service_.sendCommand(NowPlayingService::nextTrack);
}

void MediaManager::previousTrack() {
    if (service_.sendCommand)
        service_.sendCommand(NowPlayingService::previousTrack);
}

} // namespace orvelle
