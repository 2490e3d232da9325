#pragma once

#include "Platform/Linux/MprisPlayer.h"
#include "adapters/PrivateBus.h"

#include <QDBusError>
#include <QDBusVirtualObject>

#include <map>

namespace orvelle {

/// A player that is on the bus before it can answer, as mpv with its MPRIS script is when the name
/// comes before the object: errors and silence first, then sense.
class ReluctantPlayer : public QDBusVirtualObject {
public:
    enum class Manner {
        refuses,
        isSilent,
        answers,
    };

    ReluctantPlayer(const PrivateBus& bus, Manner manner)
        : manner_(manner),
          connection_(QDBusConnection::connectToBus(bus.address(), connectionName)) {
        EXPECT_TRUE(connection_.registerVirtualObject(Mpris::path, this));
        EXPECT_TRUE(connection_.registerService(Mpris::namePrefix + QStringLiteral("reluctant")));
    }
    ~ReluctantPlayer() override { QDBusConnection::disconnectFromBus(connectionName); }

    void behave(Manner manner) { manner_ = manner; }
    /// How often it was asked for all properties of an interface.
    int questions(const QString& interface) const {
        const auto found = questions_.find(interface);
        return found == questions_.end() ? 0 : found->second;
    }
    /// Tells of a change that by itself shows nothing.
    void signal() {
        auto message = QDBusMessage::createSignal(Mpris::path, busPropertiesInterface,
                                                  QStringLiteral("PropertiesChanged"));
        message.setArguments({Mpris::playerInterface,
                              QVariantMap{{QStringLiteral("CanSeek"), true}}, QStringList()});
        connection_.send(message);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != QStringLiteral("GetAll"))
            return false;
        const auto interface = message.arguments().value(0).toString();
        ++questions_[interface];
        if (manner_ == Manner::refuses)
            connection.send(message.createErrorReply(QDBusError::UnknownObject,
                                                     QStringLiteral("Not yet there")));
        else if (manner_ == Manner::answers)
            connection.send(message.createReply(QVariantMap(properties(interface))));
        return true;
    }

private:
    static QVariantMap properties(const QString& interface) {
        if (interface == Mpris::rootInterface)
            return {{QStringLiteral("Identity"), QStringLiteral("The Reluctant Player")},
                    {QStringLiteral("DesktopEntry"), QStringLiteral("org.example.Reluctant")}};
        return {{QStringLiteral("PlaybackStatus"), QStringLiteral("Playing")},
                {QStringLiteral("Metadata"),
                 QVariantMap{{QStringLiteral("xesam:title"), QStringLiteral("Reluctant")}}}};
    }

    inline static const QString connectionName = QStringLiteral("reluctant-player");

    Manner manner_;
    std::map<QString, int> questions_;
    QDBusConnection connection_;
};

} // namespace orvelle
