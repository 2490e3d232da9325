#include "Platform/Linux/MprisNowPlayingService.h"

#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedMedia.h"
#include "adapters/ReluctantPlayer.h"
#include "adapters/ScriptedPlayer.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace orvelle {
namespace {

namespace Key = NowPlayingKey;
namespace Notification = NowPlayingNotification;

class MprisNowPlayingServiceTest : public testing::Test {
protected:
    MprisNowPlayingServiceTest() {
        for (const auto name : {Notification::infoDidChange, Notification::applicationDidChange,
                                Notification::isPlayingDidChange})
            observers.push_back(service.observe(name, [this, name] { heard.emplace_back(name); }));
        functions = std::get<NowPlayingFunctions>(service.load({}));
        functions.registerForNotifications();
    }

    /// Asks and waits for the answer.
    NowPlayingInfo read() {
        std::optional<NowPlayingInfo> answer;
        functions.getNowPlayingInfo([&](const auto& info) { answer = info; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(NowPlayingInfo());
    }
    template <class Value>
    Value value(std::string_view key) {
        const auto info = read();
        const auto found = info.find(key);
        if (found == info.end())
            return Value();
        return std::get<Value>(found->second);
    }
    std::string title() { return value<std::string>(Key::title); }
    bool waitForTitle(const std::string& expected) {
        return waitUntil([&] { return title() == expected; });
    }
    bool isPlaying() {
        bool playing = false;
        functions.getIsPlaying([&](bool answer) { playing = answer; });
        return playing;
    }
    std::string cover() { return std::string(value<SharedBytes>(Key::artworkData).view()); }

    PrivateBus bus;
    QtRunLoop loop;
    SimulatedUrlData urls;
    MprisCovers covers{urls};
    MprisPlayers players{loop, bus.provider()};
    MprisNowPlayingService service{loop, players, covers};
    NowPlayingFunctions functions;
    std::vector<std::string> heard;
    std::vector<Subscription> observers;
};

TEST_F(MprisNowPlayingServiceTest, WithoutAPlayerTheAnswerIsEmptyAndComesAtOnce) {
    bool answered = false;
    functions.getNowPlayingInfo([&](const auto& info) { answered = info && info->empty(); });
    EXPECT_TRUE(answered);
    EXPECT_FALSE(isPlaying());
    functions.sendCommand(NowPlayingService::togglePlayPause);
}

TEST_F(MprisNowPlayingServiceTest, NothingIsAskedOfTheBusBeforeSomebodyRegisters) {
    PrivateBus quietBus;
    MprisPlayers quietPlayers(loop, quietBus.provider());
    MprisNowPlayingService quiet(loop, quietPlayers, covers);
    const auto entries = std::get<NowPlayingFunctions>(quiet.load({}));
    EXPECT_TRUE(waitUntil([&] { return bus.connectionCount() == 1; }));
    EXPECT_EQ(quietBus.connectionCount(), 0);
    entries.registerForNotifications();
    EXPECT_TRUE(waitUntil([&] { return quietBus.connectionCount() == 1; }));
}

TEST_F(MprisNowPlayingServiceTest, WhatPlaysIsToldUnderTheServicesKeys) {
    ScriptedPlayer player(bus, "one");
    player.tellRoot({{QStringLiteral("Identity"), QStringLiteral("Player One")},
                     {QStringLiteral("DesktopEntry"), QStringLiteral("example.one")}});
    player.tell({{QStringLiteral("Position"), qlonglong{30'000'000}}});
    player.play("A Title");
    ASSERT_TRUE(waitForTitle("A Title"));
    const auto info = read();
    const auto text = [&](std::string_view key) {
        return std::get<std::string>(info.find(key)->second);
    };
    EXPECT_EQ(text(Key::artist), "First, Second");
    EXPECT_EQ(text(Key::album), "An Album");
    EXPECT_EQ(text(Key::displayName), "Player One");
    EXPECT_EQ(text(Key::bundleIdentifier), "example.one");
    EXPECT_EQ(std::get<double>(info.find(Key::duration)->second), 125.9);
    EXPECT_EQ(std::get<double>(info.find(Key::playbackRate)->second), 1);
    EXPECT_NEAR(std::get<double>(info.find(Key::elapsedTime)->second), 30, 1);
    EXPECT_FALSE(info.contains(Key::artworkData));
    EXPECT_TRUE(isPlaying());
    player.setStatus("Paused");
    EXPECT_TRUE(waitUntil([&] { return !isPlaying(); }));
    EXPECT_EQ(value<double>(Key::playbackRate), 0);
}

TEST_F(MprisNowPlayingServiceTest, WhatStoppedOrClosedIsTheLastTrackAtRest) {
    urls.contents["file:///one.png"] = SharedBytes("picture one");
    {
        ScriptedPlayer player(bus, "one");
        player.tell({{QStringLiteral("Position"), qlonglong{30'000'000}}});
        player.play("One", "file:///one.png");
        ASSERT_TRUE(waitUntil([&] { return cover() == "picture one"; }));
        player.setStatus("Stopped");
        ASSERT_TRUE(waitUntil([&] { return !isPlaying(); }));
        EXPECT_EQ(title(), "One");
        EXPECT_EQ(value<double>(Key::playbackRate), 0);
        player.play("One", "file:///one.png");
        ASSERT_TRUE(waitUntil([&] { return isPlaying(); }));
        EXPECT_EQ(cover(), "picture one");
        heard.clear();
    }
    EXPECT_TRUE(waitUntil([&] { return !heard.empty(); })) << "its end is told";
    EXPECT_FALSE(isPlaying());
    const auto resting = read();
    EXPECT_EQ(std::get<std::string>(resting.at(std::string(Key::title))), "One");
    EXPECT_EQ(std::get<std::string>(resting.at(std::string(Key::album))), "An Album");
    EXPECT_EQ(std::get<double>(resting.at(std::string(Key::playbackRate))), 0);
    EXPECT_EQ(cover(), "picture one");
    EXPECT_EQ(urls.reads.size(), 1u) << "a cover is fetched once a track";
    const auto elapsed = std::get<double>(resting.at(std::string(Key::elapsedTime)));
    EXPECT_GE(elapsed, 30);
    EXPECT_EQ(value<double>(Key::elapsedTime), elapsed) << "it stands still";
    ScriptedPlayer other(bus, "two");
    other.play("Two");
    EXPECT_TRUE(waitForTitle("Two"));
    EXPECT_EQ(value<double>(Key::playbackRate), 1);
}

TEST_F(MprisNowPlayingServiceTest, WhatClosedWhileNobodyListenedIsAtRestToo) {
    {
        ScriptedPlayer player(bus, "one");
        player.play("One");
        ASSERT_TRUE(waitForTitle("One"));
        functions.unregisterForNotifications();
    }
    functions.registerForNotifications();
    EXPECT_EQ(title(), "One");
    EXPECT_EQ(value<double>(Key::playbackRate), 0);
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatWasThereBeforeIsFound) {
    functions.unregisterForNotifications();
    ScriptedPlayer player(bus, "one");
    player.play("Earlier");
    EXPECT_TRUE(read().empty());
    functions.registerForNotifications();
    functions.registerForNotifications();
    EXPECT_TRUE(waitForTitle("Earlier"));
}

TEST_F(MprisNowPlayingServiceTest, ThePlayingOneComesFirstElseTheLatestToHavePlayed) {
    ScriptedPlayer one(bus, "one");
    ScriptedPlayer two(bus, "two");
    one.play("One");
    ASSERT_TRUE(waitForTitle("One"));
    two.play("Two");
    ASSERT_TRUE(waitForTitle("Two"));
    two.setStatus("Paused");
    EXPECT_TRUE(waitForTitle("One")) << "it still plays";
    one.setStatus("Paused");
    EXPECT_TRUE(waitUntil([&] { return !isPlaying(); }));
    EXPECT_EQ(title(), "One") << "it played last";
    two.setStatus("Playing");
    EXPECT_TRUE(waitForTitle("Two"));
    two.setStatus("Stopped");
    EXPECT_TRUE(waitForTitle("One")) << "a stopped player has nothing to show";
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatCrashesLeavesTheOthers) {
    ScriptedPlayer one(bus, "one");
    one.play("One");
    ASSERT_TRUE(waitForTitle("One"));
    {
        ScriptedPlayer two(bus, "two");
        two.play("Two");
        ASSERT_TRUE(waitForTitle("Two"));
    }
    EXPECT_TRUE(waitForTitle("One"));
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatHangsHoldsNothingUp) {
    ScriptedPlayer player(bus, "one");
    player.play("One");
    ASSERT_TRUE(waitForTitle("One"));
    player.hang();
    QElapsedTimer elapsed;
    elapsed.start();
    bool answered = false;
    functions.getNowPlayingInfo([&](const auto& info) {
        answered = std::get<std::string>(info->find(Key::title)->second) == "One";
    });
    functions.sendCommand(NowPlayingService::nextTrack);
    EXPECT_LT(elapsed.elapsed(), 10);
    EXPECT_TRUE(waitUntil([&] { return answered; })) << "from what it said before";
    player.wakeUp();
    EXPECT_TRUE(waitUntil([&] { return player.callCount("Next") == 1; }));
}

TEST_F(MprisNowPlayingServiceTest, CommandsGoToThePlayerThatIsShown) {
    ScriptedPlayer one(bus, "one");
    ScriptedPlayer two(bus, "two");
    one.play("One");
    ASSERT_TRUE(waitForTitle("One"));
    functions.sendCommand(NowPlayingService::togglePlayPause);
    functions.sendCommand(NowPlayingService::nextTrack);
    functions.sendCommand(NowPlayingService::nextTrack);
    functions.sendCommand(NowPlayingService::previousTrack);
    functions.sendCommand(99);
    EXPECT_TRUE(waitUntil([&] { return one.callCount("Previous") == 1; }));
    EXPECT_EQ(one.callCount("PlayPause"), 1);
    EXPECT_EQ(one.callCount("Next"), 2);
    EXPECT_EQ(two.callCount("PlayPause"), 0);
}

TEST_F(MprisNowPlayingServiceTest, ChangesAreNotifiedByTheirKind) {
    const auto waitFor = [&](std::string_view name) {
        return waitUntil([&] { return !heard.empty() && heard.back() == name; });
    };
    ScriptedPlayer player(bus, "one");
    player.play("One");
    EXPECT_TRUE(waitFor(Notification::applicationDidChange));
    player.setStatus("Paused");
    EXPECT_TRUE(waitFor(Notification::isPlayingDidChange));
    player.tell({{QStringLiteral("Metadata"), ScriptedPlayer::track("Two")}});
    EXPECT_TRUE(waitFor(Notification::infoDidChange));
    heard.clear();
    player.seek(50'000'000);
    EXPECT_TRUE(waitFor(Notification::infoDidChange));
    EXPECT_NEAR(value<double>(Key::elapsedTime), 50, 0.1);
    functions.unregisterForNotifications();
    heard.clear();
    player.play("Three");
    const auto aWhile = std::chrono::milliseconds(300);
    EXPECT_FALSE(waitUntil([&] { return !heard.empty(); }, aWhile));
}

TEST_F(MprisNowPlayingServiceTest, APlayerWithNothingToShowIsNotNotified) {
    ScriptedPlayer player(bus, "one");
    ASSERT_TRUE(waitUntil([&] { return players.current() != nullptr; }));
    player.tellRoot({{QStringLiteral("Identity"), QStringLiteral("Player One")}});
    ASSERT_TRUE(waitUntil([&] { return players.current()->displayName() == "Player One"; }));
    const auto aWhile = std::chrono::milliseconds(300);
    EXPECT_FALSE(waitUntil([&] { return !heard.empty(); }, aWhile));
}

TEST_F(MprisNowPlayingServiceTest, AFloodOfChangesIsGathered) {
    ScriptedPlayer player(bus, "one");
    for (int turn = 0; turn < 50; ++turn)
        player.play(turn == 49 ? "Last" : "Some");
    ASSERT_TRUE(waitForTitle("Last"));
    EXPECT_LT(heard.size(), 40u);
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatSendsNonsenseIsANeutralOne) {
    ScriptedPlayer player(bus, "one");
    player.play("Sense");
    ASSERT_TRUE(waitForTitle("Sense"));
    player.tell({{QStringLiteral("Metadata"), QStringLiteral("no map")}});
    EXPECT_TRUE(waitUntil([&] { return value<double>(Key::playbackRate) == 0; }));
    EXPECT_EQ(title(), "Sense") << "the last track, at rest";
    player.play({{QStringLiteral("xesam:title"), QString(100'000, u'x')},
                 {QStringLiteral("xesam:artist"), 7},
                 {QStringLiteral("mpris:length"), qlonglong{-1}},
                 {QStringLiteral("mpris:artUrl"), 3.0}});
    ASSERT_TRUE(waitForTitle(std::string(MprisPlayer::longestText, 'x')));
    EXPECT_EQ(value<std::string>(Key::artist), "");
    EXPECT_EQ(value<double>(Key::duration), 0);
}

TEST_F(MprisNowPlayingServiceTest, ACoverIsReadOnceAndStaysWithItsTrack) {
    urls.contents["file:///one.png"] = SharedBytes("picture one");
    urls.contents["https://example/two.png"] = SharedBytes("picture two");
    ScriptedPlayer player(bus, "one");
    player.play("One", "file:///one.png");
    EXPECT_TRUE(waitUntil([&] { return cover() == "picture one"; }));
    player.setStatus("Paused");
    EXPECT_TRUE(waitUntil([&] { return !isPlaying(); }));
    EXPECT_EQ(cover(), "picture one");
    EXPECT_EQ(urls.reads.size(), 1u);
    player.play("Two", "https://example/two.png");
    EXPECT_TRUE(waitUntil([&] { return cover() == "picture two"; }));
    player.play("Three", "file:///missing.png");
    EXPECT_TRUE(waitForTitle("Three"));
    EXPECT_EQ(cover(), "");
    player.play("Two", "https://example/two.png");
    EXPECT_TRUE(waitUntil([&] { return cover() == "picture two"; }));
    player.play("Four");
    EXPECT_TRUE(waitForTitle("Four"));
    EXPECT_EQ(cover(), "");
}

TEST_F(MprisNowPlayingServiceTest, ACoverThatIsOverwrittenInPlaceIsReadAgainForTheNextTrack) {
    urls.contents["file:///cover.png"] = SharedBytes("first");
    ScriptedPlayer player(bus, "one");
    player.play("One", "file:///cover.png");
    ASSERT_TRUE(waitUntil([&] { return cover() == "first"; }));
    urls.contents["file:///cover.png"] = SharedBytes("second");
    player.play("Two", "file:///cover.png");
    EXPECT_TRUE(waitUntil([&] { return cover() == "second"; }));
}

/// A web in which some servers never answer.
class PatientUrlData : public SimulatedUrlData {
public:
    std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                    std::stop_token stop) override {
        if (!url.starts_with("https://never"))
            return SimulatedUrlData::read(url, limit, stop);
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait(lock, stop, [] { return false; });
        return std::nullopt;
    }
};

TEST_F(MprisNowPlayingServiceTest, CoversThatNeverComeHoldUpNeitherTheNextNorOtherWork) {
    PatientUrlData web;
    web.contents["file:///one.png"] = SharedBytes("picture one");
    MprisCovers webCovers(web);
    MprisNowPlayingService patient(loop, players, webCovers);
    functions = std::get<NowPlayingFunctions>(patient.load({}));
    functions.registerForNotifications();
    ScriptedPlayer player(bus, "one");
    for (const char* title : {"First", "Second", "Third"}) {
        player.play(title, (std::string("https://never/") + title).c_str());
        ASSERT_TRUE(waitForTitle(title));
    }
    bool hasWorked = false;
    const auto work = loop.detach([] {}, [&] { hasWorked = true; });
    EXPECT_TRUE(waitUntil([&] { return hasWorked; }));
    player.play("One", "file:///one.png");
    EXPECT_TRUE(waitUntil([&] { return cover() == "picture one"; }));
}

TEST_F(MprisNowPlayingServiceTest, APlayerWhoseFirstAnswersAreErrorsIsAskedAgain) {
    ReluctantPlayer player(bus, ReluctantPlayer::Manner::refuses);
    ASSERT_TRUE(waitUntil([&] { return player.questions(Mpris::playerInterface) == 2; }))
        << "once more after a while";
    EXPECT_TRUE(read().empty());
    player.behave(ReluctantPlayer::Manner::answers);
    EXPECT_TRUE(waitForTitle("Reluctant"));
    EXPECT_TRUE(waitUntil([&] {
        return value<std::string>(Key::displayName) == "The Reluctant Player";
    })) << "and its application too";
    EXPECT_EQ(value<std::string>(Key::bundleIdentifier), "org.example.Reluctant");
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatSaidNothingIsAskedAgainWhenItSignals) {
    ReluctantPlayer player(bus, ReluctantPlayer::Manner::isSilent);
    ASSERT_TRUE(waitUntil([&] { return player.questions(Mpris::playerInterface) == 1; }));
    player.behave(ReluctantPlayer::Manner::answers);
    player.signal();
    const auto beforeItsSilenceCounts = std::chrono::milliseconds(MprisPlayers::questionBound / 2);
    EXPECT_TRUE(waitUntil([&] { return title() == "Reluctant"; }, beforeItsSilenceCounts));
    EXPECT_EQ(value<std::string>(Key::displayName), "The Reluctant Player");
}

TEST_F(MprisNowPlayingServiceTest, APlayerThatSaidNothingIsAskedAgainAfterAWhile) {
    ReluctantPlayer player(bus, ReluctantPlayer::Manner::isSilent);
    ASSERT_TRUE(waitUntil([&] { return player.questions(Mpris::playerInterface) == 1; }));
    player.behave(ReluctantPlayer::Manner::answers);
    EXPECT_TRUE(waitForTitle("Reluctant"));
}

TEST_F(MprisNowPlayingServiceTest, ARelayOfOtherPlayersIsLeftOut) {
    ScriptedPlayer relay(bus, "playerctld");
    relay.play("Relayed");
    ScriptedPlayer player(bus, "one");
    player.play("Own");
    EXPECT_TRUE(waitForTitle("Own"));
    EXPECT_EQ(players.all().size(), 1u);
}

} // namespace
} // namespace orvelle
