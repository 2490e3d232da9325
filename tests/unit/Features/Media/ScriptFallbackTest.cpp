#include "Support/MediaFixture.h"

namespace orvelle {
namespace {

using ScriptFallbackTest = MediaFixture;

constexpr const char* musicLine = "Tune||Band||Disc||240.5||12||true";
constexpr const char* spotifyLine =
    "Song||Singer||Record||180||20||true||https://covers.example/1.jpg";

class SilentSpotify : public MediaFixture, public testing::WithParamInterface<const char*> {};

TEST_P(SilentSpotify, LetsMusicBeReadNext) {
    runPlayer(spotify, GetParam());
    runPlayer(music, musicLine);
    start();
    EXPECT_EQ(scripts().executed[0], MediaScripts::spotifyRead);
    EXPECT_EQ(scripts().executed[1], MediaScripts::musicRead);
    EXPECT_EQ(media().title, "Tune");
    EXPECT_EQ(media().appBundleIdentifier, music);
    EXPECT_EQ(media().appName, "Music");
    const std::string said = GetParam();
    EXPECT_EQ(logCount("AppleScript Spotify: " + (said.empty() ? "empty" : said)), 1);
}

INSTANTIATE_TEST_SUITE_P(ScriptFallback, SilentSpotify,
                         testing::Values("NOT_RUNNING", "STOPPED", ""));

TEST_F(ScriptFallbackTest, ATitleWithTheSeparatorShiftsTheFieldsAndIsTakenAsItComes) {
    runPlayer(music, "One||Two||Band||Disc||240||12||true");
    start();
    EXPECT_EQ(media().title, "One");
    EXPECT_EQ(media().artist, "Two");
    EXPECT_EQ(media().album, "Band");
    EXPECT_EQ(media().duration, 0);
    EXPECT_EQ(media().elapsed, 240);
    EXPECT_FALSE(media().isPlaying);
}

TEST_F(ScriptFallbackTest, ADecimalCommaGivesNoDurationAndThePositionStands) {
    runPlayer(music, "Tune||Band||Disc||240,5||12||true");
    start();
    EXPECT_EQ(media().duration, 0);
    EXPECT_TRUE(media().isPlaying);
    advance(2);
    EXPECT_EQ(media().elapsed, 12);
}

TEST_F(ScriptFallbackTest, AnEmptyCoverAddressGoesThroughTheSeparateScript) {
    runPlayer(spotify, "Song||Singer||Record||180||20||true||");
    scripts().outcomes[MediaScripts::spotifyArtwork] = line("https://covers.example/2.jpg");
    platform.urlDataPort.contents["https://covers.example/2.jpg"] = SharedBytes("cover");
    platform.imageCodecPort.images["cover"] = picture();
    start();
    EXPECT_EQ(executions(MediaScripts::spotifyArtwork), 1);
    EXPECT_TRUE(media().artwork);
    EXPECT_EQ(AppleScriptMediaInfo::parse("a||b||c||1||2||true||", "", "")->artworkURL,
              std::nullopt);
}

TEST_F(ScriptFallbackTest, ANewAlbumOfTheSameTrackKeepsTheCoverAndFetchesNothing) {
    runPlayer(spotify, spotifyLine);
    platform.urlDataPort.contents["https://covers.example/1.jpg"] = SharedBytes("cover");
    platform.imageCodecPort.images["cover"] = picture();
    start();
    ASSERT_TRUE(media().artwork);
    runPlayer(spotify, "Song||Singer||Other Record||180||23||true||https://covers.example/9.jpg");
    read();
    EXPECT_EQ(media().album, "Other Record");
    EXPECT_EQ(media().elapsed, 23);
    EXPECT_TRUE(media().artwork);
    EXPECT_EQ(platform.urlDataPort.reads.size(), 1u);
}

TEST_F(ScriptFallbackTest, WhenTheSourceQuitsTheNextEmptyReadClearsAndFiveAttemptsAreLeft) {
    runPlayer(spotify, spotifyLine);
    start();
    ASSERT_EQ(media().title, "Song");
    platform.runningApplicationsPort.running.clear();
    read();
    EXPECT_EQ(media(), MediaInfo());
    EXPECT_EQ(logCount("AppleScript source app com.spotify.client is no longer running, clearing "
                       "media"),
              1);
    const std::string exhausted =
        "AppleScript fallback exhausted after 6 attempts — check Automation permissions in System "
        "Settings > Privacy & Security";
    runPlayer(spotify, "STOPPED");
    scripts().executed.clear();
    for (int attempt = 0; attempt < 5; ++attempt)
        read();
    EXPECT_EQ(executions(MediaScripts::spotifyRead), 5);
    EXPECT_EQ(logCount(exhausted), 0);
    read();
    EXPECT_EQ(executions(MediaScripts::spotifyRead), 5);
    EXPECT_EQ(logCount(exhausted), 1);
}

TEST_F(ScriptFallbackTest, ASpotifyStopClearsTheDisplayUntilTheNextPoll) {
    service().info = track("Song");
    start();
    advance(1);
    postSpotify(spotifyState("Stopped"));
    EXPECT_EQ(media(), MediaInfo());
    EXPECT_EQ(logCount("Spotify distributed notification: Stopped"), 1);
    advance(2);
    EXPECT_EQ(media().title, "Song");
}

TEST_F(ScriptFallbackTest, AnyOtherSpotifyStateStopsTheElapsedTimerAndKeepsTheTrack) {
    start();
    postSpotify(spotifyState("Playing"));
    EXPECT_EQ(platform.runLoopPort.timerCount(), 2u);
    for (const char* state : {"Paused", "playing", ""}) {
        postSpotify(spotifyState("Playing"));
        postSpotify(spotifyState(state));
        EXPECT_EQ(media().title, "Song");
        EXPECT_FALSE(media().isPlaying);
        EXPECT_EQ(platform.runLoopPort.timerCount(), 1u) << state;
    }
}

TEST_F(ScriptFallbackTest, ToggleLoveOnASpotifyTrackDoesNothingAndTheHeartIsFalse) {
    start();
    manager.isLoved = true;
    postSpotify(spotifyState("Playing"));
    EXPECT_FALSE(manager.isLoved);
    manager.toggleLove();
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(manager.isLoved);
    EXPECT_EQ(executions(MediaScripts::musicToggleLoved), 0);
    manager.isLoved = true;
    manager.fetchLoveStatus();
    EXPECT_FALSE(manager.isLoved);
}

TEST_F(ScriptFallbackTest, AnUnknownApplicationsTransportNameIsItsIdentifierAndFailsQuietly) {
    EXPECT_EQ(MediaScripts::transport("playpause", "org.example.Player"),
              "tell application \"org.example.Player\" to playpause");
    EXPECT_EQ(MediaScripts::transport("next track", music),
              "tell application \"Music\" to next track");
    start();
    postSpotify(spotifyState("Playing"));
    platform.logPort.lines.clear();
    manager.playPause(); // the simulated executor knows no such script
    platform.runLoopPort.runPosted();
    EXPECT_EQ(executions("tell application \"Spotify\" to playpause"), 1);
    EXPECT_TRUE(platform.logPort.lines.empty());
}

// The read scripts.

TEST_F(ScriptFallbackTest, SpotifyWinsWhenBothRun) {
    runPlayer(spotify, spotifyLine);
    runPlayer(music, musicLine);
    start();
    EXPECT_EQ(media().title, "Song");
    EXPECT_EQ(media().artist, "Singer");
    EXPECT_EQ(media().duration, 180);
    EXPECT_EQ(media().appName, "Spotify");
    EXPECT_EQ(executions(MediaScripts::musicRead), 0);
    advance(1);
    EXPECT_DOUBLE_EQ(media().elapsed, 21);
}

TEST_F(ScriptFallbackTest, FallbackModeHoldsUpByItself) {
    runPlayer(music, musicLine);
    start();
    advance(300);
    EXPECT_EQ(executions(MediaScripts::musicRead), 101);
    EXPECT_EQ(media().title, "Tune");
    service().info = track("From the service");
    advance(3);
    EXPECT_EQ(media().title, "From the service");
    EXPECT_EQ(executions(MediaScripts::musicRead), 101);
}

TEST_F(ScriptFallbackTest, WhenNoPlayerHasARecordAnyMoreTheFallbackIsCleared) {
    runPlayer(music, musicLine);
    start();
    runPlayer(music, "STOPPED");
    read();
    EXPECT_EQ(media(), MediaInfo());
    EXPECT_EQ(logCount("No media app running, clearing AppleScript fallback state"), 1);
    read();
    EXPECT_EQ(logCount("No media app running, clearing AppleScript fallback state"), 1);
}

TEST_F(ScriptFallbackTest, ErrorsOfScriptsAreLoggedAndCounted) {
    runPlayer(spotify, "");
    scripts().outcomes[MediaScripts::spotifyRead] = ScriptError{"Not allowed", -1743};
    runPlayer(music, "");
    scripts().outcomes[MediaScripts::musicRead] = ScriptError{};
    start();
    EXPECT_EQ(logCount("AppleScript error for Spotify: Not allowed (code -1743)"), 1);
    EXPECT_EQ(logCount("AppleScript error for Music: unknown (code -1)"), 1);
    scripts().outcomes.clear();
    read();
    EXPECT_EQ(logCount("Failed to create NSAppleScript for Spotify"), 1);
    EXPECT_EQ(platform.logPort.lines.back().category, "MediaManager.AppleScript");
}

TEST_F(ScriptFallbackTest, ALineOfFewerThanSixFieldsIsNothing) {
    EXPECT_EQ(AppleScriptMediaInfo::parse("a||b||c||1||2", "", ""), std::nullopt);
    EXPECT_EQ(AppleScriptMediaInfo::parse("", "", ""), std::nullopt);
    const auto info = AppleScriptMediaInfo::parse("a||b||c||1.5|| 2||TRUE||u||rest", "id", "name");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->duration, 1.5);
    EXPECT_EQ(info->elapsed, 0) << "a leading blank does not parse";
    EXPECT_FALSE(info->isPlaying);
    EXPECT_EQ(info->artworkURL, "u");
    for (const char* bad : {"nan", "inf", "-5", "1e999", "1e300", "12s"})
        EXPECT_EQ(
            AppleScriptMediaInfo::parse(format("a||b||c||%s||0||true", bad), "", "")->duration, 0)
            << bad;
}

// Spotify's own messages.

TEST_F(ScriptFallbackTest, ASpotifyEventEntersTheFallbackWhileTheServiceWorks) {
    service().info = track("From the service");
    start();
    postSpotify(spotifyState("Playing"));
    EXPECT_EQ(media().title, "Song");
    EXPECT_EQ(media().duration, 180);
    EXPECT_EQ(media().elapsed, 20);
    EXPECT_EQ(logCount("Spotify distributed notification: Playing — Singer - Song"), 1);
    read();
    EXPECT_EQ(media().title, "From the service");
}

TEST_F(ScriptFallbackTest, AMessageWithoutDetailsIsNothing) {
    service().info = track("Song");
    start();
    postSpotify(std::nullopt);
    EXPECT_EQ(media().title, "Song");
    postSpotify(NotificationUserInfo{{"Name", std::int64_t{4}}, {"Duration", std::string("x")}});
    EXPECT_EQ(media().title, "");
    EXPECT_EQ(media().duration, 0);
    EXPECT_EQ(media().appName, "Spotify") << "without a state it is a state like any other";
}

// Covers.

class ScriptArtworkTest : public MediaFixture {
protected:
    ScriptArtworkTest() {
        platform.urlDataPort.contents["https://covers.example/1.jpg"] = SharedBytes("cover");
        platform.imageCodecPort.images["cover"] = picture();
    }
};

TEST_F(ScriptArtworkTest, AFailedReadOfTheAddressEndsWithoutTheScript) {
    platform.urlDataPort.contents.clear();
    runPlayer(spotify, spotifyLine);
    start();
    EXPECT_FALSE(media().artwork);
    EXPECT_EQ(executions(MediaScripts::spotifyArtwork), 0);
    read();
    EXPECT_EQ(platform.urlDataPort.reads.size(), 1u) << "a track is tried once";
}

TEST_F(ScriptArtworkTest, ATextThatIsNoAddressGoesThroughTheScript) {
    runPlayer(spotify, "Song||Singer||Record||180||20||true||not an address");
    scripts().outcomes[MediaScripts::spotifyArtwork] = line("https://covers.example/1.jpg");
    start();
    EXPECT_TRUE(media().artwork);
}

TEST_F(ScriptArtworkTest, AScriptWithoutAnAddressGivesNoCover) {
    for (const char* text : {"", "no address"}) {
        scripts().outcomes[MediaScripts::spotifyArtwork] = line(text);
        manager.stop();
        start();
        postSpotify(spotifyState("Playing", std::string("Song") + text));
        EXPECT_FALSE(media().artwork);
    }
    EXPECT_TRUE(platform.urlDataPort.reads.empty());
}

TEST_F(ScriptArtworkTest, MusicGivesItsCoverAsData) {
    runPlayer(music, musicLine);
    scripts().outcomes[MediaScripts::musicArtwork] = bytes("cover");
    start();
    EXPECT_TRUE(media().artwork);
}

TEST_F(ScriptArtworkTest, TheEmptyTextOfMusicsOwnErrorIsNoImage) {
    runPlayer(music, musicLine);
    scripts().outcomes[MediaScripts::musicArtwork] = ScriptResult{"", false, {}};
    start();
    EXPECT_FALSE(media().artwork);
}

TEST_F(ScriptArtworkTest, ErrorsAreLogged) {
    start();
    postSpotify(spotifyState("Playing", "First"));
    EXPECT_EQ(logCount("Failed to create Spotify artwork NSAppleScript"), 1);
    scripts().outcomes[MediaScripts::spotifyArtwork] = ScriptError{};
    postSpotify(spotifyState("Playing", "Second"));
    EXPECT_EQ(logCount("Spotify artwork URL error: unknown"), 1);
    runPlayer(music, musicLine);
    read(); // Spotify does not run, and is given up
    read();
    EXPECT_EQ(logCount("Failed to create artwork NSAppleScript"), 1);
}

TEST_F(ScriptArtworkTest, ALateCoverOfThePreviousTrackIsDropped) {
    start();
    scripts().outcomes[MediaScripts::spotifyArtwork] = line("https://covers.example/1.jpg");
    platform.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                               spotifyState("Playing", "First"));
    platform.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                               spotifyState("Playing", "Second"));
    std::vector<std::string> covered;
    const auto subscription = manager.currentMedia.observe([&](const MediaInfo& info) {
        if (info.artwork)
            covered.push_back(info.title);
    });
    platform.runLoopPort.runPosted();
    EXPECT_EQ(covered, std::vector<std::string>{"Second"});
    EXPECT_EQ(platform.urlDataPort.reads.size(), 1u) << "the first is not even read any more";
}

