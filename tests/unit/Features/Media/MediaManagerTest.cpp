#include "Support/MediaFixture.h"

#include <cmath>
#include <limits>

namespace orvelle {
namespace {

using MediaManagerTest = MediaFixture;

constexpr const char* exhaustedLine =
    "AppleScript fallback exhausted after 6 attempts — check Automation permissions in System "
    "Settings > Privacy & Security";

std::string emptyMessage(int count) {
    return format("MediaRemote returned empty %d times, trying AppleScript fallback", count);
}

/// A manager whose service lacks one entry point.
struct IncompleteService {
    explicit IncompleteService(std::function<void(NowPlayingFunctions&)> takeAway) {
        platform.nowPlayingPort.onLoad = std::move(takeAway);
        manager = std::make_unique<MediaManager>(platform);
    }
    SimulatedPlatform platform;
    std::unique_ptr<MediaManager> manager;
};

TEST_F(MediaManagerTest, AnEmptyTitleWithDurationAndIdentifierCountsAsEmptyAndChangesNothing) {
    service().info = track("Before");
    start();
    const auto before = media();
    service().info = NowPlayingInfo{
        {std::string(NowPlayingKey::duration), 99.0},
        {std::string(NowPlayingKey::bundleIdentifier), std::string("org.example.Other")}};
    read();
    EXPECT_EQ(media(), before);
    EXPECT_EQ(logCount(emptyMessage(1)), 1);
    service().info = std::nullopt;
    read();
    EXPECT_EQ(media(), before);
    EXPECT_EQ(logCount(emptyMessage(2)), 1) << "no dictionary is an empty one";
}

TEST_F(MediaManagerTest, SevenEmptyReadsRunTheFallbackSixTimesAndTheEighthDoesNothing) {
    runPlayer(spotify, "STOPPED");
    start();
    for (int count = 2; count <= 6; ++count)
        read();
    EXPECT_EQ(executions(MediaScripts::spotifyRead), 6);
    EXPECT_EQ(logCount(emptyMessage(6)), 1);
    EXPECT_EQ(logCount(exhaustedLine), 0);
    read();
    EXPECT_EQ(logCount(exhaustedLine), 1);
    read();
    EXPECT_EQ(executions(MediaScripts::spotifyRead), 6);
    EXPECT_EQ(logCount(exhaustedLine), 1);
    EXPECT_EQ(logCount(emptyMessage(7)), 0);
}

TEST_F(MediaManagerTest, WithoutGetNowPlayingInfoEmptyAnswersAreNeverCounted) {
    IncompleteService machine([](auto& functions) { functions.getNowPlayingInfo = nullptr; });
    machine.platform.runningApplicationsPort.running = {spotify};
    machine.manager->start();
    machine.platform.runLoopPort.advance(3600);
    EXPECT_TRUE(machine.platform.scriptExecutorPort.executed.empty());
    EXPECT_FALSE(machine.platform.logPort.contains(emptyMessage(1)));
    EXPECT_TRUE(machine.platform.logPort.contains(
        "getNowPlayingInfo not available, media info may be limited"));
    EXPECT_TRUE(
        machine.platform.logPort.contains("getNowPlayingInfo not loaded, skipping info fetch"));
    EXPECT_EQ(machine.platform.nowPlayingPort.isPlayingRequests, 1201);
}

TEST_F(MediaManagerTest, AMissingRateMeansNotPlayingAndGetIsPlayingSetsItRight) {
    service().info = track("Song");
    remove(NowPlayingKey::playbackRate);
    start();
    EXPECT_FALSE(media().isPlaying);
    EXPECT_EQ(media().elapsed, 10);
    service().isPlaying = true;
    read();
    EXPECT_TRUE(media().isPlaying);
    advance(1);
    EXPECT_DOUBLE_EQ(media().elapsed, 11);
}

TEST_F(MediaManagerTest, GetIsPlayingIsNotHeardWhileAnswersAreEmpty) {
    service().isPlaying = true;
    start();
    EXPECT_FALSE(media().isPlaying) << "the count is 1";
}

TEST_F(MediaManagerTest, GetIsPlayingIsNotHeardWhileTheFallbackRuns) {
    IncompleteService machine([](auto& functions) { functions.getNowPlayingInfo = nullptr; });
    machine.manager->start();
    machine.platform.runLoopPort.runPosted();
    machine.platform.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                                       spotifyState("Paused"));
    machine.platform.runLoopPort.runPosted();
    ASSERT_EQ(machine.manager->currentMedia->title, "Song");
    machine.platform.nowPlayingPort.isPlaying = true;
    machine.platform.nowPlayingPort.notify(NowPlayingNotification::isPlayingDidChange);
    machine.platform.runLoopPort.runPosted();
    EXPECT_FALSE(machine.manager->currentMedia->isPlaying);
}

TEST_F(MediaManagerTest, ElapsedStopsAtTheDuration) {
    service().info = track("Song");
    service().isPlaying = true;
    set(NowPlayingKey::elapsedTime, 198.5);
    start();
    advance(1);
    EXPECT_DOUBLE_EQ(media().elapsed, 199.5);
    advance(1.5);
    EXPECT_EQ(media().elapsed, 200);
}

TEST_F(MediaManagerTest, AClockThatIsSetBackLeavesThePositionAtTheBeginning) {
    service().info = track("Song");
    service().isPlaying = true;
    start();
    platform.runLoopPort.setNow(platform.runLoopPort.now() + -3600);
    advance(0.5);
    EXPECT_EQ(media().formattedElapsed(), "0:00");
}

TEST_F(MediaManagerTest, WithoutADurationElapsedStaysAtTheLastReadValue) {
    service().info = track("Stream");
    service().isPlaying = true;
    set(NowPlayingKey::duration, 0.0);
    start();
    advance(2.5);
    EXPECT_EQ(media().elapsed, 10);
}

TEST_F(MediaManagerTest, AfterPauseAndResumeThePositionGoesOnFromThePausedOne) {
    service().info = track("Song");
    service().isPlaying = true;
    start();
    advance(1);
    manager.playPause();
    EXPECT_FALSE(media().isPlaying);
    EXPECT_DOUBLE_EQ(media().elapsed, 11);
    advance(1); // no read falls into this second
    manager.playPause();
    advance(0.5);
    EXPECT_DOUBLE_EQ(media().elapsed, 11.5);
    EXPECT_EQ(service().commands, (std::vector<std::uint32_t>{2, 2}));
}

TEST_F(MediaManagerTest, AGoodReadAfterTheFallbackSendsCommandsByTheServicesApplication) {
    start();
    postSpotify(spotifyState("Playing"));
    manager.nextTrack();
    platform.runLoopPort.runPosted();
    EXPECT_EQ(scripts().executed.back(), "tell application \"Spotify\" to next track");
    service().info = track("Song");
    read();
    EXPECT_EQ(media().appBundleIdentifier, "org.example.Player");
    manager.nextTrack();
    manager.previousTrack();
    EXPECT_EQ(service().commands, (std::vector<std::uint32_t>{4, 5}));
}

TEST_F(MediaManagerTest, AGoodReadAfterTheFallbackClearsTheArtworkKey) {
    start();
    postSpotify(spotifyState("Playing"));
    EXPECT_EQ(executions(MediaScripts::spotifyArtwork), 1);
    service().info = track("Other");
    read();
    postSpotify(spotifyState("Playing"));
    EXPECT_EQ(executions(MediaScripts::spotifyArtwork), 2);
}

TEST_F(MediaManagerTest, SpotifyAndMusicGetScriptsInServiceModeAndOthersTheServicesCommands) {
    service().info = track("Song");
    set(NowPlayingKey::bundleIdentifier, std::string(spotify));
    start();
    manager.playPause();
    set(NowPlayingKey::bundleIdentifier, std::string(music));
    read();
    manager.previousTrack();
    platform.runLoopPort.runPosted();
    EXPECT_EQ(executions("tell application \"Spotify\" to playpause"), 1);
    EXPECT_EQ(executions("tell application \"Music\" to previous track"), 1);
    EXPECT_TRUE(service().commands.empty());
    set(NowPlayingKey::bundleIdentifier, std::string("org.example.Player"));
    read();
    manager.playPause();
    EXPECT_EQ(service().commands, std::vector<std::uint32_t>{2});
}

TEST_F(MediaManagerTest, TheSameTitleAndArtistDoNotFetchTheLoveStatusAgain) {
    service().info = track("Song");
    set(NowPlayingKey::bundleIdentifier, std::string(music));
    start();
    read();
    EXPECT_EQ(executions(MediaScripts::musicLoved), 1);
    set(NowPlayingKey::artist, std::string("Somebody Else"));
    read();
    EXPECT_EQ(executions(MediaScripts::musicLoved), 2);
}

// Reading.

TEST_F(MediaManagerTest, AGoodAnswerIsShownInOneStep) {
    std::vector<MediaInfo> seen;
    const auto subscription =
        manager.currentMedia.observe([&](const MediaInfo& info) { seen.push_back(info); });
    service().info = track("Song");
    service().isPlaying = true;
    start();
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[1].title, "Song");
    EXPECT_EQ(seen[1].album, "Album");
    EXPECT_EQ(seen[1].appName, "Player");
    EXPECT_TRUE(seen[1].isPlaying);
}

