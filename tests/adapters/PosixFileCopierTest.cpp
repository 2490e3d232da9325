#include "Platform/Linux/PosixFileCopier.h"

#include "Support/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <thread>

namespace orvelle {
namespace {

namespace fs = std::filesystem;

class PosixFileCopierTest : public testing::Test {
protected:
    PosixFileCopierTest() { copier.makeFolder(shelf); }

    FileCopier::Outcome copy(const std::string& source, const std::string& name) {
        return copier.copy(source, shelf, name, cancelled);
    }
    /// Nothing in the shelf but these, and no trace of what failed.
    void expectOnShelf(const std::vector<std::string>& names) {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(shelf))
            found.push_back(entry.path().filename());
        std::sort(found.begin(), found.end());
        EXPECT_EQ(found, names);
    }
    static struct stat statusOf(const std::string& path) {
        struct stat status {};
        lstat(path.c_str(), &status);
        return status;
    }

    TemporaryFolder home;
    const std::string shelf = home / "share/Orvelle/FileShelf";
    std::atomic<bool> cancelled{false};
    PosixFileCopier copier;
};

TEST_F(PosixFileCopierTest, EverySpellingOfAFolderHasOneCanonicalPath) {
    const auto canonical = copier.canonicalPath(shelf);
    ASSERT_TRUE(canonical);
    const auto link = shelf + ".link";
    fs::create_directory_symlink(shelf, link);
    for (const auto& spelled :
         {shelf + "/", shelf + "/./", "/" + shelf,
          shelf + "/../" + fs::path(shelf).filename().string(), link, link + "//"})
        EXPECT_EQ(copier.canonicalPath(spelled), canonical) << spelled;
    EXPECT_FALSE(copier.canonicalPath(shelf + "/missing"));
    EXPECT_FALSE(copier.canonicalPath(""));
}

TEST_F(PosixFileCopierTest, CopiesAFileForTheUserAlone) {
    home.write("a.txt", "hello");
    chmod(home.path("a.txt").c_str(), 0644);
    const auto outcome = copy(home / "a.txt", "a.txt");
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.info.size, 5);
    EXPECT_EQ(fileBytes(shelf + "/a.txt"), "hello");
    EXPECT_EQ(statusOf(shelf + "/a.txt").st_mode & 0777, 0600u);
    EXPECT_EQ(statusOf(shelf).st_mode & 0777, 0700u);
    EXPECT_EQ(statusOf(shelf + "/a.txt").st_mtim.tv_sec, statusOf(home / "a.txt").st_mtim.tv_sec);
    expectOnShelf({"a.txt"});
}

TEST_F(PosixFileCopierTest, ReplacesWhatHasTheName) {
    for (const char* text : {"old and longer", "new"}) {
        home.write("a", text);
        ASSERT_FALSE(copy(home / "a", "a").failure);
        EXPECT_EQ(fileBytes(shelf + "/a"), text);
    }
    fs::create_directories(home / "folder/a");
    home.write("folder/a/inside", "x");
    EXPECT_FALSE(copy(home / "folder/a", "a").failure) << "a folder in place of a file";
    EXPECT_FALSE(copy(home / "folder/a", "a").failure) << "a folder in place of a full folder";
    EXPECT_EQ(fileBytes(shelf + "/a/inside"), "x");
    EXPECT_FALSE(copy(home / "a", "a").failure) << "a file in place of a full folder";
    EXPECT_EQ(fileBytes(shelf + "/a"), "new");
}

TEST_F(PosixFileCopierTest, AFailureLeavesWhatHasTheName) {
    home.write("a", "kept");
    ASSERT_FALSE(copy(home / "a", "a").failure);
    EXPECT_TRUE(copy(home / "missing", "a").failure);
    EXPECT_EQ(fileBytes(shelf + "/a"), "kept");
}

TEST_F(PosixFileCopierTest, AFifoASocketAndADeviceAreRefusedAtOnce) {
    mkfifo(home.path("fifo").c_str(), 0600);
    mknod(home.path("null").c_str(), S_IFCHR | 0600, makedev(1, 3));
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    home.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    for (const auto& source : {home / "fifo", home / "socket", home / "null",
                               std::string("/dev/zero"), std::string("/dev/tty")}) {
        EXPECT_TRUE(copy(source, "x").failure) << source;
        expectOnShelf({});
    }
    close(listening);
}

TEST_F(PosixFileCopierTest, ALinkIsFollowedAndALoopOfLinksIsRefused) {
    home.write("a", "hello");
    fs::create_symlink(home / "a", home / "link");
    fs::create_symlink(home / "loop2", home / "loop1");
    fs::create_symlink(home / "loop1", home / "loop2");
    EXPECT_FALSE(copy(home / "link", "link").failure);
    EXPECT_FALSE(fs::is_symlink(shelf + "/link"));
    EXPECT_EQ(fileBytes(shelf + "/link"), "hello");
    EXPECT_TRUE(copy(home / "loop1", "loop1").failure);
    expectOnShelf({"link"});
}

