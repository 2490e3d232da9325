#include "Platform/Linux/MprisRunningPrograms.h"

#include "Platform/Qt/QtRunLoop.h"
#include "adapters/ScriptedPlayer.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvelle {
namespace {

class MprisRunningProgramsTest : public testing::Test {
protected:
    MprisRunningProgramsTest() {
        player.tellRoot({{QStringLiteral("DesktopEntry"), QStringLiteral("org.example.One")}});
        EXPECT_TRUE(waitUntil([&] { return programs.isRunning(identifiers); }));
    }
    void canRaise() {
        player.tellRoot({{QStringLiteral("CanRaise"), true}});
        ASSERT_TRUE(waitUntil([&] { return players.all().front().canRaise; }));
    }
    void bringToFront() {
        programs.bringToFront({identifiers, {"one"}}, [this] { ++failures; });
    }

    const std::vector<std::string> identifiers{"org.example.One"};
    PrivateBus bus;
    QtRunLoop loop;
    ScriptedPlayer player{bus, "one"};
    MprisPlayers players{loop, bus.provider()};
    const Subscription following = players.follow();
    bool hasWindow = true;
    std::vector<X11::Program> activated;
    MprisRunningPrograms programs{players, [this](const X11::Program& program) {
                                      activated.push_back(program);
                                      return hasWindow;
                                  }};
    int failures = 0;
};

TEST_F(MprisRunningProgramsTest, APlayerThatCanRaisesItself) {
    canRaise();
    bringToFront();
    EXPECT_TRUE(waitUntil([&] { return player.callCount("Raise") == 1; }));
    EXPECT_TRUE(activated.empty());
    EXPECT_EQ(failures, 0);
}

TEST_F(MprisRunningProgramsTest, ForOneThatCannotTheWindowOfItsProcessIsBrought) {
    bringToFront();
    ASSERT_TRUE(waitUntil([&] { return !activated.empty(); }));
    EXPECT_EQ(activated, (std::vector<X11::Program>{{player.processId(), {"one"}}}));
    EXPECT_EQ(player.callCount("Raise"), 0);
    EXPECT_EQ(failures, 0);
    hasWindow = false;
    bringToFront();
    EXPECT_TRUE(waitUntil([&] { return failures == 1; }));
}

TEST_F(MprisRunningProgramsTest, OneThatRefusesOrHangsHasItsWindowBrought) {
    canRaise();
    player.refuseToRaise();
    bringToFront();
    EXPECT_TRUE(waitUntil([&] { return activated.size() == 1; }));
    player.hang();
    bringToFront();
    EXPECT_TRUE(waitUntil([&] { return activated.size() == 2; }));
    player.wakeUp();
}

TEST_F(MprisRunningProgramsTest, AProgramThatIsNoPlayerIsFoundByItsWindow) {
    EXPECT_FALSE(programs.isRunning({"org.example.Editor"}));
    programs.bringToFront({{"org.example.Editor"}, {"editor"}}, [this] { ++failures; });
    EXPECT_EQ(activated, (std::vector<X11::Program>{{0, {"editor"}}}));
    hasWindow = false;
    programs.bringToFront({{"org.example.Editor"}, {"editor"}}, [this] { ++failures; });
    EXPECT_EQ(failures, 1);
}

} // namespace
} // namespace orvelle
