#include "Platform/Linux/DataFolderLock.h"

#include "Support/OrdinaryUser.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <optional>

namespace orvelle {
namespace {

using Claim = DataFolderLock::Claim;

class DataFolderLockTest : public testing::Test {
protected:
    static bool nobodyAnswers(const std::string&) { return false; }

    TemporaryFolder folder;
    const std::string data = folder / "share/Orvelle";
};

TEST_F(DataFolderLockTest, TheFirstClaimMakesThePrivateFolderAndHoldsIt) {
    DataFolderLock lock(data);
    EXPECT_EQ(lock.claim({"1", "here", ":0", "/run/first"}, nobodyAnswers), Claim::held);
    struct stat status {};
    ASSERT_EQ(stat((data + "/.lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(DataFolderLockTest, TheSecondAsksTheFirstWhereItListens) {
    DataFolderLock first(data);
    ASSERT_EQ(first.claim({"1", "here", ":0", "/run/first"}, nobodyAnswers), Claim::held);
    DataFolderLock second(data);
    std::string asked;
    EXPECT_EQ(second.claim({"2", "there", ":1", "/run/second"},
                           [&](const std::string& socket) {
                               asked = socket;
                               return true;
                           }),
              Claim::handedOver);
    EXPECT_EQ(asked, "/run/first");
}

TEST_F(DataFolderLockTest, TheSecondLearnsWhoHoldsWhatItCannotHave) {
    DataFolderLock first(data);
    ASSERT_EQ(first.claim({"1", "here", ":0", "/run/first"}, nobodyAnswers), Claim::held);
    DataFolderLock second(data);
    EXPECT_EQ(second.claim({"2", "there", ":1", ""}, nobodyAnswers), Claim::refused);
    EXPECT_EQ(second.holder().process, "1");
    EXPECT_EQ(second.holder().host, "here");
    EXPECT_EQ(second.holder().display, ":0");
}

TEST_F(DataFolderLockTest, AHolderThatEndsMeanwhileLeavesTheFolderToTheNext) {
    std::optional<DataFolderLock> first(data);
    ASSERT_EQ(first->claim({"1", "here", ":0", "/run/first"}, nobodyAnswers), Claim::held);
    DataFolderLock second(data);
    EXPECT_EQ(second.claim({"2", "here", ":0", ""},
                           [&](const std::string&) {
                               first.reset();
                               return false;
                           }),
              Claim::held);
}

TEST_F(DataFolderLockTest, AStrangeRecordIsNobodysName) {
    for (const char* record : {"", "[", "[]", "{\"socket\":5}"}) {
        DataFolderLock first(data);
        ASSERT_EQ(first.claim({"1", "here", ":0", "/run/first"}, nobodyAnswers), Claim::held);
        folder.write("share/Orvelle/.lock", record);
        DataFolderLock second(data);
        int asked = 0;
        EXPECT_EQ(second.claim({}, [&](const std::string&) { return ++asked > 0; }), Claim::refused)
            << record;
    }
}

TEST_F(DataFolderLockTest, AnotherUsersFolderCannotBeLocked) {
    const OrdinaryUser user(folder.path());
    DataFolderLock lock("/etc/orvelle-test");
    EXPECT_EQ(lock.claim({}, nobodyAnswers), Claim::unavailable);
    EXPECT_EQ(lock.reason(), "Permission denied");
}

TEST_F(DataFolderLockTest, AFolderThatCannotBeLockedGivesTheReason) {
    folder.write("share/Orvelle", "a file stands in its place");
    DataFolderLock lock(data);
    EXPECT_EQ(lock.claim({}, nobodyAnswers), Claim::unavailable);
    EXPECT_EQ(lock.reason(), "Not a directory");
}

} // namespace
} // namespace orvelle