TEST_F(PosixFileCopierTest, ANameCannotLeadOutOfTheFolder) {
    home.write("a", "hello");
    for (const auto& name : {std::string("../a"), std::string(".."), std::string("."),
                             std::string(), std::string("b/a"), std::string("/tmp/a"),
                             std::string(FileCopier::stagingName), std::string("a\0b", 3)})
        EXPECT_TRUE(copy(home / "a", name).failure) << name;
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, ALinkInTheShelfIsReplacedAndNotFollowed) {
    home.write("precious", "precious");
    home.write("a", "hello");
    fs::create_symlink(home / "precious", shelf + "/a");
    EXPECT_FALSE(copy(home / "a", "a").failure);
    EXPECT_EQ(fileBytes(home / "precious"), "precious");
    EXPECT_EQ(fileBytes(shelf + "/a"), "hello");
    fs::create_symlink(home / "precious", shelf + "/link");
    EXPECT_FALSE(copier.info(shelf + "/link")) << "is no file of the shelf";
    EXPECT_TRUE(copier.remove(shelf + "/link"));
    EXPECT_EQ(fileBytes(home / "precious"), "precious");
}

TEST_F(PosixFileCopierTest, ALinkInPlaceOfTheStagingFolderIsNotFollowed) {
    home.write("precious/inside", "precious");
    home.write("a", "hello");
    fs::create_symlink(home / "precious", shelf + "/" + FileCopier::stagingName);
    EXPECT_FALSE(copy(home / "a", "a").failure);
    EXPECT_EQ(fileBytes(home / "precious/inside"), "precious");
    expectOnShelf({"a"});
}

TEST_F(PosixFileCopierTest, TheLongestNameAndBytesThatAreNoTextAreFine) {
    for (const auto& name : {std::string(255, 'n'), std::string("\xff\xfe \n\"")}) {
        home.write("in/" + name, "hello");
        EXPECT_FALSE(copy(home / ("in/" + name), name).failure);
        EXPECT_EQ(fileBytes(shelf + "/" + name), "hello");
    }
    home.write("a", "hello");
    EXPECT_TRUE(copy(home / "a", std::string(256, 'n')).failure);
}

TEST_F(PosixFileCopierTest, AFileThatGrowsIsCopiedToTheLengthThatItHad) {
    home.write("log", std::string(4 << 20, 'a'));
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        std::ofstream file(home / "log", std::ios::app);
        const std::string more(1 << 16, 'b');
        for (int count = 0; !stop && count < 4000; ++count)
            file << more << std::flush;
    });
    const auto outcome = copy(home / "log", "log");
    stop = true;
    writer.join();
    EXPECT_FALSE(outcome.failure);
    const auto bytes = fileBytes(shelf + "/log");
    EXPECT_GE(bytes.size(), 4u << 20);
    EXPECT_EQ(outcome.info.size, static_cast<std::int64_t>(bytes.size()));
    EXPECT_EQ(bytes, fileBytes(home / "log").substr(0, bytes.size()));
}

TEST_F(PosixFileCopierTest, FiveGigabytesOfHoleTakeNoRoom) {
    constexpr off_t length = off_t{5} << 30;
    const int file = open(home.path("sparse").c_str(), O_CREAT | O_WRONLY, 0600);
    ASSERT_EQ(pwrite(file, "end", 3, length - 3), 3);
    ASSERT_EQ(pwrite(file, "start", 5, 0), 5);
    close(file);
    const auto outcome = copy(home / "sparse", "sparse");
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.info.size, length);
    EXPECT_LT(statusOf(shelf + "/sparse").st_blocks * 512, 1 << 20);
    std::ifstream copied(shelf + "/sparse", std::ios::binary);
    char text[6] = {};
    copied.read(text, 5);
    EXPECT_STREQ(text, "start");
    copied.seekg(length - 3);
    char end[4] = {};
    copied.read(end, 3);
    EXPECT_STREQ(end, "end");
}

TEST_F(PosixFileCopierTest, ASourceThatVanishesWhileItIsCopiedIsCopiedWhole) {
    home.write("a", std::string(32 << 20, 'a'));
    std::thread remover([&] { fs::remove(home / "a"); });
    const auto outcome = copy(home / "a", "a");
    remover.join();
    if (outcome.failure)
        expectOnShelf({});
    else
        EXPECT_EQ(statusOf(shelf + "/a").st_size, 32 << 20);
}

TEST_F(PosixFileCopierTest, ACancelledCopyLeavesNothing) {
    home.write("a", std::string(8 << 20, 'a'));
    home.write("folder/a", "a");
    cancelled = true;
    EXPECT_TRUE(copy(home / "a", "a").failure);
    EXPECT_TRUE(copy(home / "folder", "folder").failure);
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, LeftoversOfACrashGoWithTheNextCopy) {
    home.write("share/Orvelle/FileShelf/.incoming/half/file", "half");
    home.write("a", "hello");
    EXPECT_FALSE(copy(home / "a", "a").failure);
    expectOnShelf({"a"});
}

