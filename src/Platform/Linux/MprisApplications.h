#pragma once

#include "Platform/DistributedNotificationCenter.h"
#include "Platform/Linux/MprisPlayers.h"
#include "Platform/RunningApplications.h"

#include <mutex>
#include <set>
#include <string>

namespace orvelle {

/// Media players are the applications that are known here, by their bundle identifiers.
class MprisRunningApplications : public RunningApplications {
public:
    bool isRunning(const std::string& bundleIdentifier) const override;

    /// Any thread.
    void set(std::set<std::string> bundleIdentifiers);

private:
    mutable std::mutex mutex_;
    std::set<std::string> running_; ///< guarded by the mutex
};

/// Spreads in the words of "com.spotify.client.PlaybackStateChanged" what that player tells of its
/// state, and keeps the list of the running applications.
class MprisNotificationCenter : public DistributedNotificationCenter {
public:
    MprisNotificationCenter(RunLoop& runLoop, MprisPlayers& players,
                            MprisRunningApplications& applications);

    Subscription observe(std::string_view name, Handler handler) override;

private:
    /// What a message is sent for.
    struct State {
        MprisPlayer::Status status = MprisPlayer::Status::stopped;
        MprisPlayer::Track track;

        bool operator==(const State&) const = default;
    };

    void playersChanged();
    void post(const MprisPlayer* player);

    RunLoop& runLoop_;
    MprisPlayers& players_;
    MprisRunningApplications& applications_;
    State told_;
    Event<std::optional<NotificationUserInfo>> stateChanged_;
    Subscription watching_;
};

} // namespace orvelle