TEST_F(ScriptArtworkTest, ACoverThatCouldNotBeStoppedAnyMoreIsDroppedAsWell) {
    runPlayer(music, "First||Band||Disc||240||12||true");
    scripts().outcomes[MediaScripts::musicArtwork] = bytes("cover");
    const auto overtaking = manager.currentMedia.observe([&](const MediaInfo& info) {
        if (info.title == "First")
            platform.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                                       spotifyState("Playing", "Second"));
    });
    start();
    EXPECT_EQ(executions(MediaScripts::musicArtwork), 1);
    EXPECT_EQ(media().title, "Second");
    EXPECT_FALSE(media().artwork);
}

// The love mark, and the source application.

class MusicTest : public MediaFixture {
protected:
    MusicTest() {
        runPlayer(music, musicLine);
        scripts().outcomes[MediaScripts::musicLoved] = ScriptResult{std::nullopt, true, {}};
        start();
    }
};

TEST_F(MusicTest, TheMarkIsReadWithANewTrack) {
    EXPECT_TRUE(manager.isLoved);
    scripts().outcomes[MediaScripts::musicLoved] = ScriptError{};
    manager.fetchLoveStatus();
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(manager.isLoved);
}

TEST_F(MusicTest, TheMarkIsFlippedWhateverTheScriptSays) {
    scripts().outcomes[MediaScripts::musicToggleLoved] = ScriptError{};
    manager.toggleLove();
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(manager.isLoved);
    scripts().outcomes.erase(MediaScripts::musicToggleLoved);
    manager.toggleLove();
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(manager.isLoved) << "the script could not be made";
}

