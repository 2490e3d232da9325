#pragma once

#include "Features/Media/AppleScriptMediaInfo.h"
#include "Features/Media/BackgroundTasks.h"
#include "Features/Media/MediaControlsView.h"
#include "Features/Media/NowPlayingReading.h"
#include "Features/Media/NowPlayingView.h"
#include "Models/MediaInfo.h"
#include "Platform/DistributedNotificationCenter.h"
#include "Platform/Log.h"
#include "Platform/NowPlayingService.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <deque>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// Knows what is playing on the machine, and controls it.
///
/// The system's now-playing service is asked every three seconds and whenever it tells of a change;
/// in between the position is reckoned. A service that has nothing to say is helped out by scripts
/// that ask two known players, which also take their commands that way.
class MediaManager : public FeatureModule,
                     public CollapsedViewProvider<MediaControlsView>,
                     public ExpandedViewProvider<NowPlayingView> {
public:
    explicit MediaManager(Platform& platform = Platform::shared());

    Published<MediaInfo> currentMedia;
    /// The source application's mark on the track.
    Published<bool> isLoved{false};

    void start() override;
    void stop() override;

    void playPause();
    void nextTrack();
    void previousTrack();
    /// Flips the mark, in the one application that has it; nothing for another.
    void toggleLove();
    void fetchLoveStatus();
    /// Brings the application that plays to the front.
    void openSourceApp();

    bool hasCollapsedContent() const override { return !currentMedia->title.empty(); }
    MediaControlsView collapsedView() override { return MediaControlsView(*this); }
    NowPlayingView expandedView() override { return NowPlayingView(*this); }

private:
    /// Pixels; covers are drawn at 80 points at most, on screens of up to three pixels a point.
    static constexpr int coverSide = 240;

    /// The cover that the service gave last, so that each of its answers does not unpack it anew.
    struct ServiceCover {
        SharedBytes bytes;
        std::optional<Image> image; ///< none while it is being unpacked, or when that failed
        std::string title;          ///< of the track that it was given for last
        std::string artist;
    };

    void loadMediaRemoteFramework();
    void setupNotificationObservers();
    void startPollingTimer();
    void startElapsedTimer();
    /// Runs the elapsed timer anew while something plays, and ends it otherwise.
    void followPosition(bool isPlaying);
    /// Whether the track that is shown has this title and artist.
    bool isCurrent(const std::string& title, const std::string& artist) const;

    void fetchNowPlayingInfo();
    void parseNowPlayingInfo(const NowPlayingInfo& info);
    void handleEmptyResponse();
    void correctPlayState(bool isPlaying);
    void updateElapsedTime();
    /// The cover of these bytes when it is known already; otherwise it follows later.
    std::optional<Image> serviceCover(const NowPlayingReading& reading);
    void unpackServiceCover();

    /// The application that takes scripts for what is shown now; none for the service's commands.
    std::optional<std::string> scriptedApp() const;
    void send(std::string_view scriptCommand, std::uint32_t serviceCommand);
    void changeTrack(std::string_view scriptCommand, std::uint32_t serviceCommand);

    void fetchViaAppleScript();
    void applyAppleScriptInfo(const AppleScriptMediaInfo& info);
    void clearFallback();
    void spotifyDistributedNotification(const std::optional<NotificationUserInfo>& userInfo);
    void fetchAppleScriptArtwork(const AppleScriptMediaInfo& info);
    void showArtwork(const std::string& title, const std::string& artist, const Image& image);

    Platform& platform_;
    const Logger log_;
    NowPlayingFunctions service_;
    std::vector<Subscription> observers_;
    Timer pollingTimer_; ///< every 3 s
    Timer elapsedTimer_; ///< every 0.5 s, while the track plays
    std::deque<Timer> refetches_;
    double lastFetchedElapsed_ = 0; ///< seconds
    Date lastFetchTime_ = Date::distantPast();
    ServiceCover serviceCover_;

    /// Reads without a title since the last good data.
    int consecutiveEmptyResponses_ = 0;
    bool usingAppleScriptFallback_ = false;
    std::optional<std::string> appleScriptSourceBundleID_;
    std::optional<std::string> lastArtworkTrackKey_;
    std::stop_source artworkReading_; ///< of the last cover that was asked for by script
    BackgroundTasks background_;
    Lifetime lifetime_;
};

} // namespace orvelle
