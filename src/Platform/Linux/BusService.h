#pragma once

#include "Foundation/Subscription.h"
#include "Platform/RunLoop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <deque>
#include <functional>
#include <optional>

namespace orvelle {

/// The bus itself: its name, which is also its interface, and its only object.
inline const QString messageBusName = QStringLiteral("org.freedesktop.DBus");
inline const QString messageBusPath = QStringLiteral("/org/freedesktop/DBus");

inline const QString busPropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// How long an answer may take, in milliseconds.
inline constexpr int busCallTimeout = 25000;

/// Gives a connection to a bus. It may wait while it connects, so it is called in the background.
using BusProvider = std::function<QDBusConnection()>;

/// Connects in the background, then hands the connection to `ready` on the main thread.
[[nodiscard]] Subscription withBus(RunLoop& runLoop, BusProvider bus,
                                   std::function<void(QDBusConnection)> ready);

/// Sends a call without waiting. The reply or the error comes to `done` on the main thread, unless
/// `context` is gone by then. Silence is an error after `timeout` milliseconds.
void callBus(const QDBusConnection& connection, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage&)> done, int timeout = busCallTimeout);

/// One service on a bus, followed through its absence, its restarts and its silence. Nothing is
/// asked of the bus before `start`, and nothing here waits. Main thread only.
class BusService : public QObject {
    Q_OBJECT

public:
    struct Handlers {
        /// The service may be asked: once after `start`, which may activate it, and whenever it
        /// has appeared since.
        std::function<void()> ask;
        /// The service has left the bus or starts anew, and so what it said no longer holds.
        std::function<void()> forget;
        /// The one signal that is listened to, from the service itself.
        std::function<void(const QDBusMessage&)> hear;
    };
    struct Signal {
        QString path;
        QString interface;
        QString member;
    };

    BusService(RunLoop& runLoop, BusProvider bus, QString name, Signal signal, Handlers handlers);

    /// Any number of times.
    void start();
    /// Calls the service, at the earliest in `ask`. Answers and errors of a service that has left
    /// the bus since are dropped.
    void call(const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments, std::function<void(const QDBusMessage&)> done,
              int timeout = busCallTimeout);

private Q_SLOTS:
    void ownerChanged(const QDBusMessage& message);
    void signalArrived(const QDBusMessage& message);

private:
    void attach(QDBusConnection connection);
    void hearEarly();

    RunLoop& runLoop_;
    BusProvider bus_;
    QString name_;
    Signal signal_;
    Handlers handlers_;
    std::optional<QDBusConnection> connection_;
    QString owner_; ///< the service's unique name; empty until it has answered or appeared
    /// Signals from before the owner was known: an answer may come behind them.
    std::deque<QDBusMessage> early_;
    int generation_ = 0;
    Subscription connecting_;
};

} // namespace orvelle
