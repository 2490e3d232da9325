#include "Platform/Linux/MprisCovers.h"

#include "Features/Media/MediaManager.h"
#include "Platform/Linux/MprisApplications.h"
#include "Platform/Linux/MprisNowPlayingService.h"
#include "Platform/Linux/MprisScriptExecutor.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Qt/QtUrlData.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Gate.h"
#include "adapters/ScriptedPlayer.h"
#include "adapters/ScriptedServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stop_token>
#include <thread>

namespace orvelle {
namespace {

MprisPlayer::Track trackAt(const std::string& url, const std::string& title) {
    return {.id = "/" + title, .title = title, .artist = {}, .album = {}, .artUrl = url};
}

/// Counts what the scripts' path reads of the covers.
class CountingUrlData : public UrlData {
public:
    explicit CountingUrlData(UrlData& urls) : urls_(urls) {}
    std::atomic_int finished = 0;

    std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                    std::stop_token stop) override {
        auto bytes = urls_.read(url, limit, std::move(stop));
        ++finished;
        return bytes;
    }

private:
    UrlData& urls_;
};

/// The program on a desktop whose players and web are real peers.
struct Desktop : SimulatedPlatform {
    PrivateBus bus;
    QtUrlData web;
    MprisCovers covers{web};
    CountingUrlData scriptedReads{covers};
    MprisRunningApplications applications;
    MprisScriptExecutor scripts{bus.provider(), covers};
    QtRunLoop loop;
    MprisPlayers players{loop, bus.provider()};
    MprisNowPlayingService service{loop, players, covers};
    MprisNotificationCenter notifications{loop, players, applications};

    ~Desktop() override {
        scripts.end();
        web.end();
    }
    RunLoop& runLoop() override { return loop; }
    UrlData& urlData() override { return scriptedReads; }
    ScriptExecutor& scriptExecutor() override { return scripts; }
    NowPlayingService& nowPlaying() override { return service; }
    RunningApplications& runningApplications() override { return applications; }
    DistributedNotificationCenter& distributedNotifications() override { return notifications; }
};

TEST(MprisCoversTest, ACoverOfAPlayerThatTakesScriptsIsFetchedOnceATrack) {
    Desktop desktop;
    ScriptedServer server;
    const Image first(1, 1, {1, 1, 1, 255});
    const Image second(1, 1, {2, 2, 2, 255});
    desktop.imageCodecPort.images = {{"first", first}, {"second", second}};
    const auto cover = server.url("/cover");
    server.answer = ScriptedServer::replying(200, "first");
    ScriptedPlayer spotify(desktop.bus, "spotify");
    spotify.play("One", cover.c_str());
    MediaManager media(desktop);
    media.start();
    const auto shows = [&](const char* title, const Image& image, int scriptedReads) {
        return waitUntil([&] {
            return media.currentMedia->title == title && media.currentMedia->artwork == image &&
                   desktop.scriptedReads.finished >= scriptedReads;
        });
    };
    EXPECT_TRUE(shows("One", first, 1)) << "opened with the player playing";
    EXPECT_EQ(server.requests.size(), 1);
    server.answer = ScriptedServer::replying(200, "second");
    spotify.play("Two", cover.c_str());
    EXPECT_TRUE(shows("Two", second, 2)) << "players write each cover to the same place";
    EXPECT_EQ(server.requests.size(), 2);
    media.stop();
}

class MprisCoversReadingTest : public testing::Test {
protected:
    /// A web that answers when the test lets it, or when the reading is stopped.
    struct Web : SimulatedUrlData {
        Gate gate;
        std::atomic_int begun = 0;
        std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                        std::stop_token stop) override {
            ++begun;
            gate.pass();
            return SimulatedUrlData::read(url, limit, std::move(stop));
        }
    };

    MprisCoversReadingTest() { web.contents["file:///cover"] = SharedBytes("picture"); }
    ~MprisCoversReadingTest() override { web.gate.open(); }

    Web web;
    MprisCovers covers{web};
    MprisPlayer::Track one = trackAt("file:///cover", "One");
};

TEST_F(MprisCoversReadingTest, WhoeverComesWhileItIsReadWaitsForThatReading) {
    web.gate.close();
    std::optional<SharedBytes> firstBytes;
    std::optional<SharedBytes> secondBytes;
    std::jthread first([&] { firstBytes = covers.read(one, {}); });
    ASSERT_TRUE(web.gate.awaitArrival());
    std::jthread second([&] { secondBytes = covers.read("file:///cover", 100, {}); });
    web.gate.open();
    first.join();
    second.join();
    EXPECT_EQ(firstBytes, SharedBytes("picture"));
    EXPECT_EQ(secondBytes, SharedBytes("picture"));
    EXPECT_EQ(web.begun, 1);
}

TEST_F(MprisCoversReadingTest, AReadingThatIsStoppedLeavesTheOthersTheirs) {
    web.gate.close();
    std::stop_source stop;
    std::optional<SharedBytes> bytes;
    std::jthread first([&] { covers.read(one, stop.get_token()); });
    ASSERT_TRUE(web.gate.awaitArrival());
    std::jthread second([&] { bytes = covers.read("file:///cover", 100, {}); });
    stop.request_stop();
    web.gate.open();
    first.join();
    second.join();
    EXPECT_EQ(bytes, SharedBytes("picture"));
}

TEST_F(MprisCoversReadingTest, WhoWaitsCanBeStopped) {
    web.gate.close();
    std::jthread first([&] { covers.read(one, {}); });
    ASSERT_TRUE(web.gate.awaitArrival());
    std::stop_source stop;
    std::optional<SharedBytes> bytes = SharedBytes("unread");
    std::jthread second([&] { bytes = covers.read(one, stop.get_token()); });
    stop.request_stop();
    second.join();
    EXPECT_FALSE(bytes);
    web.gate.open();
}

TEST_F(MprisCoversReadingTest, TheSameAddressIsReadAgainForAnotherTrack) {
    EXPECT_EQ(covers.read(one, {}), SharedBytes("picture"));
    web.contents["file:///cover"] = SharedBytes("another");
    const auto two = trackAt("file:///cover", "Two");
    covers.name(two);
    EXPECT_EQ(covers.read("file:///cover", 100, {}), SharedBytes("another"));
    EXPECT_EQ(covers.read(two, {}), SharedBytes("another"));
    EXPECT_EQ(covers.read(one, {}), SharedBytes("picture")) << "the player before plays on";
    EXPECT_EQ(web.reads.size(), 2u);
}

TEST_F(MprisCoversReadingTest, AnAddressWithoutATrackIsReadEachTime) {
    EXPECT_EQ(covers.read("file:///cover", 100, {}), SharedBytes("picture"));
    EXPECT_EQ(covers.read("file:///cover", 100, {}), SharedBytes("picture"));
    EXPECT_EQ(web.reads.size(), 2u);
    covers.name(one);
    EXPECT_FALSE(covers.read("file:///cover", 3, {})) << "more than was asked for";
}

} // namespace
} // namespace orvelle
