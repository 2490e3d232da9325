#pragma once

#include "Foundation/Published.h"
#include "Platform/Linux/BusService.h"
#include "Platform/Linux/MprisPlayer.h"
#include "Platform/Linux/RepeatedQuestion.h"

#include <functional>
#include <list>
#include <map>
#include <optional>

namespace orvelle {

/// The media players of the session: they come, go, crash and hang, and nothing here waits for
/// them. Main thread only.
class MprisPlayers : public QObject {
    Q_OBJECT

public:
    /// How long a flood of changes is gathered before it is told.
    static constexpr Seconds gatherDelay = 0.05;
    /// A player that is silent for so many milliseconds will not answer.
    static constexpr int answerBound = 1000;
    /// So many for what it tells of itself, which it may have to start up for.
    static constexpr int questionBound = 5000;

    MprisPlayers(RunLoop& runLoop, BusProvider sessionBus);

    /// Players are followed while somebody holds such a handle; nothing is asked of the bus before.
    [[nodiscard]] Subscription follow();

    /// The playing one first, the last to begin when several play; else the last to have played.
    /// Players without a track at hand come after all others. Null without a player.
    const MprisPlayer* current() const;
    const std::list<MprisPlayer>& all() const { return players_; }

    /// Players came, went, or told something new since the last time.
    [[nodiscard]] Subscription observeChanges(std::function<void()> changed);

    /// Asks the player where it stands, and calls `done` when it has answered or will not.
    void askPosition(const MprisPlayer& player, std::function<void()> done);
    /// Sends a command without arguments and expects no answer.
    void send(const MprisPlayer& player, const QString& method);
    /// Asks the player to come to the front, and tells whether it said yes.
    void raise(const MprisPlayer& player, std::function<void(bool)> done);
    /// Asks the bus for the player's process; 0 when it does not know.
    void askProcess(const QString& owner, std::function<void(std::uint32_t)> done);

private Q_SLOTS:
    void ownerChanged(const QDBusMessage& message);
    void propertiesChanged(const QDBusMessage& message);
    void seeked(const QDBusMessage& message);

private:
    /// What every player is asked until it has answered.
    struct Questions {
        Questions(MprisPlayers& players, const QString& owner);

        RepeatedQuestion application; ///< of the root interface
        RepeatedQuestion playing;     ///< of the player interface
    };

    void attach(QDBusConnection connection);
    void detach();
    void add(const QString& busName, const QString& owner);
    void remove(const QString& busName);
    void ask(MprisPlayer& player);
    void askInterface(const QString& owner, const QString& interface,
                      const RepeatedQuestion::Outcome& done);
    void update(const QString& owner, const QVariantMap& properties);
    void tellSoon();
    void tell();
    template <class Change>
    void forOwner(const QString& owner, Change change);

    RunLoop& runLoop_;
    BusProvider bus_;
    int followers_ = 0;
    Subscription connecting_;
    std::optional<QDBusConnection> connection_;
    std::list<MprisPlayer> players_;         ///< the last to come first
    std::map<QString, Questions> questions_; ///< by the names on the bus
    std::uint64_t playCount_ = 0;
    Event<> changed_;
    Timer telling_;
};

} // namespace orvelle
