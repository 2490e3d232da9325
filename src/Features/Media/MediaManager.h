#pragma once

#include "Models/MediaInfo.h"
#include "Platform/NowPlayingService.h"
#include "Platform/Platform.h"
#include "Protocols/PluginProtocol.h"

namespace orvelle {

/// Knows what is playing on the machine, and controls it.
class MediaManager : public FeatureModule {
public:
    explicit MediaManager(Platform& platform = Platform::shared());

    Published<MediaInfo> currentMedia;
    Published<bool> isLoved{false};

    void start() override;
    void stop() override;
    void playPause();
    void nextTrack();
    void previousTrack();

private:
    NowPlayingFunctions service_;
};

} // namespace orvelle
