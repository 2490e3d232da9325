#include "Platform/Linux/MprisPlayer.h"

#include "Platform/Linux/KnownPlayers.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvelle {

namespace {

constexpr double microsecondsPerSecond = 1e6;

bool isText(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<QString>();
}

std::string text(const QVariant& value) {
    if (!isText(value))
        return {};
    auto whole = value.toString();
    if (whole.size() > MprisPlayer::longestText) {
        whole.truncate(MprisPlayer::longestText);
        if (whole.back().isHighSurrogate())
            whole.chop(1);
    }
    return whole.toStdString();
}

/// One text or a list of them.
std::string texts(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<QStringList>())
        return text(value);
    const auto list = value.toStringList().mid(0, MprisPlayer::longestText);
    return text(list.join(QStringLiteral(", ")));
}

std::string path(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<QDBusObjectPath>())
        return value.value<QDBusObjectPath>().path().toStdString();
    return text(value);
}

std::string address(const QVariant& value) {
    if (!isText(value) || value.toString().size() > MprisPlayer::longestArtUrl)
        return {};
    return value.toString().toStdString();
}

/// Of any type of number; players are not at one about theirs.
std::optional<double> number(const QVariant& value) {
    switch (value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return value.toDouble();
    default:
        return std::nullopt;
    }
}

Seconds time(const QVariant& microseconds) {
    const Seconds value = number(microseconds).value_or(0) / microsecondsPerSecond;
    return value > 0 && value <= MprisPlayer::longestTime ? value : 0;
}

MprisPlayer::Track track(const QVariantMap& metadata) {
    const auto value = [&](const char* key) { return metadata.value(QLatin1String(key)); };
    return {.id = path(value("mpris:trackid")),
            .title = text(value("xesam:title")),
            .artist = texts(value("xesam:artist")),
            .album = text(value("xesam:album")),
            .artUrl = address(value("mpris:artUrl")),
            .length = time(value("mpris:length"))};
}

MprisPlayer::Status status(const QVariant& value) {
    const auto word = text(value);
    if (word == "Playing")
        return MprisPlayer::Status::playing;
    return word == "Paused" ? MprisPlayer::Status::paused : MprisPlayer::Status::stopped;
}

} // namespace

QDBusMessage Mpris::call(const QString& busName, const QString& interface, const QString& method,
                         const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(busName, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

QVariantMap Mpris::map(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return value.toMap();
    const auto argument = value.value<QDBusArgument>();
    return argument.currentSignature() == QLatin1String("a{sv}") ? qdbus_cast<QVariantMap>(argument)
                                                                 : QVariantMap();
}

std::string MprisPlayer::shortName() const {
    // Several instances of one player tell themselves apart by what follows their name.
    return busName.mid(Mpris::namePrefix.size()).section(u'.', 0, 0).toStdString();
}

std::string MprisPlayer::bundleIdentifier() const {
    const auto name = shortName();
    for (const auto& known : knownPlayers)
        if (name == known.mprisName)
            return std::string(known.bundleIdentifier);
    return desktopEntry.empty() ? name : desktopEntry;
}

std::string MprisPlayer::displayName() const {
    return identity.empty() ? shortName() : identity;
}

Seconds MprisPlayer::elapsed(Seconds now) const {
    const Seconds since = isPlaying() ? (now - positionTime_) * rate : 0;
    const Seconds position = std::max(position_ + since, 0.0);
    return track.length > 0 ? std::min(position, track.length) : position;
}

void MprisPlayer::setPosition(const QVariant& microseconds, Seconds now) {
    if (!number(microseconds))
        return;
    position_ = time(microseconds);
    positionTime_ = now;
}

void MprisPlayer::rest(Seconds now) {
    position_ = elapsed(now);
    positionTime_ = now;
    status = Status::paused;
}

void MprisPlayer::update(const QVariantMap& properties, Seconds now) {
    position_ = elapsed(now);
    positionTime_ = now;
    const auto take = [&](const char* name, auto apply) {
        if (const auto found = properties.find(QLatin1String(name)); found != properties.end())
            apply(*found);
    };
    take("Identity", [&](const QVariant& value) { identity = text(value); });
    take("DesktopEntry", [&](const QVariant& value) { desktopEntry = text(value); });
    take("CanRaise", [&](const QVariant& value) {
        canRaise = value.metaType() == QMetaType::fromType<bool>() && value.toBool();
    });
    take("PlaybackStatus", [&](const QVariant& value) { status = orvelle::status(value); });
    take("Rate", [&](const QVariant& value) {
        const double told = number(value).value_or(1);
        rate = std::isfinite(told) && told > 0 ? told : 1;
    });
    take("Metadata", [&](const QVariant& value) {
        auto fresh = orvelle::track(Mpris::map(value));
        if (fresh.id != track.id || fresh.title != track.title)
            position_ = 0;
        track = std::move(fresh);
    });
    take("Position", [&](const QVariant& value) { setPosition(value, now); });
}

} // namespace orvelle