TEST_F(MusicTest, TheSourceApplicationIsLaunched) {
    manager.openSourceApp();
    EXPECT_TRUE(platform.workspacePort.launched.empty()) << "it is not installed";
    platform.workspacePort.applications.insert(music);
    manager.openSourceApp();
    EXPECT_EQ(platform.workspacePort.launched, std::vector<std::string>{music});
}

TEST_F(ScriptFallbackTest, AfterASourceQuitAnotherPlayerIsReadAtTheNextEmptyAnswer) {
    runPlayer(spotify, spotifyLine);
    runPlayer(music, musicLine);
    start();
    ASSERT_EQ(media().title, "Song");
    platform.runningApplicationsPort.running.erase(spotify);
    read();
    EXPECT_EQ(media(), MediaInfo()) << "what played is gone for certain";
    read();
    EXPECT_EQ(media().title, "Tune");
}

TEST_F(ScriptFallbackTest, ARecordOfAPlayerGivesTheFallbackAllItsAttemptsAgain) {
    runPlayer(spotify, spotifyLine);
    start();
    read();
    EXPECT_EQ(logCount("MediaRemote returned empty 1 times, trying AppleScript fallback"), 2);
    EXPECT_EQ(logCount("MediaRemote returned empty 2 times, trying AppleScript fallback"), 0);
}

