#include "Platform/Linux/BusService.h"

#include <QDBusPendingCallWatcher>

#include <memory>
#include <utility>

namespace orvelle {

namespace {

/// Anybody may send them.
constexpr std::size_t mostEarlySignals = 32;

} // namespace

Subscription withBus(RunLoop& runLoop, BusProvider bus,
                     std::function<void(QDBusConnection)> ready) {
    auto connection = std::make_shared<std::optional<QDBusConnection>>();
    return runLoop.detach([connection, bus = std::move(bus)] { *connection = bus(); },
                          [connection, ready = std::move(ready)] { ready(**connection); });
}

void callBus(const QDBusConnection& connection, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage&)> done, int timeout) {
    auto* watcher = new QDBusPendingCallWatcher(connection.asyncCall(call, timeout), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [done = std::move(done)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         done(finished->reply());
                     });
}

BusService::BusService(RunLoop& runLoop, BusProvider bus, QString name, Signal signal,
                       Handlers handlers)
    : runLoop_(runLoop), bus_(std::move(bus)), name_(std::move(name)), signal_(std::move(signal)),
      handlers_(std::move(handlers)) {}

void BusService::start() {
    if (!connecting_)
        connecting_ =
            withBus(runLoop_, bus_, [this](QDBusConnection connection) { attach(connection); });
}

void BusService::attach(QDBusConnection connection) {
    connection_ = connection;
    // Without a service name in the matches: with one, the library would wait for the owner's name.
    connection_->connect({}, messageBusPath, messageBusName, QStringLiteral("NameOwnerChanged"),
                         QStringList{name_}, QString(), this, SLOT(ownerChanged(QDBusMessage)));
    connection_->connect({}, signal_.path, signal_.interface, signal_.member, this,
                         SLOT(signalArrived(QDBusMessage)));
    handlers_.ask();
}

void BusService::call(const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments, std::function<void(const QDBusMessage&)> done,
                      int timeout) {
    auto message = QDBusMessage::createMethodCall(name_, path, interface, method);
    message.setArguments(arguments);
    callBus(
        *connection_, message, this,
        [this, generation = generation_, done = std::move(done)](const QDBusMessage& reply) {
            if (generation != generation_)
                return;
            if (reply.type() == QDBusMessage::ReplyMessage)
                owner_ = reply.service();
            done(reply);
            hearEarly();
        },
        timeout);
}

void BusService::ownerChanged(const QDBusMessage& message) {
    const auto newOwner = message.arguments().value(2).toString();
    if (message.service() != messageBusName || newOwner == owner_)
        return;
    ++generation_;
    owner_ = newOwner;
    early_.clear();
    handlers_.forget();
    if (!newOwner.isEmpty())
        handlers_.ask();
}

void BusService::signalArrived(const QDBusMessage& message) {
    if (message.service() == owner_)
        handlers_.hear(message);
    else if (owner_.isEmpty()) {
        early_.push_back(message);
        if (early_.size() > mostEarlySignals)
            early_.pop_front();
    }
}

void BusService::hearEarly() {
    if (!owner_.isEmpty())
        for (const auto& signal : std::exchange(early_, {}))
            signalArrived(signal);
}

} // namespace orvelle
