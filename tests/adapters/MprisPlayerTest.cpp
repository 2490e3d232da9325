#include "Platform/Linux/MprisPlayer.h"

#include <QDBusObjectPath>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

namespace orvelle {
namespace {

class MprisPlayerTest : public testing::Test {
protected:
    void tell(const char* name, const QVariant& value, Seconds now = 0) {
        player.update({{QLatin1String(name), value}}, now);
    }
    void tellTrack(const char* key, const QVariant& value) {
        tell("Metadata", QVariantMap{{QLatin1String(key), value}});
    }

    MprisPlayer player{QStringLiteral("org.mpris.MediaPlayer2.vlc.instance77"),
                       QStringLiteral(":1.7")};
};

TEST_F(MprisPlayerTest, ANameWithAnInstanceGivesTheIdentifierUntilADesktopEntryIsTold) {
    EXPECT_EQ(player.bundleIdentifier(), "vlc");
    EXPECT_EQ(player.displayName(), "vlc");
    tell("DesktopEntry", QStringLiteral("org.videolan.VLC"));
    tell("Identity", QStringLiteral("VLC media player"));
    EXPECT_EQ(player.bundleIdentifier(), "org.videolan.VLC");
    EXPECT_EQ(player.displayName(), "VLC media player");
}

TEST_F(MprisPlayerTest, AKnownPlayerHasItsIdentifierWhateverItsDesktopEntry) {
    MprisPlayer spotify(QStringLiteral("org.mpris.MediaPlayer2.spotify"), QString());
    spotify.update({{QStringLiteral("DesktopEntry"), QStringLiteral("spotify_spotify")}}, 0);
    EXPECT_EQ(spotify.bundleIdentifier(), "com.spotify.client");
}

TEST_F(MprisPlayerTest, ValuesOfWrongTypesAreAsGoodAsMissing) {
    player.update({{QStringLiteral("Metadata"),
                    QVariantMap{{QStringLiteral("xesam:title"), 7},
                                {QStringLiteral("xesam:artist"), QVariantMap()},
                                {QStringLiteral("mpris:length"), QStringLiteral("long")},
                                {QStringLiteral("mpris:artUrl"), QByteArray("x")}}},
                   {QStringLiteral("PlaybackStatus"), 1},
                   {QStringLiteral("Rate"), QStringLiteral("fast")},
                   {QStringLiteral("Position"), QStringLiteral("here")},
                   {QStringLiteral("Identity"), 3.5}},
                  0);
    EXPECT_EQ(player.track, MprisPlayer::Track());
    EXPECT_EQ(player.status, MprisPlayer::Status::stopped);
    EXPECT_EQ(player.rate, 1);
    EXPECT_EQ(player.elapsed(0), 0);
    EXPECT_EQ(player.displayName(), "vlc");
    tell("Metadata", QStringLiteral("no map"));
    EXPECT_EQ(player.track, MprisPlayer::Track());
}

TEST_F(MprisPlayerTest, NegativeAndImpossibleTimesAre0) {
    for (const QVariant& length :
         {QVariant(qlonglong{-5}), QVariant(std::nan("")), QVariant(INFINITY), QVariant(1e300),
          QVariant(QStringLiteral("5"))}) {
        tellTrack("mpris:length", length);
        EXPECT_EQ(player.track.length, 0) << length.toString().toStdString();
    }
    for (const QVariant& length : {QVariant(qlonglong{5'000'000}), QVariant(qulonglong{5'000'000}),
                                   QVariant(5'000'000), QVariant(5e6)}) {
        tellTrack("mpris:length", length);
        EXPECT_EQ(player.track.length, 5) << length.typeName();
    }
    tell("Position", qlonglong{-9});
    EXPECT_EQ(player.elapsed(0), 0);
}

TEST_F(MprisPlayerTest, AVeryLongTextIsCutBetweenCharacters) {
    tellTrack("xesam:title", QString(100'000, u'a'));
    EXPECT_EQ(player.track.title, std::string(MprisPlayer::longestText, 'a'));
    tellTrack("xesam:title", QStringLiteral("a") + QStringLiteral("😀").repeated(50'000));
    const auto text = QString::fromStdString(player.track.title);
    EXPECT_EQ(text.size(), MprisPlayer::longestText - 1);
    EXPECT_FALSE(text.contains(QChar::ReplacementCharacter));
    tellTrack("xesam:title", QStringLiteral("שלום 😀"));
    EXPECT_EQ(player.track.title, "שלום 😀");
}

TEST_F(MprisPlayerTest, AnAddressBeyondReasonIsNone) {
    const QString picture =
        QStringLiteral("data:,") + QString(MprisPlayer::longestArtUrl - 6, u'x');
    tellTrack("mpris:artUrl", picture);
    EXPECT_EQ(player.track.artUrl, picture.toStdString());
    tellTrack("mpris:artUrl", picture + u'x');
    EXPECT_EQ(player.track.artUrl, "");
}

TEST_F(MprisPlayerTest, AnArtistIsATextOrAListOfTexts) {
    tellTrack("xesam:artist", QStringList{QStringLiteral("First"), QStringLiteral("Second")});
    EXPECT_EQ(player.track.artist, "First, Second");
    tellTrack("xesam:artist", QStringLiteral("Only"));
    EXPECT_EQ(player.track.artist, "Only");
}

TEST_F(MprisPlayerTest, ThePositionGoesOnWhileItPlaysAndStopsAtTheLength) {
    tellTrack("mpris:length", qlonglong{60'000'000});
    tell("Position", qlonglong{10'000'000}, 100);
    EXPECT_EQ(player.elapsed(105), 10);
    tell("PlaybackStatus", QStringLiteral("Playing"), 105);
    EXPECT_EQ(player.elapsed(108), 13);
    tell("Rate", 2.0, 108);
    EXPECT_EQ(player.elapsed(110), 17);
    tell("PlaybackStatus", QStringLiteral("Paused"), 110);
    EXPECT_EQ(player.elapsed(500), 17);
    tell("PlaybackStatus", QStringLiteral("Playing"), 500);
    EXPECT_EQ(player.elapsed(1000), 60);
}

TEST_F(MprisPlayerTest, ANewTrackBeginsAt0) {
    tellTrack("xesam:title", QStringLiteral("One"));
    tell("Position", qlonglong{10'000'000});
    tellTrack("xesam:title", QStringLiteral("One"));
    EXPECT_EQ(player.elapsed(0), 10);
    tellTrack("xesam:title", QStringLiteral("Two"));
    EXPECT_EQ(player.elapsed(0), 0);
}

} // namespace
} // namespace orvelle
