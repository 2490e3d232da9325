#include "Platform/Linux/SessionLock.h"

#include <QCoreApplication>
#include <QDBusObjectPath>

namespace orvelle {

namespace {

/// Milliseconds. A user who locks the screen should not wait for the next way longer than this.
constexpr int patience = 2000;

QDBusMessage logindCall(const QString& path, const char* interface, const char* method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.login1"), path,
                                          QLatin1String(interface), QLatin1String(method));
}

QDBusMessage managerCall(const char* method, const QVariant& argument) {
    auto call = logindCall(QStringLiteral("/org/freedesktop/login1"),
                           "org.freedesktop.login1.Manager", method);
    call << argument;
    return call;
}

} // namespace

SessionLock::SessionLock(RunLoop& runLoop, LogSink& log, BusProvider systemBus,
                         BusProvider sessionBus, QString sessionId)
    : runLoop_(runLoop), log_(log, "SessionLock"), systemBus_(std::move(systemBus)),
      sessionBus_(std::move(sessionBus)), sessionId_(std::move(sessionId)) {}

void SessionLock::lock() {
    systemConnecting_ =
        withBus(runLoop_, systemBus_, [this](const QDBusConnection& bus) { lockById(bus); });
}

void SessionLock::lockById(const QDBusConnection& bus) {
    if (sessionId_.isEmpty())
        lockByProcess(bus);
    else
        lockFound(bus, managerCall("GetSession", sessionId_), [this, bus] { lockByProcess(bus); });
}

void SessionLock::lockByProcess(const QDBusConnection& bus) {
    const auto process = static_cast<uint>(QCoreApplication::applicationPid());
    lockFound(bus, managerCall("GetSessionByPID", process), [this] { lockThroughScreenSaver(); });
}

void SessionLock::lockFound(const QDBusConnection& bus, const QDBusMessage& find,
                            std::function<void()> otherwise) {
    const auto lockSession = [this, bus, otherwise](const QDBusMessage& found) {
        const auto path = found.arguments().value(0).value<QDBusObjectPath>().path();
        if (found.type() != QDBusMessage::ReplyMessage || path.isEmpty())
            return otherwise();
        const auto lock = logindCall(path, "org.freedesktop.login1.Session", "Lock");
        callBus(
            bus, lock, this,
            [otherwise](const QDBusMessage& reply) {
                if (reply.type() != QDBusMessage::ReplyMessage)
                    otherwise();
            },
            patience);
    };
    callBus(bus, find, this, lockSession, patience);
}

void SessionLock::lockThroughScreenSaver() {
    const auto askScreenSaver = [this](const QDBusConnection& bus) {
        const auto lock = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/ScreenSaver"),
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("Lock"));
        callBus(bus, lock, this, [this](const QDBusMessage& reply) {
            if (reply.type() != QDBusMessage::ReplyMessage)
                log_.error("Nothing here locks the screen: " + reply.errorMessage().toStdString());
        });
    };
    sessionConnecting_ = withBus(runLoop_, sessionBus_, askScreenSaver);
}

} // namespace orvelle
