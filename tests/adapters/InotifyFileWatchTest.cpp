#include "Platform/Linux/InotifyFileWatch.h"

#include "Platform/FileUserDefaults.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class InotifyFileWatchTest : public testing::Test {
protected:
    InotifyFileWatchTest() {
        if (!QCoreApplication::instance()) {
            static int argumentCount = 1;
            static char name[] = "tests";
            static char* arguments[] = {name, nullptr};
            static QCoreApplication application(argumentCount, arguments);
        }
    }

    Subscription watchFile(const std::string& path) {
        return watch.watch(path, [this] { ++changes; });
    }
    template <class Condition>
    bool happens(Condition condition) {
        constexpr int patience = 10'000; // ms
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < patience)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents,
                                            50);
        return condition();
    }
    bool tellsOfChange() {
        const bool told = happens([this] { return changes > 0; });
        drain();
        changes = 0;
        return told;
    }
    /// The kernel has queued the events of what this thread did before it returned from doing it.
    void drain() { QCoreApplication::processEvents(); }

    TemporaryFolder folder;
    InotifyFileWatch watch;
    int changes = 0;
};

TEST_F(InotifyFileWatchTest, TellsOfAFileThatIsMadeWrittenReplacedAndRemoved) {
    const auto subscription = watchFile(folder / "file");
    ASSERT_TRUE(subscription);
    writeFile(folder / "file", "made");
    EXPECT_TRUE(tellsOfChange());
    writeFile(folder / "file", "written");
    EXPECT_TRUE(tellsOfChange());
    ASSERT_TRUE(PosixFileSystem().write(folder / "file", "replaced"));
    EXPECT_TRUE(tellsOfChange());
    std::filesystem::remove(folder / "file");
    EXPECT_TRUE(tellsOfChange());
}

TEST_F(InotifyFileWatchTest, KeepsSilentAboutOtherFiles) {
    const auto subscription = watchFile(folder / "file");
    writeFile(folder / "other", "text");
    drain();
    EXPECT_EQ(changes, 0);
}

TEST_F(InotifyFileWatchTest, WaitsForTheWriterToCloseTheFile) {
    const auto subscription = watchFile(folder / "file");
    std::ofstream writer(folder / "file");
    writer << "half" << std::flush;
    drain();
    EXPECT_EQ(changes, 0);
    writer.close();
    EXPECT_TRUE(tellsOfChange());
}

TEST_F(InotifyFileWatchTest, FindsAFolderThatIsMadeLater) {
    const auto subscription = watchFile(folder / "a/b/file");
    ASSERT_TRUE(PosixFileSystem().write(folder / "a/b/file", "text"));
    EXPECT_TRUE(tellsOfChange());
    writeFile(folder / "a/b/file", "again");
    EXPECT_TRUE(tellsOfChange());
}

TEST_F(InotifyFileWatchTest, SurvivesTheFolderBeingReplaced) {
    std::filesystem::create_directory(folder / "a");
    const auto subscription = watchFile(folder / "a/file");
    std::filesystem::rename(folder / "a", folder / "old");
    std::filesystem::create_directory(folder / "a");
    drain();
    changes = 0;
    writeFile(folder / "a/file", "text");
    EXPECT_TRUE(tellsOfChange());
    std::filesystem::remove_all(folder / "a");
    EXPECT_TRUE(tellsOfChange());
    ASSERT_TRUE(PosixFileSystem().write(folder / "a/file", "text"));
    EXPECT_TRUE(tellsOfChange());
}

TEST_F(InotifyFileWatchTest, FollowsALinkToAnotherFolder) {
    std::filesystem::create_directory(folder / "elsewhere");
    writeFile(folder / "elsewhere/target", "text");
    std::filesystem::create_symlink("elsewhere/target", folder / "file");
    const auto subscription = watchFile(folder / "file");
    ASSERT_TRUE(PosixFileSystem().write(folder / "elsewhere/target", "new"));
    EXPECT_TRUE(tellsOfChange());
}

TEST_F(InotifyFileWatchTest, EndsWithItsSubscription) {
    auto subscription = watchFile(folder / "file");
    writeFile(folder / "file", "text");
    subscription.reset();
    drain();
    EXPECT_EQ(changes, 0);
}

TEST_F(InotifyFileWatchTest, MayEndWhileItTells) {
    Subscription subscription;
    subscription = watch.watch(folder / "file", [&] {
        ++changes;
        subscription.reset();
    });
    writeFile(folder / "file", "text");
    EXPECT_TRUE(tellsOfChange());
    writeFile(folder / "file", "again");
    drain();
    EXPECT_EQ(changes, 0);
}

TEST_F(InotifyFileWatchTest, SettingsOfTwoProcessesMeetInTheFile) {
    const TemporaryVariable config("XDG_CONFIG_HOME", folder.path().c_str());
    PosixFileSystem files;
    SimulatedRunLoop runLoop;
    SimulatedLog log;
    UnsavedChanges unsaved;
    FileUserDefaults one(files, runLoop, watch, log, unsaved);
    FileUserDefaults two(files, runLoop, watch, log, unsaved);
    const auto subscription = two.observeChanges([this] { ++changes; });
    one.set("a", 5.0);
    one.flush();
    EXPECT_TRUE(happens([&] {
        runLoop.runPosted();
        return two.object("a") == DefaultsValue(5.0);
    }));
    EXPECT_EQ(changes, 1);
    two.set("b", true);
    one.set("c", true);
    two.flush();
    one.flush();
    EXPECT_TRUE(happens([&] {
        runLoop.runPosted();
        return two.boolean("c") && one.boolean("b");
    }));
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace orvelle