TEST_F(ScriptFallbackTest, AfterAStopTheSameTracksCoverIsAskedForAgain) {
    start();
    postSpotify(spotifyState("Playing"));
    ASSERT_EQ(executions(MediaScripts::spotifyArtwork), 1);
    postSpotify(spotifyState("Stopped"));
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u) << "no position is reckoned any more";
    postSpotify(spotifyState("Playing"));
    EXPECT_EQ(executions(MediaScripts::spotifyArtwork), 2);
}

TEST_F(ScriptFallbackTest, TheServicesPlayStateDoesNotActOnAnEmptyDisplay) {
    SimulatedPlatform machine;
    machine.nowPlayingPort.onLoad = [](auto& functions) { functions.getNowPlayingInfo = nullptr; };
    MediaManager bare(machine);
    bare.start();
    for (const char* state : {"Playing", "Stopped"}) {
        machine.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                                  spotifyState(state));
        machine.runLoopPort.runPosted();
    }
    machine.nowPlayingPort.isPlaying = true;
    machine.nowPlayingPort.notify(NowPlayingNotification::isPlayingDidChange);
    machine.runLoopPort.runPosted();
    EXPECT_EQ(bare.currentMedia.get(), MediaInfo());
}

TEST_F(ScriptFallbackTest, MusicIsNotAskedForTheMarkOfAnotherPlayersTrack) {
    platform.runningApplicationsPort.running.insert(music);
    scripts().outcomes[MediaScripts::musicLoved] = ScriptResult{std::nullopt, true, {}};
    start();
    postSpotify(spotifyState("Playing"));
    EXPECT_FALSE(manager.isLoved);
    EXPECT_EQ(executions(MediaScripts::musicLoved), 0);
}

TEST_F(ScriptArtworkTest, AnErrorOfMusicsCoverScriptIsLogged) {
    runPlayer(music, musicLine);
    scripts().outcomes[MediaScripts::musicArtwork] = ScriptError{};
    start();
    EXPECT_EQ(logCount("Apple Music artwork error: unknown"), 1);
    EXPECT_FALSE(media().artwork);
}

} // namespace
} // namespace orvelle