TEST_F(MediaManagerTest, ValuesOfAnotherTypeCountAsMissing) {
    service().info = track("Song");
    set(NowPlayingKey::artist, std::int64_t{7});
    set(NowPlayingKey::duration, std::string("200"));
    set(NowPlayingKey::playbackRate, std::string("1"));
    set(NowPlayingKey::bundleIdentifier, 1.5);
    set(NowPlayingKey::artworkData, std::string("not data"));
    start();
    EXPECT_EQ(media().artist, "");
    EXPECT_EQ(media().duration, 0);
    EXPECT_FALSE(media().isPlaying);
    EXPECT_EQ(media().appBundleIdentifier, std::nullopt);
    EXPECT_EQ(platform.imageCodecPort.decodeCount, 0);
    set(NowPlayingKey::title, true);
    read();
    EXPECT_EQ(media().title, "Song") << "a title of another type is an empty answer";
    EXPECT_EQ(logCount(emptyMessage(1)), 1);
}

TEST_F(MediaManagerTest, WholeNumbersAreNumbers) {
    service().info = track("Song");
    set(NowPlayingKey::duration, std::int64_t{300});
    set(NowPlayingKey::playbackRate, std::int64_t{1});
    start();
    EXPECT_EQ(media().duration, 300);
    EXPECT_EQ(service().isPlayingRequests, 1);
}

