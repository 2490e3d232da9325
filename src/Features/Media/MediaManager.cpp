#include "Features/Media/MediaManager.h"

#include "Models/Symbol.h"
#include "Platform/NowPlayingService.h"

namespace orvelle {

MediaManager::MediaManager(Platform& platform)
    : FeatureModule("media", "Now Playing", std::string("music.note"_symbol), true,
                    [this](const bool& enabled) { enabled ? start() : stop(); }),
      platform_(platform) {}

void MediaManager::start() {
    if (isEnabled)
        platform_.nowPlaying().registerForNotifications();
}

void MediaManager::stop() {
    platform_.nowPlaying().unregisterForNotifications();
}

void MediaManager::playPause() {
    platform_.nowPlaying().sendCommand(NowPlayingService::togglePlayPause);
    currentMedia.update([](auto& media) { media.isPlaying = !media.isPlaying; });
}

void MediaManager::nextTrack() {
    platform_.nowPlaying().sendCommand(NowPlayingService::nextTrack);
}

void MediaManager::previousTrack() {
    platform_.nowPlaying().sendCommand(NowPlayingService::previousTrack);
}

} // namespace orvelle
