#include "Platform/Linux/MprisScriptExecutor.h"

#include "Platform/Linux/MprisApplications.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedMedia.h"
#include "adapters/ScriptedPlayer.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvelle {
namespace {

const std::string trackScript = R"(tell application "System Events"
    if not (exists process "Spotify") then return "NOT_RUNNING"
end tell
tell application "Spotify"
    if player state is not stopped then
        try
            set artURL to artwork url of current track
        end try)";

class MprisScriptExecutorTest : public testing::Test {
protected:
    /// Runs the script in the background, as the program does, and waits for its end.
    ScriptOutcome execute(const std::string& source) {
        ScriptOutcome outcome;
        bool done = false;
        const auto running =
            loop.detach([&] { outcome = executor.execute(source); }, [&] { done = true; });
        EXPECT_TRUE(waitUntil([&] { return done; }));
        return outcome;
    }
    std::string text(const std::string& source) {
        const auto outcome = execute(source);
        const auto* result = std::get_if<ScriptResult>(&outcome);
        return result ? result->stringValue.value_or("no text") : "an error";
    }

    PrivateBus bus;
    SimulatedUrlData urls;
    MprisCovers covers{urls};
    MprisScriptExecutor executor{bus.provider(), covers};
    QtRunLoop loop;
};

TEST_F(MprisScriptExecutorTest, TheTrackOfAPlayerThatDoesNotRunIsNotRunning) {
    EXPECT_EQ(text(trackScript), "NOT_RUNNING");
}

TEST_F(MprisScriptExecutorTest, TheTrackIsReadInTheScriptsOwnForm) {
    ScriptedPlayer spotify(bus, "spotify");
    EXPECT_EQ(text(trackScript), "STOPPED");
    spotify.tell({{QStringLiteral("Position"), qlonglong{61'500'000}}});
    spotify.play("A Title", "https://example/cover.jpg");
    EXPECT_EQ(text(trackScript), "A Title||First, Second||An Album||125.900||61.500||true||"
                                 "https://example/cover.jpg");
    spotify.setStatus("Paused");
    EXPECT_TRUE(text(trackScript).ends_with("||false||https://example/cover.jpg"));
}

TEST_F(MprisScriptExecutorTest, CoversAreGivenAsAnAddressAndAsBytes) {
    urls.contents["file:///cover"] = SharedBytes("picture");
    ScriptedPlayer spotify(bus, "spotify");
    ScriptedPlayer music(bus, "music");
    spotify.play("One", "file:///cover");
    music.play("Two", "file:///cover");
    EXPECT_EQ(text("tell application \"Spotify\"\n return artwork url of current track\n"),
              "file:///cover");
    const auto outcome =
        execute("tell application \"Music\"\n return raw data of artwork 1 of current track\n");
    EXPECT_EQ(std::get<ScriptResult>(outcome).data.view(), "picture");
}

TEST_F(MprisScriptExecutorTest, CommandsAreObeyed) {
    ScriptedPlayer spotify(bus, "spotify");
    for (const char* words : {"playpause", "next track", "previous track"})
        EXPECT_TRUE(std::holds_alternative<ScriptResult>(
            execute(std::string("tell application \"Spotify\" to ") + words)));
    for (const char* method : {"PlayPause", "Next", "Previous"})
        EXPECT_EQ(spotify.callCount(method), 1) << method;
}

TEST_F(MprisScriptExecutorTest, WhatCannotBeAnsweredIsAnErrorOrNoScript) {
    const auto outcome = execute("tell application \"Spotify\" to playpause");
    ASSERT_TRUE(std::holds_alternative<ScriptError>(outcome)) << "it does not run";
    EXPECT_FALSE(std::get<ScriptError>(outcome).message.value_or("").empty());
    EXPECT_TRUE(std::holds_alternative<ScriptError>(
        execute("tell application \"Music\"\n    return loved of current track\nend tell")));
    EXPECT_TRUE(
        std::holds_alternative<ScriptNotMade>(execute("tell application \"vlc\" to playpause")));
    EXPECT_TRUE(std::holds_alternative<ScriptNotMade>(
        execute("tell application \"Spotify\"\n quit\nend tell")));
}

TEST_F(MprisScriptExecutorTest, APlayerThatHangsIsAnErrorAndTheEndOfTheProgramDoesNotWait) {
    ScriptedPlayer spotify(bus, "spotify");
    spotify.hang();
    ScriptOutcome outcome;
    bool begun = false;
    bool done = false;
    const auto running =
        loop.detach([&] { outcome = executor.execute(trackScript); }, [&] { done = true; });
    loop.post([&] { begun = true; });
    ASSERT_TRUE(waitUntil([&] { return begun; }));
    QElapsedTimer elapsed;
    elapsed.start();
    executor.end();
    EXPECT_TRUE(waitUntil([&] { return done; }));
    EXPECT_LT(elapsed.elapsed(), 3000);
    EXPECT_TRUE(std::holds_alternative<ScriptError>(outcome));
}

class MprisNotificationCenterTest : public testing::Test {
protected:
    MprisNotificationCenterTest() {
        listening = center.observe("com.spotify.client.PlaybackStateChanged",
                                   [this](const auto& info) { heard.push_back(info.value()); });
    }
    bool waitForState(const std::string& state) {
        return waitUntil([&] { return !heard.empty() && text("Player State") == state; });
    }
    std::string text(const char* key) const {
        return std::get<std::string>(heard.back().find(key)->second);
    }

    PrivateBus bus;
    QtRunLoop loop;
    MprisPlayers players{loop, bus.provider()};
    MprisRunningApplications applications;
    MprisNotificationCenter center{loop, players, applications};
    std::vector<NotificationUserInfo> heard;
    Subscription listening;
};

TEST_F(MprisNotificationCenterTest, AKnownPlayersStateIsSpreadInItsOwnWords) {
    {
        ScriptedPlayer spotify(bus, "spotify");
        spotify.tell({{QStringLiteral("Position"), qlonglong{61'000'000}}});
        spotify.play("A Title");
        ASSERT_TRUE(waitForState("Playing"));
        EXPECT_EQ(text("Name"), "A Title");
        EXPECT_EQ(text("Artist"), "First, Second");
        EXPECT_EQ(text("Album"), "An Album");
        EXPECT_EQ(std::get<std::int64_t>(heard.back().find("Duration")->second), 125'900);
        EXPECT_TRUE(heard.back().contains("Playback Position"));
        spotify.setStatus("Paused");
        EXPECT_TRUE(waitForState("Paused"));
    }
    EXPECT_TRUE(waitForState("Stopped")) << "it has quit";
}

TEST_F(MprisNotificationCenterTest, OtherPlayersAreNotSpokenOf) {
    ScriptedPlayer other(bus, "other");
    other.play("A Title");
    EXPECT_TRUE(waitUntil([&] { return applications.isRunning("other"); }));
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(center.observe("another message", [](const auto&) {}));
}

TEST_F(MprisNotificationCenterTest, ThePlayersThatRunAreKnown) {
    EXPECT_FALSE(applications.isRunning("com.spotify.client"));
    {
        ScriptedPlayer spotify(bus, "spotify");
        EXPECT_TRUE(waitUntil([&] { return applications.isRunning("com.spotify.client"); }));
    }
    EXPECT_TRUE(waitUntil([&] { return !applications.isRunning("com.spotify.client"); }));
}

} // namespace
} // namespace orvelle
