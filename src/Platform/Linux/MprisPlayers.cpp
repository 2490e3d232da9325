#include "Platform/Linux/MprisPlayers.h"

#include <QDBusVariant>
#include <QPointer>

#include <algorithm>
#include <tuple>
#include <utility>

namespace orvelle {

namespace {

const QString ownerSignal = QStringLiteral("NameOwnerChanged");
const QString propertiesSignal = QStringLiteral("PropertiesChanged");
const QString seekedSignal = QStringLiteral("Seeked");

bool isPlayer(const QString& name) {
    // A relay speaks for players that are there under their own names.
    return name.startsWith(Mpris::namePrefix) &&
           name != Mpris::namePrefix + QStringLiteral("playerctld");
}

QDBusMessage toBus(const QString& method, const QVariantList& arguments = {}) {
    auto message =
        QDBusMessage::createMethodCall(messageBusName, messageBusPath, messageBusName, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

MprisPlayers::MprisPlayers(RunLoop& runLoop, BusProvider sessionBus)
    : runLoop_(runLoop), bus_(std::move(sessionBus)) {}

Subscription MprisPlayers::follow() {
    if (followers_++ == 0)
        connecting_ =
            withBus(runLoop_, bus_, [this](QDBusConnection connection) { attach(connection); });
    return Subscription([self = QPointer(this)] {
        if (self && --self->followers_ == 0)
            self->detach();
    });
}

void MprisPlayers::attach(QDBusConnection connection) {
    connection_ = connection;
    // Without a service name in the matches: with one, the library would wait for the owner's name.
    connection_->connect({}, messageBusPath, messageBusName, ownerSignal, this,
                         SLOT(ownerChanged(QDBusMessage)));
    connection_->connect({}, Mpris::path, busPropertiesInterface, propertiesSignal, this,
                         SLOT(propertiesChanged(QDBusMessage)));
    connection_->connect({}, Mpris::path, Mpris::playerInterface, seekedSignal, this,
                         SLOT(seeked(QDBusMessage)));
    callBus(*connection_, toBus(QStringLiteral("ListNames")), this, [this](const auto& names) {
        if (!connection_)
            return; // nobody follows any more
        for (const auto& name : names.arguments().value(0).toStringList())
            if (isPlayer(name))
                callBus(*connection_, toBus(QStringLiteral("GetNameOwner"), {name}), this,
                        [this, name](const QDBusMessage& reply) {
                            if (reply.type() == QDBusMessage::ReplyMessage)
                                add(name, reply.arguments().value(0).toString());
                        });
    });
}

void MprisPlayers::detach() {
    connecting_.reset();
    telling_.reset();
    players_.clear();
    questions_.clear();
    if (!connection_)
        return;
    connection_->disconnect({}, messageBusPath, messageBusName, ownerSignal, this,
                            SLOT(ownerChanged(QDBusMessage)));
    connection_->disconnect({}, Mpris::path, busPropertiesInterface, propertiesSignal, this,
                            SLOT(propertiesChanged(QDBusMessage)));
    connection_->disconnect({}, Mpris::path, Mpris::playerInterface, seekedSignal, this,
                            SLOT(seeked(QDBusMessage)));
    connection_.reset();
}

const MprisPlayer* MprisPlayers::current() const {
    const auto rank = [](const MprisPlayer& player) {
        return std::tuple(player.isShown(), player.isPlaying(), player.lastPlayed);
    };
    const MprisPlayer* best = nullptr;
    for (const auto& player : players_)
        if (player.hasAnswered && (!best || rank(player) > rank(*best)))
            best = &player;
    return best;
}

Subscription MprisPlayers::observeChanges(std::function<void()> changed) {
    return changed_.observe(std::move(changed));
}

void MprisPlayers::askPosition(const MprisPlayer& player, std::function<void()> done) {
    const auto question = Mpris::call(player.owner, busPropertiesInterface, QStringLiteral("Get"),
                                      {Mpris::playerInterface, QStringLiteral("Position")});
    callBus(
        *connection_, question, this,
        [this, owner = player.owner, done = std::move(done)](const QDBusMessage& reply) {
            if (reply.type() == QDBusMessage::ReplyMessage)
                forOwner(owner, [&](MprisPlayer& found) {
                    const auto answer = reply.arguments().value(0).value<QDBusVariant>();
                    found.setPosition(answer.variant(), runLoop_.monotonicNow());
                });
            done();
        },
        answerBound);
}

void MprisPlayers::send(const MprisPlayer& player, const QString& method) {
    connection_->send(Mpris::call(player.owner, Mpris::playerInterface, method));
}

void MprisPlayers::raise(const MprisPlayer& player, std::function<void(bool)> done) {
    callBus(
        *connection_, Mpris::call(player.owner, Mpris::rootInterface, QStringLiteral("Raise")),
        this,
        [done = std::move(done)](const QDBusMessage& reply) {
            done(reply.type() == QDBusMessage::ReplyMessage);
        },
        answerBound);
}

void MprisPlayers::askProcess(const QString& owner, std::function<void(std::uint32_t)> done) {
    if (!connection_)
        return done(0);
    callBus(*connection_, toBus(QStringLiteral("GetConnectionUnixProcessID"), {owner}), this,
            [done = std::move(done)](const QDBusMessage& reply) {
                const bool isKnown = reply.type() == QDBusMessage::ReplyMessage;
                done(isKnown ? reply.arguments().value(0).toUInt() : 0);
            });
}

void MprisPlayers::ownerChanged(const QDBusMessage& message) {
    const auto name = message.arguments().value(0).toString();
    const auto newOwner = message.arguments().value(2).toString();
    if (message.service() != messageBusName || !isPlayer(name))
        return;
    remove(name);
    if (!newOwner.isEmpty())
        add(name, newOwner);
}

void MprisPlayers::add(const QString& name, const QString& owner) {
    const auto isThere = [&](const MprisPlayer& player) { return player.busName == name; };
    if (!connection_ || std::any_of(players_.begin(), players_.end(), isThere))
        return;
    questions_.try_emplace(name, *this, owner);
    ask(players_.emplace_front(name, owner));
}

void MprisPlayers::remove(const QString& name) {
    if (questions_.erase(name) == 0)
        return;
    players_.remove_if([&](const auto& player) { return player.busName == name; });
    tellSoon();
}

/// Everything when what it told has changed since, else what it has not answered yet.
void MprisPlayers::ask(MprisPlayer& player) {
    auto& [application, playing] = questions_.at(player.busName);
    const bool isOutdated = std::exchange(player.isOutdated, false);
    const bool hasSignalled = std::exchange(player.hasSignalled, false);
    for (auto* each : {&application, &playing})
        if (isOutdated || (hasSignalled && !each->isAnswered()))
            each->ask();
}

MprisPlayers::Questions::Questions(MprisPlayers& players, const QString& owner)
    : application(players.runLoop_,
                  [&players, owner](const auto& done) {
                      players.askInterface(owner, Mpris::rootInterface, done);
                  }),
      playing(players.runLoop_, [&players, owner](const auto& done) {
          players.askInterface(owner, Mpris::playerInterface, done);
      }) {}

void MprisPlayers::askInterface(const QString& owner, const QString& interface,
                                const RepeatedQuestion::Outcome& done) {
    const auto question =
        Mpris::call(owner, busPropertiesInterface, QStringLiteral("GetAll"), {interface});
    callBus(
        *connection_, question, this,
        [this, owner, interface, done](const QDBusMessage& reply) {
            const bool isAnswered = reply.type() == QDBusMessage::ReplyMessage;
            if (isAnswered) {
                if (interface == Mpris::playerInterface)
                    forOwner(owner, [](MprisPlayer& player) { player.hasAnswered = true; });
                update(owner, Mpris::map(reply.arguments().value(0)));
            }
            done(isAnswered);
        },
        questionBound);
}

void MprisPlayers::propertiesChanged(const QDBusMessage& message) {
    const auto arguments = message.arguments();
    const auto interface = arguments.value(0).toString();
    if (interface != Mpris::playerInterface && interface != Mpris::rootInterface)
        return;
    const auto owner = message.service();
    update(owner, Mpris::map(arguments.value(1)));
    const bool onlyNamesSome = !arguments.value(2).toStringList().isEmpty();
    forOwner(owner, [&](MprisPlayer& player) {
        player.hasSignalled = true;
        player.isOutdated |= onlyNamesSome;
    });
}

void MprisPlayers::seeked(const QDBusMessage& message) {
    forOwner(message.service(), [&](MprisPlayer& player) {
        player.setPosition(message.arguments().value(0), runLoop_.monotonicNow());
        player.hasSignalled = true;
        tellSoon();
    });
}

void MprisPlayers::update(const QString& owner, const QVariantMap& properties) {
    forOwner(owner, [&](MprisPlayer& player) {
        const bool played = player.isPlaying();
        player.update(properties, runLoop_.monotonicNow());
        if (player.isPlaying() != played)
            player.lastPlayed = ++playCount_;
        tellSoon();
    });
}

void MprisPlayers::tellSoon() {
    if (!telling_)
        telling_ = runLoop_.after(gatherDelay, [this] { tell(); });
}

void MprisPlayers::tell() {
    telling_.reset();
    for (auto& player : players_)
        ask(player);
    changed_();
}

template <class Change>
void MprisPlayers::forOwner(const QString& owner, Change change) {
    for (auto& player : players_)
        if (player.owner == owner)
            change(player);
}

} // namespace orvelle
