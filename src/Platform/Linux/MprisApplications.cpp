#include "Platform/Linux/MprisApplications.h"

#include <memory>
#include <utility>

namespace orvelle {

namespace {

constexpr std::string_view spotify = "com.spotify.client";
constexpr std::string_view playbackStateChanged = "com.spotify.client.PlaybackStateChanged";

std::string word(MprisPlayer::Status status) {
    switch (status) {
    case MprisPlayer::Status::playing:
        return "Playing";
    case MprisPlayer::Status::paused:
        return "Paused";
    case MprisPlayer::Status::stopped:
        break;
    }
    return "Stopped";
}

} // namespace

bool MprisRunningApplications::isRunning(const std::string& bundleIdentifier) const {
    const std::lock_guard lock(mutex_);
    return running_.contains(bundleIdentifier);
}

void MprisRunningApplications::set(std::set<std::string> bundleIdentifiers) {
    const std::lock_guard lock(mutex_);
    running_ = std::move(bundleIdentifiers);
}

MprisNotificationCenter::MprisNotificationCenter(RunLoop& runLoop, MprisPlayers& players,
                                                 MprisRunningApplications& applications)
    : runLoop_(runLoop), players_(players), applications_(applications),
      watching_(players_.observeChanges([this] { playersChanged(); })) {}

Subscription MprisNotificationCenter::observe(std::string_view name, Handler handler) {
    if (name != playbackStateChanged)
        return {};
    auto handles = std::make_shared<std::pair<Subscription, Subscription>>(
        stateChanged_.observe(std::move(handler)), players_.follow());
    return Subscription([handles] { *handles = {}; });
}

void MprisNotificationCenter::playersChanged() {
    std::set<std::string> running;
    const MprisPlayer* teller = nullptr;
    for (const auto& player : players_.all()) {
        running.insert(player.bundleIdentifier());
        if (player.bundleIdentifier() == spotify && player.hasAnswered)
            teller = &player;
    }
    applications_.set(std::move(running));
    post(teller);
}

void MprisNotificationCenter::post(const MprisPlayer* player) {
    const auto state = player ? State{player->status, player->track} : State{};
    if (state == std::exchange(told_, state))
        return;
    NotificationUserInfo details{{"Player State", word(state.status)}};
    if (player && state.status != MprisPlayer::Status::stopped) {
        details.emplace("Name", state.track.title);
        details.emplace("Artist", state.track.artist);
        details.emplace("Album", state.track.album);
        details.emplace("Duration", static_cast<std::int64_t>(state.track.length * 1000));
        details.emplace("Playback Position", player->elapsed(runLoop_.monotonicNow()));
    }
    stateChanged_(details);
}

} // namespace orvelle
