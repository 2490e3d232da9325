#include "Platform/Linux/MprisNowPlayingService.h"

#include <utility>

namespace orvelle {

namespace {

bool isShown(const MprisPlayer* player) {
    return player && player->isShown();
}

} // namespace

MprisNowPlayingService::MprisNowPlayingService(RunLoop& runLoop, MprisPlayers& players,
                                               MprisCovers& covers)
    : runLoop_(runLoop), players_(players), covers_(covers) {}

std::variant<NowPlayingFunctions, NowPlayingService::LoadFailure>
MprisNowPlayingService::load(const std::string&) {
    return NowPlayingFunctions{
        .getNowPlayingInfo = [this](auto answer) { getNowPlayingInfo(answer); },
        .registerForNotifications =
            [this] {
                if (following_)
                    return;
                watching_ = players_.observeChanges([this] { playersChanged(); });
                following_ = players_.follow();
            },
        .unregisterForNotifications =
            [this] {
                following_.reset();
                watching_.reset();
                if (last_)
                    last_->rest(runLoop_.monotonicNow());
                stopReading_.request_stop();
                reading_.reset();
                artwork_ = {};
            },
        .sendCommand = [this](std::uint32_t command) { sendCommand(command); },
        .getIsPlaying =
            [this](auto answer) {
                const auto* player = players_.current();
                answer(isShown(player) && player->isPlaying());
            },
    };
}

Subscription MprisNowPlayingService::observe(std::string_view notification,
                                             std::function<void()> handler) {
    return events_[std::string(notification)].observe(std::move(handler));
}

void MprisNowPlayingService::getNowPlayingInfo(
    const std::function<void(const std::optional<NowPlayingInfo>&)>& answer) {
    const auto* asked = players_.current();
    const auto tell = [this, answer] {
        keepLast();
        answer(last_ ? describe(*last_) : NowPlayingInfo{});
    };
    if (isShown(asked))
        players_.askPosition(*asked, tell);
    else
        tell();
}

NowPlayingInfo MprisNowPlayingService::describe(const MprisPlayer& player) const {
    namespace Key = NowPlayingKey;
    const auto& track = player.track;
    NowPlayingInfo info;
    const auto put = [&](std::string_view key, auto value) {
        info.emplace(std::string(key), std::move(value));
    };
    put(Key::title, track.title);
    put(Key::artist, track.artist);
    put(Key::album, track.album);
    put(Key::duration, track.length);
    put(Key::elapsedTime, player.elapsed(runLoop_.monotonicNow()));
    put(Key::playbackRate, player.isPlaying() ? player.rate : 0.0);
    put(Key::bundleIdentifier, player.bundleIdentifier());
    put(Key::displayName, player.displayName());
    if (!artwork_.bytes.empty() && artwork_.track.artUrl == track.artUrl)
        put(Key::artworkData, artwork_.bytes);
    return info;
}

void MprisNowPlayingService::sendCommand(std::uint32_t command) {
    const auto* player = players_.current();
    if (!player)
        return;
    if (command == togglePlayPause)
        players_.send(*player, QStringLiteral("PlayPause"));
    else if (command == nextTrack)
        players_.send(*player, QStringLiteral("Next"));
    else if (command == previousTrack)
        players_.send(*player, QStringLiteral("Previous"));
}

void MprisNowPlayingService::playersChanged() {
    const auto* player = players_.current();
    const auto name = isShown(player) ? player->busName : QString();
    if (name.isEmpty() && currentName_.isEmpty())
        return; // an empty answer counts, and so must not be asked for at every stir
    const bool isPlaying = isShown(player) && player->isPlaying();
    auto notification = NowPlayingNotification::infoDidChange;
    if (name != currentName_)
        notification = NowPlayingNotification::applicationDidChange;
    else if (isPlaying != wasPlaying_)
        notification = NowPlayingNotification::isPlayingDidChange;
    currentName_ = name;
    wasPlaying_ = isPlaying;
    keepLast();
    if (isShown(player))
        wantArtwork(player->track);
    events_[std::string(notification)]();
}

void MprisNowPlayingService::keepLast() {
    if (const auto* player = players_.current(); isShown(player))
        last_ = *player;
    else if (last_ && last_->isPlaying())
        last_->rest(runLoop_.monotonicNow());
}

void MprisNowPlayingService::wantArtwork(const MprisPlayer::Track& track) {
    if (track.artUrl == artwork_.track.artUrl && track.id == artwork_.track.id &&
        track.title == artwork_.track.title)
        return;
    // Players write one cover after another to the same file.
    const bool mayStay = track.artUrl == artwork_.track.artUrl;
    artwork_ = {track, mayStay ? artwork_.bytes : SharedBytes()};
    stopReading_.request_stop();
    if (!reading_)
        readArtwork();
}

void MprisNowPlayingService::readArtwork() {
    reading_.reset();
    if (artwork_.track.artUrl.empty())
        return;
    stopReading_ = {};
    auto bytes = std::make_shared<std::optional<SharedBytes>>();
    reading_ =
        runLoop_.detach([bytes, &covers = covers_, track = artwork_.track,
                         stop = stopReading_.get_token()] { *bytes = covers.read(track, stop); },
                        [this, bytes, stop = stopReading_.get_token()] {
                            if (stop.stop_requested()) {
                                readArtwork(); // of the track that has come since
                                return;
                            }
                            reading_.reset();
                            auto fresh = bytes->value_or(SharedBytes());
                            if (fresh == artwork_.bytes)
                                return;
                            artwork_.bytes = std::move(fresh);
                            events_[std::string(NowPlayingNotification::infoDidChange)]();
                        });
}

} // namespace orvelle