TEST_F(PosixFileCopierTest, AFileOfTheShelfMayBeCopiedOntoItself) {
    home.write("a", "hello");
    ASSERT_FALSE(copy(home / "a", "a").failure);
    EXPECT_FALSE(copy(shelf + "/a", "a").failure);
    EXPECT_EQ(fileBytes(shelf + "/a"), "hello");
}

TEST_F(PosixFileCopierTest, AFolderIsCopiedWithItsFilesAndLinksButNoDevices) {
    home.write("folder/a", "a");
    home.write("folder/sub/b", "b");
    fs::create_directory(home / "folder/empty");
    fs::create_symlink("../outside", home / "folder/link");
    mkfifo(home.path("folder/fifo").c_str(), 0600);
    const auto outcome = copy(home / "folder", "folder");
    EXPECT_FALSE(outcome.failure);
    EXPECT_TRUE(outcome.info.isFolder);
    EXPECT_EQ(fileBytes(shelf + "/folder/a"), "a");
    EXPECT_EQ(fileBytes(shelf + "/folder/sub/b"), "b");
    EXPECT_TRUE(fs::is_directory(shelf + "/folder/empty"));
    EXPECT_EQ(fs::read_symlink(shelf + "/folder/link"), "../outside");
    EXPECT_FALSE(fs::exists(shelf + "/folder/fifo"));
    EXPECT_TRUE(copier.remove(shelf + "/folder"));
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, AFolderThatHoldsTheShelfIsRefused) {
    EXPECT_TRUE(copy(home.path(), "home").failure);
    EXPECT_TRUE(copy(shelf, "shelf").failure);
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, AFolderThatHoldsTheShelfIsRefusedBeforeAnythingIsCopied) {
    home.write("share/a", "a");
    const timespec longAgo[] = {{1, 0}, {1, 0}};
    for (const auto& source :
         {home.path(), home / "share", shelf, std::string("/proc/self/root")}) {
        ASSERT_EQ(utimensat(AT_FDCWD, shelf.c_str(), longAgo, 0), 0);
        EXPECT_TRUE(copy(source, "copied").failure) << source;
        EXPECT_EQ(statusOf(shelf).st_mtim.tv_sec, 1) << source << " was begun";
    }
}

TEST_F(PosixFileCopierTest, WhatTheKernelMakesUpIsNoFile) {
    fs::create_symlink("/proc/self", home / "link");
    for (const char* source : {"/proc/self/environ", "/proc/self", "/proc/sys/kernel/ostype",
                               "/sys/kernel", "/sys/devices/system/cpu/online"})
        EXPECT_TRUE(copy(source, "copied").failure) << source;
    EXPECT_TRUE(copy(home / "link", "copied").failure);
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, AnEndlesslyDeepFolderIsRefused) {
    std::string path = home / "deep";
    for (int depth = 0; depth < 150; ++depth)
        path += "/d";
    fs::create_directories(path);
    EXPECT_TRUE(copy(home / "deep", "deep").failure);
    expectOnShelf({});
}

TEST_F(PosixFileCopierTest, WithoutAFolderItMakesOne) {
    home.write("a", "hello");
    fs::remove_all(home / "share");
    EXPECT_FALSE(copy(home / "a", "a").failure);
    EXPECT_EQ(fileBytes(shelf + "/a"), "hello");
}

/// A disk of its own of 1 MB. Only root can make one.
class SmallDisk : public PosixFileCopierTest {
protected:
    void SetUp() override {
        if (mount("tmpfs", shelf.c_str(), "tmpfs", 0, "size=1m") != 0)
            GTEST_SKIP() << "no disk can be mounted here";
        isMounted_ = true;
    }
    void TearDown() override {
        if (isMounted_)
            umount(shelf.c_str());
    }
    void makeReadOnly() {
        ASSERT_EQ(mount(nullptr, shelf.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    }

private:
    bool isMounted_ = false;
};

TEST_F(SmallDisk, ThatIsFullKeepsWhatItHasAndNothingHalf) {
    home.write("small", "small");
    home.write("big", std::string(2 << 20, 'b'));
    home.write("folder/1", std::string(600 << 10, '1'));
    home.write("folder/2", std::string(600 << 10, '2'));
    ASSERT_FALSE(copy(home / "small", "small").failure);
    EXPECT_EQ(copy(home / "big", "small").failure, "No space left on device");
    EXPECT_TRUE(copy(home / "folder", "folder").failure);
    expectOnShelf({"small"});
    EXPECT_EQ(fileBytes(shelf + "/small"), "small");
    EXPECT_EQ(fileBytes(home / "big").size(), 2u << 20);
}

TEST_F(SmallDisk, ThatIsReadOnlyTakesNothing) {
    home.write("a", "hello");
    makeReadOnly();
    EXPECT_TRUE(copy(home / "a", "a").failure);
    EXPECT_FALSE(copier.remove(shelf + "/a") && fs::exists(shelf + "/a"));
    expectOnShelf({});
}

} // namespace
} // namespace orvelle
