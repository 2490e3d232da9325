#pragma once

#include "Platform/Linux/MprisPlayer.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

namespace orvelle {

/// A media player that says what the test tells it to say.
class ScriptedPlayer {
public:
    /// `name` follows "org.mpris.MediaPlayer2.". It begins stopped and without a track.
    ScriptedPlayer(PrivateBus& bus, const char* name)
        : mock_(bus, Mpris::namePrefix + QLatin1String(name), Mpris::path,
                MockService::empty(Mpris::namePrefix + QLatin1String(name), Mpris::path,
                                   Mpris::playerInterface)) {
        add(Mpris::rootInterface, {{QStringLiteral("Identity"), QString()},
                                   {QStringLiteral("DesktopEntry"), QString()},
                                   {QStringLiteral("CanRaise"), false}});
        add(Mpris::playerInterface, {{QStringLiteral("PlaybackStatus"), QStringLiteral("Stopped")},
                                     {QStringLiteral("Metadata"), QVariantMap()},
                                     {QStringLiteral("Position"), qlonglong{0}},
                                     {QStringLiteral("Rate"), 1.0}});
        for (const char* method : {"PlayPause", "Next", "Previous"})
            mock_.addMethod(Mpris::playerInterface, QLatin1String(method), QString(), QString(),
                            QString());
        addRaise(QString());
    }

    static QVariantMap track(const char* title, const char* artUrl = "") {
        return {{QStringLiteral("mpris:trackid"),
                 QVariant::fromValue(QDBusObjectPath(QStringLiteral("/track/") +
                                                     QString::number(qHash(QByteArray(title)))))},
                {QStringLiteral("xesam:title"), QString::fromUtf8(title)},
                {QStringLiteral("xesam:artist"),
                 QStringList{QStringLiteral("First"), QStringLiteral("Second")}},
                {QStringLiteral("xesam:album"), QStringLiteral("An Album")},
                {QStringLiteral("mpris:length"), qlonglong{125'900'000}},
                {QStringLiteral("mpris:artUrl"), QString::fromUtf8(artUrl)}};
    }

    /// Changes properties of the player and says so.
    void tell(const QVariantMap& properties) { update(Mpris::playerInterface, properties); }
    void tellRoot(const QVariantMap& properties) { update(Mpris::rootInterface, properties); }
    void setStatus(const char* status) {
        tell({{QStringLiteral("PlaybackStatus"), QString::fromUtf8(status)}});
    }
    void play(const char* title, const char* artUrl = "") { play(track(title, artUrl)); }
    void play(const QVariantMap& metadata) {
        tell({{QStringLiteral("Metadata"), metadata},
              {QStringLiteral("PlaybackStatus"), QStringLiteral("Playing")}});
    }
    void seek(qlonglong position) {
        tell({{QStringLiteral("Position"), position}});
        mock_.call(mockInterface, QStringLiteral("EmitSignal"),
                   {Mpris::playerInterface, QStringLiteral("Seeked"), QStringLiteral("x"),
                    QVariantList{position}});
    }
    qsizetype callCount(const char* method) const { return mock_.callCount(QLatin1String(method)); }
    void refuseToRaise() {
        addRaise(QStringLiteral("raise dbus.exceptions.DBusException('No window', "
                                "name='org.example.NoWindow')"));
    }
    std::uint32_t processId() const { return mock_.processId(); }
    void hang() { mock_.hang(); }
    void wakeUp() { mock_.wakeUp(); }

private:
    void addRaise(const QString& code) {
        mock_.addMethod(Mpris::rootInterface, QStringLiteral("Raise"), QString(), QString(), code);
    }
    void add(const QString& interface, const QVariantMap& properties) {
        mock_.call(mockInterface, QStringLiteral("AddProperties"), {interface, properties});
    }
    void update(const QString& interface, const QVariantMap& properties) {
        for (auto property = properties.begin(); property != properties.end(); ++property)
            mock_.call(
                busPropertiesInterface, QStringLiteral("Set"),
                {interface, property.key(), QVariant::fromValue(QDBusVariant(property.value()))});
    }

    MockService mock_;
};

} // namespace orvelle
