#include "Platform/Linux/ProcessInstance.h"

#include "Support/TemporaryVariable.h"
#include "adapters/EventLoopWait.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

namespace orvelle {
namespace {

using Claim = ProcessInstance::Claim;

struct ProcessInstanceTest : ::testing::Test {
    std::filesystem::path file(const char* name) const {
        return std::filesystem::path(runtime.path().toStdString()) / name;
    }
    /// Another program's connection to the instance.
    int caller() const {
        const int peer = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        file("orvelle.sock").native().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(connect(peer, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        return peer;
    }
    QTemporaryDir runtime; ///< made for this user alone
    TemporaryVariable variable{"XDG_RUNTIME_DIR", runtime.path().toUtf8()};
};

TEST_F(ProcessInstanceTest, TheSecondStartAsksTheFirstToShow) {
    ProcessInstance first("orvelle");
    ASSERT_EQ(first.claim(), Claim::first);
    int shown = 0;
    first.listen([&] { ++shown; });

    ProcessInstance second("orvelle");
    EXPECT_EQ(second.claim(), Claim::handedOver);
    EXPECT_TRUE(waitUntil([&] { return shown == 1; }));
    ProcessInstance third("orvelle");
    EXPECT_EQ(third.claim(), Claim::handedOver);
    EXPECT_TRUE(waitUntil([&] { return shown == 2; }));
}

TEST_F(ProcessInstanceTest, ARequestBeforeTheFirstListensIsNotLost) {
    ProcessInstance first("orvelle");
    ASSERT_EQ(first.claim(), Claim::first);
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::handedOver);
    bool isShown = false;
    first.listen([&] { isShown = true; });
    EXPECT_TRUE(waitUntil([&] { return isShown; }));
}

TEST_F(ProcessInstanceTest, OtherNamesDoNotMeet) {
    ProcessInstance first("orvelle");
    ProcessInstance demo("orvelle-demo");
    EXPECT_EQ(first.claim(), Claim::first);
    EXPECT_EQ(demo.claim(), Claim::first);
}

TEST_F(ProcessInstanceTest, TheNextStartAfterTheEndIsFirst) {
    std::optional<ProcessInstance> first("orvelle");
    ASSERT_EQ(first->claim(), Claim::first);
    first.reset();
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::first);
}

TEST_F(ProcessInstanceTest, WhatACrashedInstanceLeftIsReplaced) {
    std::ofstream(file("orvelle.sock")) << "stale";
    std::ofstream(file("orvelle.lock")) << "stale";
    ProcessInstance first("orvelle");
    ASSERT_EQ(first.claim(), Claim::first);
    bool isShown = false;
    first.listen([&] { isShown = true; });
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::handedOver);
    EXPECT_TRUE(waitUntil([&] { return isShown; }));
}

TEST_F(ProcessInstanceTest, AFolderThatOthersCanEnterIsNotUsed) {
    QTemporaryDir temporary;
    const TemporaryVariable folder("TMPDIR", temporary.path().toUtf8());
    chmod(runtime.path().toUtf8().constData(), 0755);
    ProcessInstance first("orvelle");
    EXPECT_EQ(first.claim(), Claim::first);
    EXPECT_FALSE(std::filesystem::exists(file("orvelle.sock")));

    const auto own = std::filesystem::path(temporary.path().toStdString()) /
                     ("orvelle-" + std::to_string(getuid()));
    struct stat status {};
    ASSERT_EQ(stat(own.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(ProcessInstanceTest, AnotherUsersFolderIsRefused) {
    if (getuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    QTemporaryDir temporary;
    const TemporaryVariable folder("TMPDIR", temporary.path().toUtf8());
    ASSERT_EQ(chown(runtime.path().toUtf8().constData(), 65534, 65534), 0);
    const auto trap = temporary.path().toStdString() + "/orvelle-0";
    ASSERT_EQ(mkdir(trap.c_str(), 0700), 0);
    ASSERT_EQ(chown(trap.c_str(), 65534, 65534), 0);
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::unavailable);
}

TEST_F(ProcessInstanceTest, SilentPeersDelayNobody) {
    ProcessInstance first("orvelle");
    ASSERT_EQ(first.claim(), Claim::first);
    std::vector<int> peers;
    for (int count = 0; count < 500; ++count)
        peers.push_back(caller());
    int shown = 0;
    first.listen([&] { ++shown; });
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::handedOver);
    EXPECT_TRUE(waitUntil([&] { return shown == 1; }, std::chrono::seconds(1)));
    // The last of them may still speak; the first had to go.
    EXPECT_EQ(send(peers.back(), "show", 4, MSG_NOSIGNAL), 4);
    EXPECT_TRUE(waitUntil([&] { return shown == 2; }));
    EXPECT_EQ(send(peers.front(), "show", 4, MSG_NOSIGNAL), -1);
    for (const int peer : peers)
        close(peer);
}

TEST_F(ProcessInstanceTest, OtherWordsShowNothing) {
    ProcessInstance first("orvelle");
    ASSERT_EQ(first.claim(), Claim::first);
    int shown = 0;
    first.listen([&] { ++shown; });

    const int stranger = caller();
    ASSERT_EQ(send(stranger, "quit", 4, 0), 4);
    EXPECT_EQ(ProcessInstance("orvelle").claim(), Claim::handedOver);
    EXPECT_TRUE(waitUntil([&] { return shown > 0; })); // the stranger came before
    EXPECT_EQ(shown, 1);
    close(stranger);
}

} // namespace
} // namespace orvelle
