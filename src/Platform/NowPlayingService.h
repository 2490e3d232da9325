#pragma once

#include "Foundation/SharedBytes.h"
#include "Foundation/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace orvelle {

/// A value of any type may stand under any key: players do as they like.
using NowPlayingValue = std::variant<bool, std::int64_t, double, std::string, SharedBytes>;

/// What plays, by the service's keys:
///   "kMRMediaRemoteNowPlayingInfoTitle", "...Artist", "...Album"   texts
///   "...Duration", "...ElapsedTime"                 real or whole numbers, seconds
///   "...PlaybackRate"                               a number; above 0 while it plays
///   "...ApplicationBundleIdentifier", "...ApplicationDisplayName"   texts
///   "...ArtworkData"                                data, the bytes of an image file
/// Empty while nothing plays.
using NowPlayingInfo = std::map<std::string, NowPlayingValue, std::less<>>;

namespace NowPlayingKey {
inline constexpr std::string_view title = "kMRMediaRemoteNowPlayingInfoTitle";
inline constexpr std::string_view artist = "kMRMediaRemoteNowPlayingInfoArtist";
inline constexpr std::string_view album = "kMRMediaRemoteNowPlayingInfoAlbum";
inline constexpr std::string_view duration = "kMRMediaRemoteNowPlayingInfoDuration";
inline constexpr std::string_view elapsedTime = "kMRMediaRemoteNowPlayingInfoElapsedTime";
inline constexpr std::string_view playbackRate = "kMRMediaRemoteNowPlayingInfoPlaybackRate";
inline constexpr std::string_view bundleIdentifier =
    "kMRMediaRemoteNowPlayingInfoApplicationBundleIdentifier";
inline constexpr std::string_view displayName =
    "kMRMediaRemoteNowPlayingInfoApplicationDisplayName";
inline constexpr std::string_view artworkData = "kMRMediaRemoteNowPlayingInfoArtworkData";
} // namespace NowPlayingKey

namespace NowPlayingNotification {
inline constexpr std::string_view infoDidChange =
    "kMRMediaRemoteNowPlayingInfoDidChangeNotification";
inline constexpr std::string_view applicationDidChange =
    "kMRMediaRemoteNowPlayingApplicationDidChangeNotification";
inline constexpr std::string_view isPlayingDidChange =
    "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification";
} // namespace NowPlayingNotification

/// The service's entry points; one that the system lacks is empty. None of them waits. They may be
/// called as long as the service lives.
struct NowPlayingFunctions {
    /// Answers once on the main thread, perhaps during the call, or never when the player hangs; a
    /// player that gives no dictionary is answered with none. While the artwork stays the same, its
    /// data should be a copy of the one given before.
    std::function<void(std::function<void(const std::optional<NowPlayingInfo>&)> answer)>
        getNowPlayingInfo;
    /// The service watches players and notifies only between these two; either may come twice.
    std::function<void()> registerForNotifications;
    std::function<void()> unregisterForNotifications;
    /// Sent to what plays, or would resume; nothing when no player is there.
    std::function<void(std::uint32_t command)> sendCommand;
    /// Answers as `getNowPlayingInfo` does: whether the player that it speaks of plays.
    std::function<void(std::function<void(bool)> answer)> getIsPlaying;
};

/// The system's view of what plays. Main thread only.
class NowPlayingService {
public:
    static constexpr std::uint32_t togglePlayPause = 2;
    static constexpr std::uint32_t nextTrack = 4;
    static constexpr std::uint32_t previousTrack = 5;

    enum class LoadFailure { badAddress, notLoaded };

    virtual ~NowPlayingService() = default;

    /// Opens the service. `path` is its place on the platform that keeps it in a file; others take
    /// no notice.
    virtual std::variant<NowPlayingFunctions, LoadFailure> load(const std::string& path) = 0;

    /// Calls `handler` at each notification of that name.
    [[nodiscard]] virtual Subscription observe(std::string_view notification,
                                               std::function<void()> handler) = 0;
};

} // namespace orvelle