class UnreckonableTime : public MediaFixture, public testing::WithParamInterface<double> {};

TEST_P(UnreckonableTime, BecomesNeutral) {
    service().info = track("Song");
    service().isPlaying = true;
    set(NowPlayingKey::duration, GetParam());
    set(NowPlayingKey::elapsedTime, GetParam());
    start();
    advance(1);
    EXPECT_EQ(media().duration, 0);
    EXPECT_EQ(media().elapsed, 0);
    EXPECT_EQ(media().formattedElapsed(), "0:00");
}

INSTANTIATE_TEST_SUITE_P(MediaManager, UnreckonableTime,
                         testing::Values(-1.0, -0.0, 1e300, std::nan(""),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity()));

TEST_F(MediaManagerTest, ALateAnswerFindsNobody) {
    auto mortal = std::make_unique<MediaManager>(platform);
    service().holdsAnswers = true;
    service().info = track("Song");
    mortal->start();
    mortal->nextTrack();
    mortal.reset();
    service().deliverAnswers();
    advance(10);
    EXPECT_EQ(media().title, "") << "the other manager was never started";
}

TEST_F(MediaManagerTest, AServiceThatNeverAnswersLeavesEverythingAsItIs) {
    service().holdsAnswers = true;
    start();
    advance(60);
    EXPECT_TRUE(scripts().executed.empty());
    EXPECT_EQ(logCount(emptyMessage(1)), 0);
}

