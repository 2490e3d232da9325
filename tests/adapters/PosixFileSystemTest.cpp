#include "Platform/Linux/PosixFileSystem.h"

#include "Support/OrdinaryUser.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

namespace orvelle {
namespace {

constexpr std::size_t readLimit = 1000;

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class PosixFileSystemTest : public testing::Test {
protected:
    std::size_t entryCount() const {
        using Entries = std::filesystem::directory_iterator;
        return static_cast<std::size_t>(std::distance(Entries(folder.path()), Entries()));
    }

    TemporaryFolder folder;
    PosixFileSystem files;
};

TEST(PosixFileSystemFolders, FollowTheXdgVariables) {
    const TemporaryVariable data("XDG_DATA_HOME", "/data");
    const TemporaryVariable config("XDG_CONFIG_HOME", "/config");
    const PosixFileSystem files;
    EXPECT_EQ(files.applicationSupportDirectory(), "/data");
    EXPECT_EQ(files.configurationDirectory(), "/config/orvelle");
}

TEST(PosixFileSystemFolders, IgnoreEmptyAndRelativeVariables) {
    const TemporaryVariable home("HOME", "/home/someone");
    for (const char* value : {"", "relative/folder", static_cast<const char*>(nullptr)}) {
        const TemporaryVariable data("XDG_DATA_HOME", value);
        const TemporaryVariable config("XDG_CONFIG_HOME", value);
        const PosixFileSystem files;
        EXPECT_EQ(files.applicationSupportDirectory(), "/home/someone/.local/share");
        EXPECT_EQ(files.configurationDirectory(), "/home/someone/.config/orvelle");
    }
}

TEST(PosixFileSystemFolders, WithoutHomeTheUsersEntryServes) {
    const TemporaryVariable config("XDG_CONFIG_HOME", nullptr);
    const TemporaryVariable home("HOME", nullptr);
    const auto* entry = getpwuid(getuid());
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(PosixFileSystem().configurationDirectory(),
              std::string(entry->pw_dir) + "/.config/orvelle");
}

TEST_F(PosixFileSystemTest, WriteMakesPrivateFoldersAndFiles) {
    const auto path = folder / "one/two/file";
    ASSERT_TRUE(files.write(path, "text"));
    EXPECT_EQ(files.read(path, readLimit).bytes, "text");
    EXPECT_EQ(modeOf(path), 0600u);
    EXPECT_EQ(modeOf(folder / "one"), 0700u);
    EXPECT_EQ(modeOf(folder / "one/two"), 0700u);
}

TEST_F(PosixFileSystemTest, WriteReplacesTheFileAndLeavesNothingBehind) {
    ASSERT_TRUE(files.write(folder / "file", "old"));
    const auto longText = std::string(300'000, 'x');
    ASSERT_TRUE(files.write(folder / "file", longText));
    EXPECT_EQ(fileBytes(folder / "file"), longText);
    EXPECT_EQ(entryCount(), 1u);
}

TEST_F(PosixFileSystemTest, OpenReaderKeepsTheOldFileWhole) {
    ASSERT_TRUE(files.write(folder / "file", "old"));
    std::ifstream reader(folder / "file");
    ASSERT_TRUE(files.write(folder / "file", "new"));
    std::string seen;
    reader >> seen;
    EXPECT_EQ(seen, "old");
}

TEST_F(PosixFileSystemTest, MissingFileIsToldApart) {
    EXPECT_EQ(files.read(folder / "none", readLimit).failure, FileSystem::ReadFailure::missing);
    EXPECT_EQ(files.read(folder / "none/deeper", readLimit).failure,
              FileSystem::ReadFailure::missing);
    writeFile(folder / "file", "");
    EXPECT_EQ(files.read(folder / "file/deeper", readLimit).failure,
              FileSystem::ReadFailure::missing);
    EXPECT_EQ(files.read(folder / "file", readLimit).failure, std::nullopt);
}

TEST_F(PosixFileSystemTest, FileAboveTheLimitIsNotRead) {
    writeFile(folder / "file", std::string(readLimit, 'x'));
    EXPECT_EQ(files.read(folder / "file", readLimit).bytes.size(), readLimit);
    EXPECT_EQ(files.read(folder / "file", readLimit - 1).failure,
              FileSystem::ReadFailure::tooLarge);
}

TEST_F(PosixFileSystemTest, WhatIsNoRegularFileIsNeitherReadNorReplaced) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder");
    for (const auto& path : {folder / "pipe", folder / "folder"}) {
        EXPECT_EQ(files.read(path, readLimit).failure, FileSystem::ReadFailure::unreadable);
        EXPECT_FALSE(files.write(path, "text"));
    }
    EXPECT_EQ(files.read("/dev/zero", readLimit).failure, FileSystem::ReadFailure::unreadable);
    EXPECT_FALSE(files.write("/dev/full", "text"));
}

TEST_F(PosixFileSystemTest, SymbolicLinkStaysAndItsTargetIsReplaced) {
    std::filesystem::create_directory(folder / "elsewhere");
    writeFile(folder / "elsewhere/target", "old");
    std::filesystem::create_symlink("elsewhere/target", folder / "middle");
    std::filesystem::create_symlink("middle", folder / "link");
    ASSERT_TRUE(files.write(folder / "link", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "middle"));
    EXPECT_EQ(fileBytes(folder / "elsewhere/target"), "new");
}

TEST_F(PosixFileSystemTest, LinkToNothingGetsItsTarget) {
    std::filesystem::create_symlink(folder / "later/target", folder / "link");
    ASSERT_TRUE(files.write(folder / "link", "new"));
    EXPECT_EQ(fileBytes(folder / "later/target"), "new");
}

TEST_F(PosixFileSystemTest, LinksThatGoRoundAreRefused) {
    std::filesystem::create_symlink("b", folder / "a");
    std::filesystem::create_symlink("a", folder / "b");
    EXPECT_FALSE(files.write(folder / "a", "text"));
    EXPECT_EQ(files.read(folder / "a", readLimit).failure, FileSystem::ReadFailure::unreadable);
}

TEST_F(PosixFileSystemTest, ReadOnlyFileIsRespected) {
    writeFile(folder / "file", "old");
    ASSERT_EQ(chmod((folder / "file").c_str(), 0400), 0);
    EXPECT_FALSE(files.write(folder / "file", "new"));
    EXPECT_EQ(files.read(folder / "file", readLimit).bytes, "old");
}

TEST_F(PosixFileSystemTest, ReadOnlyFolderRefusesWritesAndMoves) {
    writeFile(folder / "file", "old");
    const OrdinaryUser user(folder.path());
    ASSERT_EQ(chmod(folder.path().c_str(), 0500), 0);
    EXPECT_EQ(files.write(folder / "file", "new").failure(), WriteFailure::denied);
    EXPECT_EQ(files.move(folder / "file", folder / "other").failure(), WriteFailure::denied);
    EXPECT_EQ(files.remove(folder / "file").failure(), WriteFailure::denied);
    EXPECT_EQ(fileBytes(folder / "file"), "old");
    chmod(folder.path().c_str(), 0700);
}

/// No file may grow beyond a readLimit, which fails the writing as a full disk does.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        previousAction_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, previousAction_);
    }

private:
    rlimit before_{};
    void (*previousAction_)(int) = SIG_DFL;
};

