#pragma once

#include "Foundation/Date.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <string>
#include <utility>

namespace orvelle {

namespace Mpris {
inline const QString namePrefix = QStringLiteral("org.mpris.MediaPlayer2.");
inline const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
inline const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
inline const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");

/// A call that never starts a player that does not run.
QDBusMessage call(const QString& busName, const QString& interface, const QString& method,
                  const QVariantList& arguments = {});
/// Name by value; empty for a value that is no such map.
QVariantMap map(const QVariant& value);
} // namespace Mpris

/// What a media player has told of itself. Players tell what they like: a value of a wrong type is
/// as good as missing, a text is cut after `longestText` characters, a time that is negative,
/// beyond `longestTime` or no number is 0.
struct MprisPlayer {
    static constexpr int longestText = 1000;
    static constexpr Seconds longestTime = 1e9; ///< some thirty years
    /// Addresses may hold the picture itself; a longer one counts as none, since the main thread
    /// carries it.
    static constexpr int longestArtUrl = 4 << 20;

    enum class Status { stopped, paused, playing };
    struct Track {
        std::string id;
        std::string title;
        std::string artist; ///< several are joined by commas
        std::string album;
        std::string artUrl;
        Seconds length = 0; ///< 0 while unknown

        bool operator==(const Track&) const = default;
    };

    MprisPlayer(QString name, QString uniqueName)
        : busName(std::move(name)), owner(std::move(uniqueName)) {}

    QString busName;
    QString owner; ///< the unique name behind it
    bool hasAnswered = false;
    bool isOutdated = true;    ///< it must be asked anew
    bool hasSignalled = false; ///< since it was asked last
    std::string identity;      ///< for people
    std::string desktopEntry;  ///< without its suffix
    bool canRaise = false;     ///< it brings its window to the front when asked
    Status status = Status::stopped;
    double rate = 1;
    Track track;
    /// When it last began or ceased to play, as a count; 0 when it has not since it was seen first.
    std::uint64_t lastPlayed = 0;

    /// A known player's own identifier; else its desktop entry, or the name on the bus.
    std::string bundleIdentifier() const;
    std::string displayName() const;
    bool isPlaying() const { return status == Status::playing; }
    /// Whether it has a track at hand.
    bool isShown() const { return status != Status::stopped && !track.title.empty(); }
    /// The position at the moment `now`, from the last one told.
    Seconds elapsed(Seconds now) const;

    /// A position that is no number leaves the present one.
    void setPosition(const QVariant& microseconds, Seconds now);
    /// Takes over properties of either interface, told at the moment `now`.
    void update(const QVariantMap& properties, Seconds now);
    /// It stands still from the moment `now` on, if it does not already.
    void rest(Seconds now);

private:
    std::string shortName() const;

    Seconds position_ = 0;
    Seconds positionTime_ = 0; ///< when the player stood there
};

} // namespace orvelle