// Artwork of the service.

TEST_F(MediaManagerTest, TheServicesCoverIsUnpackedOnceAndKeptWhileItStaysTheSame) {
    platform.imageCodecPort.images["cover"] = picture();
    service().info = track("Song");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    start();
    ASSERT_TRUE(media().artwork);
    service().notify(NowPlayingNotification::infoDidChange);
    bool wasMissing = false;
    const auto subscription = manager.currentMedia.observe(
        [&](const MediaInfo& info) { wasMissing |= !info.artwork.has_value(); });
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(wasMissing);
    EXPECT_EQ(platform.imageCodecPort.decodeCount, 1);
}

TEST_F(MediaManagerTest, AReadWithoutArtworkBlanksTheCover) {
    platform.imageCodecPort.images["cover"] = picture();
    service().info = track("Song");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    start();
    remove(NowPlayingKey::artworkData);
    read();
    EXPECT_FALSE(media().artwork);
}

TEST_F(MediaManagerTest, ACoverThatIsNoImageIsTriedOnce) {
    service().info = track("Song");
    set(NowPlayingKey::artworkData, SharedBytes("not an image"));
    start();
    read();
    EXPECT_FALSE(media().artwork);
    EXPECT_EQ(platform.imageCodecPort.decodeCount, 1);
}

TEST_F(MediaManagerTest, TheCoverOfThePreviousTrackIsNotShown) {
    platform.imageCodecPort.images["cover"] = picture();
    service().info = track("First");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    manager.start();
    service().info = track("Second");
    service().notify(NowPlayingNotification::infoDidChange);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(media().title, "Second");
    EXPECT_FALSE(media().artwork);
}

TEST_F(MediaManagerTest, TwoTracksOfOneAlbumBothHaveTheirCoverEvenWhileItIsBeingUnpacked) {
    platform.imageCodecPort.images["cover"] = picture();
    service().info = track("First");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    manager.start();
    service().info = track("Second");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    service().notify(NowPlayingNotification::infoDidChange);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(media().title, "Second");
    EXPECT_TRUE(media().artwork);
    EXPECT_EQ(platform.imageCodecPort.decodeCount, 1);
    service().info = track("Third");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    read();
    EXPECT_TRUE(media().artwork);
    EXPECT_EQ(platform.imageCodecPort.decodeCount, 1);
}

// Commands and timers.

TEST_F(MediaManagerTest, ATrackCommandReadsAgainAfterThreeTenthsOfASecond) {
    start();
    const int before = service().infoRequests;
    manager.nextTrack();
    advance(0.29);
    EXPECT_EQ(service().infoRequests, before);
    advance(0.02);
    EXPECT_EQ(service().infoRequests, before + 1);
}

TEST_F(MediaManagerTest, TheServiceIsAskedEveryThreeSeconds) {
    start();
    advance(30);
    EXPECT_EQ(service().infoRequests, 11);
    EXPECT_EQ(service().isPlayingRequests, 11);
}

TEST_F(MediaManagerTest, EachNotificationOfTheServiceReads) {
    start();
    for (const auto name :
         {NowPlayingNotification::infoDidChange, NowPlayingNotification::applicationDidChange,
          NowPlayingNotification::isPlayingDidChange})
        service().notify(name);
    EXPECT_EQ(service().infoRequests, 4);
}

TEST_F(MediaManagerTest, ThePositionIsReckonedOnlyWhilePlaying) {
    service().info = track("Song");
    service().isPlaying = true;
    start();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 2u);
    set(NowPlayingKey::playbackRate, 0.0);
    service().isPlaying = false;
    read();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
}

TEST_F(MediaManagerTest, StopEndsTimersAndObserversAndKeepsTheTrack) {
    service().info = track("Song");
    service().isPlaying = true;
    start();
    manager.stop();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    EXPECT_EQ(service().registrations, (std::vector<bool>{true, false}));
    const int before = service().infoRequests;
    read();
    postSpotify(spotifyState("Stopped"));
    EXPECT_EQ(service().infoRequests, before);
    EXPECT_EQ(media().title, "Song");
}

