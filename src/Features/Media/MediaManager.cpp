#include "Features/Media/MediaManager.h"

#include "Features/Media/MediaScripts.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"
#include "Platform/ImageCodec.h"
#include "Platform/ScriptExecutor.h"

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

constexpr const char* frameworkPath = "/System/Library/PrivateFrameworks/MediaRemote.framework";
constexpr Seconds pollingInterval = 3;
constexpr Seconds elapsedInterval = 0.5;
constexpr Seconds refetchDelay = 0.3; ///< a player needs that long to change tracks
constexpr int fallbackAttempts = 6;

} // namespace

MediaManager::MediaManager(Platform& platform)
    : FeatureModule("media", "Now Playing", std::string("music.note"_symbol), true,
                    [this](const bool& enabled) { enabled ? start() : stop(); }),
      platform_(platform), log_(platform.log(), "MediaManager"), background_(platform.runLoop()) {
    loadMediaRemoteFramework();
}

void MediaManager::loadMediaRemoteFramework() {
    auto loaded = platform_.nowPlaying().load(frameworkPath);
    if (const auto* failure = std::get_if<NowPlayingService::LoadFailure>(&loaded)) {
        log_.error(*failure == NowPlayingService::LoadFailure::badAddress
                       ? "Failed to create URL for MediaRemote.framework"
                       : "Failed to load MediaRemote.framework bundle");
        return;
    }
    log_.info("MediaRemote.framework loaded successfully");
    service_ = std::get<NowPlayingFunctions>(std::move(loaded));
    const auto expect = [this](bool isLoaded, const char* symbol) {
        if (!isLoaded)
            log_.error(format("Failed to load function: %s", symbol));
    };
    expect(bool(service_.getNowPlayingInfo), "MRMediaRemoteGetNowPlayingInfo");
    expect(bool(service_.registerForNotifications),
           "MRMediaRemoteRegisterForNowPlayingNotifications");
    expect(bool(service_.unregisterForNotifications),
           "MRMediaRemoteUnregisterForNowPlayingNotifications");
    expect(bool(service_.sendCommand), "MRMediaRemoteSendCommand");
    expect(bool(service_.getIsPlaying), "MRMediaRemoteGetNowPlayingApplicationIsPlaying");
}

void MediaManager::start() {
    if (!isEnabled)
        return;
    if (!service_.getNowPlayingInfo)
        log_.error("getNowPlayingInfo not available, media info may be limited");
    if (service_.registerForNotifications)
        service_.registerForNotifications();
    setupNotificationObservers();
    fetchNowPlayingInfo();
    startPollingTimer();
    log_.info("MediaManager started");
}

void MediaManager::stop() {
    pollingTimer_.reset();
    elapsedTimer_.reset();
    if (service_.unregisterForNotifications)
        service_.unregisterForNotifications();
    observers_.clear();
}

void MediaManager::setupNotificationObservers() {
    for (const auto name :
         {NowPlayingNotification::infoDidChange, NowPlayingNotification::applicationDidChange,
          NowPlayingNotification::isPlayingDidChange})
        observers_.push_back(
            platform_.nowPlaying().observe(name, [this] { fetchNowPlayingInfo(); }));
    observers_.push_back(platform_.distributedNotifications().observe(
        "com.spotify.client.PlaybackStateChanged",
        [this](const auto& userInfo) { spotifyDistributedNotification(userInfo); }));
}

void MediaManager::startPollingTimer() {
    pollingTimer_ = platform_.runLoop().every(pollingInterval, [this] { fetchNowPlayingInfo(); });
}

void MediaManager::startElapsedTimer() {
    elapsedTimer_ = platform_.runLoop().every(elapsedInterval, [this] { updateElapsedTime(); });
}

void MediaManager::followPosition(bool isPlaying) {
    if (isPlaying)
        startElapsedTimer();
    else
        elapsedTimer_.reset();
}

bool MediaManager::isCurrent(const std::string& title, const std::string& artist) const {
    return currentMedia->title == title && currentMedia->artist == artist;
}

void MediaManager::fetchNowPlayingInfo() {
    auto& runLoop = platform_.runLoop();
    if (service_.getNowPlayingInfo)
        service_.getNowPlayingInfo(
            lifetime_.guard([this, &runLoop](const std::optional<NowPlayingInfo>& answer) {
                runLoop.post(lifetime_.guard([this, info = answer.value_or(NowPlayingInfo())] {
                    log_.debug(info.empty() ? "Now playing info returned empty dictionary"
                                            : format("Now playing info returned %ld keys",
                                                     static_cast<long>(info.size())));
                    parseNowPlayingInfo(info);
                }));
            }));
    else
        log_.debug("getNowPlayingInfo not loaded, skipping info fetch");
    if (service_.getIsPlaying)
        service_.getIsPlaying(lifetime_.guard([this, &runLoop](bool isPlaying) {
            runLoop.post(lifetime_.guard([this, isPlaying] { correctPlayState(isPlaying); }));
        }));
}

