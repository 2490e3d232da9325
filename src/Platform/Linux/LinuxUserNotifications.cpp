#include "Platform/Linux/LinuxUserNotifications.h"

#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace orvelle {

LinuxUserNotifications::LinuxUserNotifications(RunLoop& runLoop, BusProvider sessionBus)
    : runLoop_(runLoop), bus_(std::move(sessionBus)) {}

void LinuxUserNotifications::add(const NotificationRequest& request) {
    if (connection_) {
        send(request);
        return;
    }
    waiting_.push_back(request);
    if (connecting_)
        return;
    connecting_ = withBus(runLoop_, bus_, [this](QDBusConnection connection) {
        connection_ = std::move(connection);
        for (const auto& each : std::exchange(waiting_, {}))
            send(each);
    });
}

void LinuxUserNotifications::send(const NotificationRequest& request) {
    constexpr uint replacesNone = 0;
    constexpr int desktopsOwnTime = -1;
    const auto service = QStringLiteral("org.freedesktop.Notifications");
    auto call =
        QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/Notifications"),
                                       service, QStringLiteral("Notify"));
    QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("orvelle")}};
    if (!request.hasSound)
        hints.insert(QStringLiteral("suppress-sound"), true);
    call.setArguments({QStringLiteral("Orvelle"), replacesNone, QStringLiteral("orvelle"),
                       QString::fromStdString(request.title),
                       QString::fromStdString(request.body).toHtmlEscaped(), QStringList(), hints,
                       desktopsOwnTime});
    callBus(*connection_, call, &context_, [](const QDBusMessage&) {});
}

} // namespace orvelle