TEST_F(MediaManagerTest, ASecondStartReplacesTheTimerAndAddsTheObserversAgain) {
    start();
    start();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    const int before = service().infoRequests;
    service().notify(NowPlayingNotification::infoDidChange);
    EXPECT_EQ(service().infoRequests, before + 2);
}

TEST_F(MediaManagerTest, TheSwitchStartsAndStops) {
    manager.isEnabled = false;
    EXPECT_EQ(service().registrations, std::vector<bool>{false});
    manager.start();
    EXPECT_EQ(service().infoRequests, 0);
    manager.isEnabled = true;
    EXPECT_EQ(service().infoRequests, 1);
    EXPECT_EQ(logCount("MediaManager started"), 1);
}

TEST_F(MediaManagerTest, TearingDownDoesNotUnregister) {
    auto mortal = std::make_unique<MediaManager>(platform);
    mortal->start();
    mortal.reset();
    EXPECT_EQ(service().registrations, std::vector<bool>{true});
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

// Loading.

TEST_F(MediaManagerTest, TheServiceIsOpenedByItsPath) {
    EXPECT_EQ(service().loadedPath, "/System/Library/PrivateFrameworks/MediaRemote.framework");
    EXPECT_TRUE(platform.logPort.contains("MediaRemote.framework loaded successfully"));
}

TEST_F(MediaManagerTest, WithoutAServiceTheManagerRunsOn) {
    for (const auto failure :
         {NowPlayingService::LoadFailure::badAddress, NowPlayingService::LoadFailure::notLoaded}) {
        SimulatedPlatform machine;
        machine.nowPlayingPort.loadFailure = failure;
        MediaManager bare(machine);
        bare.start();
        bare.playPause();
        bare.nextTrack();
        machine.runLoopPort.advance(10);
        bare.stop();
        EXPECT_TRUE(machine.logPort.contains(failure == NowPlayingService::LoadFailure::badAddress
                                                 ? "Failed to create URL for MediaRemote.framework"
                                                 : "Failed to load MediaRemote.framework bundle"));
    }
}

TEST_F(MediaManagerTest, AMissingEntryPointIsLoggedAndTheOthersServe) {
    IncompleteService machine([](auto& functions) {
        functions.sendCommand = nullptr;
        functions.registerForNotifications = nullptr;
    });
    machine.platform.nowPlayingPort.info = track("Song");
    machine.manager->start();
    machine.manager->playPause();
    machine.platform.runLoopPort.runPosted();
    EXPECT_EQ(machine.manager->currentMedia->title, "Song");
    EXPECT_TRUE(machine.platform.logPort.contains("Failed to load function: "
                                                  "MRMediaRemoteSendCommand"));
    EXPECT_TRUE(machine.platform.logPort.contains(
        "Failed to load function: MRMediaRemoteRegisterForNowPlayingNotifications"));
}

TEST(MediaInfoTest, TimesAreCutToWholeSeconds) {
    MediaInfo info;
    info.elapsed = 125.9;
    info.duration = 3600;
    EXPECT_EQ(info.formattedElapsed(), "2:05");
    EXPECT_EQ(info.formattedDuration(), "60:00");
}

TEST_F(MediaManagerTest, AGoodReadGivesTheFallbackAllItsAttemptsAgain) {
    start();
    service().info = track("Song");
    read();
    service().info = std::nullopt;
    read();
    EXPECT_EQ(logCount(emptyMessage(1)), 2);
    EXPECT_EQ(logCount(emptyMessage(2)), 0);
}

TEST_F(MediaManagerTest, AGoodReadAfterTheFallbackHearsGetIsPlayingAgain) {
    start();
    postSpotify(spotifyState("Paused"));
    service().info = track("Other");
    remove(NowPlayingKey::playbackRate);
    service().isPlaying = true;
    read();
    EXPECT_EQ(media().title, "Other");
    EXPECT_TRUE(media().isPlaying);
}

TEST_F(MediaManagerTest, ACoverThatIsTakenAwayWhileItIsUnpackedIsNotShown) {
    platform.imageCodecPort.images["cover"] = picture();
    service().info = track("Song");
    set(NowPlayingKey::artworkData, SharedBytes("cover"));
    manager.start();
    remove(NowPlayingKey::artworkData);
    service().notify(NowPlayingNotification::infoDidChange);
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(media().artwork);
}

TEST_F(MediaManagerTest, OfTwoCoversThatAreUnpackedAtOnceEachGoesToItsOwnTrack) {
    const Image first(1, 1, {1, 1, 1, 255}), second(1, 1, {2, 2, 2, 255});
    platform.imageCodecPort.images = {{"first", first}, {"second", second}};
    std::vector<std::pair<std::string, std::optional<Image>>> shown;
    const auto subscription = manager.currentMedia.observe([&](const MediaInfo& info) {
        if (info.artwork)
            shown.emplace_back(info.title, info.artwork);
    });
    service().info = track("First");
    set(NowPlayingKey::artworkData, SharedBytes("first"));
    manager.start();
    service().info = track("Second");
    set(NowPlayingKey::artworkData, SharedBytes("second"));
    service().notify(NowPlayingNotification::infoDidChange);
    platform.runLoopPort.runPosted();
    ASSERT_FALSE(shown.empty());
    for (const auto& [title, image] : shown)
        EXPECT_EQ(image, title == "First" ? first : second) << title;
    EXPECT_EQ(shown.back().first, "Second");
}

TEST_F(MediaManagerTest, ATrackOfASecondIsReckonedLikeAnyOther) {
    service().info = track("Jingle");
    service().isPlaying = true;
    set(NowPlayingKey::duration, 1.0);
    set(NowPlayingKey::elapsedTime, 0.0);
    start();
    advance(0.5);
    EXPECT_DOUBLE_EQ(media().elapsed, 0.5);
}

TEST_F(MediaManagerTest, APauseEndsTheReckoningAtOnceAndAResumeBeginsItAgain) {
    service().info = track("Song");
    service().isPlaying = true;
    start();
    ASSERT_EQ(platform.runLoopPort.timerCount(), 2u);
    manager.playPause();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    manager.playPause();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 2u);
}