void MediaManager::parseNowPlayingInfo(const NowPlayingInfo& info) {
    NowPlayingReading reading(info);
    auto& media = reading.media;
    if (media.title.empty()) {
        handleEmptyResponse();
        return;
    }
    consecutiveEmptyResponses_ = 0;
    usingAppleScriptFallback_ = false;
    appleScriptSourceBundleID_.reset();
    lastArtworkTrackKey_.reset();
    lastFetchedElapsed_ = media.elapsed;
    lastFetchTime_ = platform_.runLoop().now();
    media.artwork = serviceCover(reading);
    const bool isOther = !isCurrent(media.title, media.artist);
    const bool isPlaying = media.isPlaying;
    currentMedia = std::move(media);
    if (isOther)
        fetchLoveStatus();
    followPosition(isPlaying);
}

std::optional<Image> MediaManager::serviceCover(const NowPlayingReading& reading) {
    if (!reading.artwork) {
        serviceCover_ = {};
        return std::nullopt;
    }
    const bool isKnown = *reading.artwork == serviceCover_.bytes;
    if (!isKnown)
        serviceCover_ = {.bytes = *reading.artwork, .image = {}, .title = {}, .artist = {}};
    serviceCover_.title = reading.media.title;
    serviceCover_.artist = reading.media.artist;
    if (!isKnown)
        unpackServiceCover();
    return serviceCover_.image;
}

void MediaManager::unpackServiceCover() {
    background_.run([&codec = platform_.imageCodec(),
                     bytes = serviceCover_.bytes] { return codec.decode(bytes, coverSide); },
                    [this, bytes = serviceCover_.bytes](const std::optional<Image>& image) {
                        if (!(bytes == serviceCover_.bytes))
                            return;
                        serviceCover_.image = image;
                        if (image)
                            showArtwork(serviceCover_.title, serviceCover_.artist, *image);
                    });
}

void MediaManager::handleEmptyResponse() {
    ++consecutiveEmptyResponses_;
    if (consecutiveEmptyResponses_ <= fallbackAttempts) {
        log_.info(format("MediaRemote returned empty %d times, trying AppleScript fallback",
                         consecutiveEmptyResponses_));
        fetchViaAppleScript();
    } else if (consecutiveEmptyResponses_ == fallbackAttempts + 1) {
        log_.error(format("AppleScript fallback exhausted after %d attempts — check Automation "
                          "permissions in System Settings > Privacy & Security",
                          fallbackAttempts));
    }
}

void MediaManager::correctPlayState(bool isPlaying) {
    if (consecutiveEmptyResponses_ != 0 || usingAppleScriptFallback_ ||
        isPlaying == currentMedia->isPlaying)
        return;
    currentMedia.update([&](MediaInfo& media) { media.isPlaying = isPlaying; });
    followPosition(isPlaying);
}

void MediaManager::updateElapsedTime() {
    if (!currentMedia->isPlaying || currentMedia->duration <= 0)
        return;
    const double reckoned = lastFetchedElapsed_ + (platform_.runLoop().now() - lastFetchTime_);
    currentMedia.update(
        [&](MediaInfo& media) { media.elapsed = std::clamp(reckoned, 0.0, media.duration); });
}

void MediaManager::playPause() {
    send("playpause", NowPlayingService::togglePlayPause);
    const bool isPlaying = !currentMedia->isPlaying;
    currentMedia.update([&](MediaInfo& media) { media.isPlaying = isPlaying; });
    if (isPlaying)
        lastFetchTime_ = platform_.runLoop().now();
    else
        lastFetchedElapsed_ = currentMedia->elapsed;
    followPosition(isPlaying);
}

void MediaManager::nextTrack() {
    changeTrack("next track", NowPlayingService::nextTrack);
}

void MediaManager::previousTrack() {
    changeTrack("previous track", NowPlayingService::previousTrack);
}

std::optional<std::string> MediaManager::scriptedApp() const {
    if (appleScriptSourceBundleID_)
        return appleScriptSourceBundleID_;
    const auto& app = currentMedia->appBundleIdentifier;
    return app && MediaScripts::isKnownMediaApp(*app) ? app : std::nullopt;
}

void MediaManager::send(std::string_view scriptCommand, std::uint32_t serviceCommand) {
    if (const auto app = scriptedApp())
        background_.run([&executor = platform_.scriptExecutor(),
                         script = MediaScripts::transport(scriptCommand, *app)] {
            return executor.execute(script);
        });
    else if (service_.sendCommand)
        service_.sendCommand(serviceCommand);
}

void MediaManager::changeTrack(std::string_view scriptCommand, std::uint32_t serviceCommand) {
    send(scriptCommand, serviceCommand);
    // All wait equally long, so the first to be made is the first to fire.
    refetches_.push_back(platform_.runLoop().after(refetchDelay, [this] {
        refetches_.pop_front();
        fetchNowPlayingInfo();
    }));
}

} // namespace orvelle
