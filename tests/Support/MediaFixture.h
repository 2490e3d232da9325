#pragma once

#include "Features/Media/MediaManager.h"
#include "Features/Media/MediaScripts.h"
#include "Foundation/Format.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

namespace orvelle {

/// A manager over a service, players and a clock that do as they are told.
class MediaFixture : public testing::Test {
protected:
    static constexpr const char* spotify = "com.spotify.client";
    static constexpr const char* music = "com.apple.Music";

    /// A track of 200 seconds, 10 of them gone.
    static NowPlayingInfo track(const std::string& title, const std::string& artist = "Artist") {
        return {{std::string(NowPlayingKey::title), title},
                {std::string(NowPlayingKey::artist), artist},
                {std::string(NowPlayingKey::album), std::string("Album")},
                {std::string(NowPlayingKey::duration), 200.0},
                {std::string(NowPlayingKey::elapsedTime), 10.0},
                {std::string(NowPlayingKey::playbackRate), 1.0},
                {std::string(NowPlayingKey::bundleIdentifier), std::string("org.example.Player")},
                {std::string(NowPlayingKey::displayName), std::string("Player")}};
    }
    static ScriptResult line(const std::string& text) { return {text, false, {}}; }
    static ScriptResult bytes(const std::string& text) {
        return {std::nullopt, false, SharedBytes(text)};
    }
    static Image picture() { return {1, 1, std::vector<std::uint8_t>(4, 255)}; }

    SimulatedNowPlayingService& service() { return platform.nowPlayingPort; }
    SimulatedScriptExecutor& scripts() { return platform.scriptExecutorPort; }
    const MediaInfo& media() { return manager.currentMedia.get(); }

    void set(std::string_view key, NowPlayingValue value) {
        service().info->insert_or_assign(std::string(key), std::move(value));
    }
    void remove(std::string_view key) { service().info->erase(std::string(key)); }
    void advance(Seconds seconds) { platform.runLoopPort.advance(seconds); }
    /// The service tells of a change, and everything that follows at once happens.
    void read() {
        service().notify(NowPlayingNotification::infoDidChange);
        platform.runLoopPort.runPosted();
    }
    void start() {
        manager.start();
        platform.runLoopPort.runPosted();
    }
    /// A player that runs and answers its read script with this line.
    void runPlayer(const char* bundleID, const std::string& answer) {
        platform.runningApplicationsPort.running.insert(bundleID);
        scripts().outcomes[readScript(bundleID)] = line(answer);
    }
    static const std::string& readScript(const std::string& bundleID) {
        return bundleID == spotify ? MediaScripts::spotifyRead : MediaScripts::musicRead;
    }
    void postSpotify(const std::optional<NotificationUserInfo>& userInfo) {
        platform.distributedNotificationsPort.post("com.spotify.client.PlaybackStateChanged",
                                                   userInfo);
        platform.runLoopPort.runPosted();
    }
    static NotificationUserInfo spotifyState(const std::string& state,
                                             const std::string& title = "Song") {
        return {{"Player State", state},
                {"Name", title},
                {"Artist", std::string("Singer")},
                {"Album", std::string("Record")},
                {"Duration", std::int64_t{180'000}},
                {"Playback Position", 20.0}};
    }
    auto executions(const std::string& script) {
        const auto& executed = scripts().executed;
        return std::count(executed.begin(), executed.end(), script);
    }
    auto logCount(const std::string& message) {
        const auto& lines = platform.logPort.lines;
        return std::count_if(lines.begin(), lines.end(),
                             [&](const auto& each) { return each.message == message; });
    }

    SimulatedPlatform platform;
    MediaManager manager{platform};
};

} // namespace orvelle
