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

void MprisPlayers::ownerChanged(const QDBusMessage& message) {
    const auto name = message.arguments().value(0).toString();
    const auto newOwner = message.arguments().value(2).toString();
    if (message.service() != messageBusName || !isPlayer(name))
        return;
    if (std::erase_if(players_, [&](const auto& player) { return player.busName == name; }) > 0)
        tellSoon();
    if (!newOwner.isEmpty())
        add(name, newOwner);
}

void MprisPlayers::add(const QString& name, const QString& owner) {
    const auto isThere = [&](const MprisPlayer& player) { return player.busName == name; };
    if (connection_ && std::none_of(players_.begin(), players_.end(), isThere)) {
        players_.emplace_front(name, owner);
        ask(players_.front());
    }
}

void MprisPlayers::ask(MprisPlayer& player) {
    player.isOutdated = false;
    askInterface(player.owner, Mpris::rootInterface);
    askInterface(player.owner, Mpris::playerInterface);
}

void MprisPlayers::askInterface(const QString& owner, const QString& interface) {
    const auto question =
        Mpris::call(owner, busPropertiesInterface, QStringLiteral("GetAll"), {interface});
    callBus(*connection_, question, this, [this, owner, interface](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage)
            return;
        if (interface == Mpris::playerInterface)
            forOwner(owner, [](MprisPlayer& player) { player.hasAnswered = true; });
        update(owner, Mpris::map(reply.arguments().value(0)));
    });
}

void MprisPlayers::propertiesChanged(const QDBusMessage& message) {
    const auto arguments = message.arguments();
    const auto interface = arguments.value(0).toString();
    if (interface != Mpris::playerInterface && interface != Mpris::rootInterface)
        return;
    const auto owner = message.service();
    update(owner, Mpris::map(arguments.value(1)));
    if (!arguments.value(2).toStringList().isEmpty()) // some were only named as changed
        forOwner(owner, [](MprisPlayer& player) { player.isOutdated = true; });
}

void MprisPlayers::seeked(const QDBusMessage& message) {
    forOwner(message.service(), [&](MprisPlayer& player) {
        player.setPosition(message.arguments().value(0), runLoop_.monotonicNow());
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
        if (player.isOutdated)
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