TEST_F(MediaManagerTest, EachMissingEntryPointIsNamed) {
    const std::pair<const char*, std::function<void(NowPlayingFunctions&)>> rows[] = {
        {"MRMediaRemoteGetNowPlayingInfo", [](auto& all) { all.getNowPlayingInfo = nullptr; }},
        {"MRMediaRemoteRegisterForNowPlayingNotifications",
         [](auto& all) { all.registerForNotifications = nullptr; }},
        {"MRMediaRemoteUnregisterForNowPlayingNotifications",
         [](auto& all) { all.unregisterForNotifications = nullptr; }},
        {"MRMediaRemoteSendCommand", [](auto& all) { all.sendCommand = nullptr; }},
        {"MRMediaRemoteGetNowPlayingApplicationIsPlaying",
         [](auto& all) { all.getIsPlaying = nullptr; }}};
    for (const auto& [missing, takeAway] : rows) {
        const IncompleteService machine(takeAway);
        for (const auto& [name, ignored] : rows)
            EXPECT_EQ(
                machine.platform.logPort.contains(std::string("Failed to load function: ") + name),
                std::string_view(name) == missing)
                << missing;
    }
}

TEST_F(MediaManagerTest, WithoutGetIsPlayingTheRateAloneTells) {
    for (const double rate : {0.0, 1.0, -1.0}) {
        IncompleteService machine([](auto& functions) { functions.getIsPlaying = nullptr; });
        auto info = track("Song");
        info.insert_or_assign(std::string(NowPlayingKey::playbackRate), rate);
        machine.platform.nowPlayingPort.info = info;
        machine.manager->start();
        machine.platform.runLoopPort.runPosted();
        EXPECT_EQ(machine.manager->currentMedia->isPlaying, rate > 0) << rate;
    }
}

} // namespace
} // namespace orvelle