TEST_F(PosixFileSystemTest, FullDiskLeavesTheOldFileWholeAndNoRest) {
    ASSERT_TRUE(files.write(folder / "file", "old"));
    {
        const FullDisk full(4096);
        EXPECT_FALSE(files.write(folder / "file", std::string(10'000, 'x')));
    }
    EXPECT_EQ(fileBytes(folder / "file"), "old");
    EXPECT_EQ(entryCount(), 1u);
}

TEST_F(PosixFileSystemTest, MoveReplacesItsGoal) {
    writeFile(folder / "from", "new");
    writeFile(folder / "to", "old");
    EXPECT_TRUE(files.move(folder / "from", folder / "to"));
    EXPECT_EQ(fileBytes(folder / "to"), "new");
    EXPECT_FALSE(files.move(folder / "from", folder / "to"));
    EXPECT_EQ(fileBytes(folder / "to"), "new");
}

TEST_F(PosixFileSystemTest, WhatKilledWritesLeftIsCleared) {
    folder.write(".file.AbC123", "half");
    folder.write(".file.AbC1234", "another's");
    folder.write(".other.AbC123", "another's");
    folder.write("file", "whole");
    files.clearRests(folder / "file");
    EXPECT_EQ(files.names(folder.path()),
              (std::vector<std::string>{".file.AbC1234", ".other.AbC123", "file"}));
}

TEST_F(PosixFileSystemTest, RestsBesideTheTargetOfALinkAreClearedToo) {
    folder.write("elsewhere/file", "whole");
    folder.write("elsewhere/.file.AbC123", "half");
    std::filesystem::create_symlink("elsewhere/file", folder / "link");
    files.clearRests(folder / "link");
    EXPECT_EQ(files.names(folder / "elsewhere"), std::vector<std::string>{"file"});
}

TEST_F(PosixFileSystemTest, AFileThatIsBeingWrittenIsNoRest) {
    std::atomic<bool> isOver = false;
    std::thread clearing([&] {
        PosixFileSystem other;
        while (!isOver)
            other.clearRests(folder / "file");
    });
    int refused = 0;
    for (int count = 0; count < 300; ++count)
        refused += files.write(folder / "file", std::string(1000, 'x')) ? 0 : 1;
    isOver = true;
    clearing.join();
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(entryCount(), 1u);
}

TEST_F(PosixFileSystemTest, EachRefusalHasItsReason) {
    folder.write("folder/file", "");
    EXPECT_EQ(files.write(folder / "folder", "text").failure(), WriteFailure::obstructed);
    EXPECT_EQ(files.write(folder / "folder/file/below", "text").failure(),
              WriteFailure::obstructed);
    EXPECT_EQ(files.write("/proc/version", "text").failure(), WriteFailure::denied);
    const FullDisk full(10);
    EXPECT_EQ(files.write(folder / "file", std::string(100, 'x')).failure(),
              WriteFailure::tooLarge);
}

TEST_F(PosixFileSystemTest, RemovedFilesAreGone) {
    folder.write("file", "text");
    EXPECT_TRUE(files.remove(folder / "file"));
    EXPECT_TRUE(files.remove(folder / "file"));
    EXPECT_EQ(entryCount(), 0u);
}

TEST_F(PosixFileSystemTest, AnotherUsersFolderRefusesWrites) {
    const OrdinaryUser user(folder.path());
    EXPECT_EQ(files.write("/etc/orvelle-test", "text").failure(), WriteFailure::denied);
    EXPECT_EQ(files.write("/etc/orvelle-test/deeper", "text").failure(), WriteFailure::denied);
    EXPECT_FALSE(files.lock("/etc/orvelle-test", 0));
    EXPECT_TRUE(files.write(folder / "file", "text")) << "but not the own one";
}

TEST_F(PosixFileSystemTest, LockIsHeldByOneAtATime) {
    PosixFileSystem other;
    auto first = files.lock(folder / "new", 0);
    EXPECT_TRUE(first);
    EXPECT_FALSE(other.lock(folder / "new", 0.02));
    first.reset();
    EXPECT_TRUE(other.lock(folder / "new", 0));
}

TEST_F(PosixFileSystemTest, LockIsHadWhenItsHolderEndsInTime) {
    auto first = files.lock(folder.path(), 0);
    std::thread waiter([this] { EXPECT_TRUE(PosixFileSystem().lock(folder.path(), 30)); });
    first.reset();
    waiter.join();
}

} // namespace
} // namespace orvelle
