#include "Features/FileShelf/ShelfRemovals.h"

#include "Features/FileShelf/FileShelfManager.h"
#include "Foundation/FileURL.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Gate.h"
#include "Support/HungRunLoop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace orvelle {
namespace {

const std::string shelfFolder = "/simulated/share/Orvelle/FileShelf";

/// A machine of the test's own run loop and copier.
class Machine : public SimulatedPlatform {
public:
    RunLoop* loop = &runLoopPort;
    FileCopier* copier = &fileCopierPort;
    RunLoop& runLoop() override { return *loop; }
    FileCopier& fileCopier() override { return *copier; }
};

/// Removes when the test lets it.
class GatedCopier : public SimulatedFileCopier {
public:
    using SimulatedFileCopier::SimulatedFileCopier;
    Gate removing;
    bool remove(const std::string& path) override {
        removing.pass();
        return SimulatedFileCopier::remove(path);
    }
};

/// A pool with threads to spare. A work is over, or held at the gate, before the next begins; the
/// completions wait for `runPosted`.
class PoolRunLoop : public SimulatedRunLoop {
public:
    explicit PoolRunLoop(const Gate& gate) : gate_(gate) {}
    ~PoolRunLoop() override { join(); }

    void join() {
        for (auto& thread : std::exchange(threads_, {}))
            thread.join();
    }
    Subscription detach(std::function<void()> work, std::function<void()> done) override {
        const bool wasHeld = gate_.isReached();
        const auto over = std::make_shared<std::atomic<bool>>(false);
        threads_.emplace_back([work = std::move(work), over] {
            work();
            *over = true;
        });
        while (!*over && (wasHeld || !gate_.isReached()))
            std::this_thread::yield();
        return SimulatedRunLoop::detach([] {}, std::move(done));
    }
    Subscription detachSaving(std::function<void()> work, std::function<void()> done) override {
        return detach(std::move(work), std::move(done));
    }

private:
    const Gate& gate_;
    std::vector<std::thread> threads_;
};

class ShelfRemovalsTest : public testing::Test {
protected:
    ShelfRemovalsTest() { start(); }

    std::map<std::string, std::string>& files() { return platform.fileSystemPort.files; }
    bool isOnDisk(const std::string& name) { return files().contains(shelfFolder + "/" + name); }
    void start() {
        shelf.reset();
        shelf = std::make_unique<FileShelfManager>(platform);
    }
    void addFile(const std::string& name, const std::string& bytes = "bytes") {
        files()["/home/" + name] = bytes;
        shelf->addFile(FileURL::ofPath("/home/" + name));
        platform.runLoopPort.runPosted();
    }
    void removeFirst() { shelf->removeFile(ShelfItem(shelf->items->front())); }
    void use(SimulatedRunLoop& loop) {
        shelf.reset();
        platform.loop = &loop;
        start();
    }

    Machine platform;
    std::unique_ptr<FileShelfManager> shelf;
};

TEST_F(ShelfRemovalsTest, AFileGoesAtOnceWhileACopyHangs) {
    addFile("a.txt");
    HungRunLoop hung;
    use(hung);
    shelf->addFile("file:///home/a.txt");
    removeFirst();
    hung.advance(1);
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_FALSE(isOnDisk(".removals.json"));
    shelf.reset();
}

TEST_F(ShelfRemovalsTest, AFileThatExpiresGoesWhileACopyHangs) {
    addFile("a.txt");
    HungRunLoop hung;
    use(hung);
    shelf->start();
    shelf->addFile("file:///home/a.txt");
    hung.advance(24 * 3600 + FileShelfManager::cleanupInterval);
    EXPECT_FALSE(isOnDisk("a.txt"));
    shelf.reset();
}

TEST_F(ShelfRemovalsTest, WhatNoThreadHasBegunIsRemovedAtTheEnd) {
    addFile("a.txt");
    addFile("b.txt");
    removeFirst();
    removeFirst();
    EXPECT_TRUE(isOnDisk("b.txt"));
    shelf.reset();
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_FALSE(isOnDisk("b.txt"));
    EXPECT_FALSE(isOnDisk(".removals.json"));
}

TEST_F(ShelfRemovalsTest, WhatAHangingDiskLeavesIsRemovedAtTheNextStart) {
    addFile("a.txt");
    addFile("b.txt");
    GatedCopier copier(platform.fileSystemPort);
    {
        PoolRunLoop pool(copier.removing);
        platform.copier = &copier;
        use(pool);
        copier.removing.close();
        removeFirst();
        ASSERT_TRUE(copier.removing.awaitArrival());
        removeFirst();
        shelf.reset();
        const auto atTheEnd = files();
        copier.removing.open();
        pool.join();
        EXPECT_TRUE(isOnDisk(".removals.json")) << "the note is the next start's";
        files() = atTheEnd;
    }
    ASSERT_TRUE(isOnDisk("a.txt"));
    ASSERT_TRUE(isOnDisk("b.txt"));
    platform.loop = &platform.runLoopPort;
    platform.copier = &platform.fileCopierPort;
    start();
    EXPECT_TRUE(shelf->items->empty());
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_FALSE(isOnDisk("b.txt"));
    EXPECT_FALSE(isOnDisk(".removals.json"));
}

TEST_F(ShelfRemovalsTest, ACrashAmidARemovalLeavesItToTheNextStart) {
    addFile("a.txt");
    GatedCopier copier(platform.fileSystemPort);
    platform.copier = &copier;
    std::map<std::string, std::string> atTheCrash;
    {
        PoolRunLoop pool(copier.removing);
        use(pool);
        copier.removing.close();
        removeFirst();
        ASSERT_TRUE(copier.removing.awaitArrival());
        atTheCrash = files();
        copier.removing.open();
        pool.join();
        shelf.reset();
    }
    files() = atTheCrash;
    platform.loop = &platform.runLoopPort;
    start();
    EXPECT_TRUE(shelf->items->empty());
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(isOnDisk("a.txt"));
}

TEST_F(ShelfRemovalsTest, ACopyBeginsWhenTheOlderFileOfItsNameIsGone) {
    addFile("a.txt", "old");
    files()["/home/a.txt"] = "new";
    removeFirst();
    shelf->addFile("file:///home/a.txt");
    platform.runLoopPort.runPosted();
    ASSERT_EQ(shelf->items->size(), 1u);
    EXPECT_EQ(files()[shelfFolder + "/a.txt"], "new");
    start();
    platform.runLoopPort.runPosted();
    EXPECT_EQ(shelf->items->size(), 1u);
}

TEST_F(ShelfRemovalsTest, ACopyThatWasRemovedBeforeItWasListedIsNotListed) {
    addFile("a.txt", "old");
    shelf->addFile("file:///home/a.txt"); // its copy stands before what follows
    removeFirst();
    platform.runLoopPort.runPosted();
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_EQ(platform.consolePort.lines,
              std::vector<std::string>{
                  "FileShelfManager: Failed to copy file: It was removed meanwhile."});
}

TEST_F(ShelfRemovalsTest, ANoteThatIsNoneRemovesNothing) {
    addFile("a.txt");
    files()["/home/precious.txt"] = "precious";
    const auto before = files();
    for (const char* text : {"", "not json", "{}", "[1]", R"(["../../../../home/precious.txt"])",
                             R"(["", ".", "..", "a/b"])"}) {
        files()[shelfFolder + "/.removals.json"] = text;
        start();
        platform.runLoopPort.runPosted();
        files().erase(shelfFolder + "/.removals.json");
        EXPECT_EQ(files(), before) << text;
    }
}

TEST_F(ShelfRemovalsTest, ANoteNamesFilesOfTheFolderAloneHoweverThePathIsRead) {
    for (const char* name : {"", ".", "..", "a/b", "../a.txt"}) {
        const auto path = shelfFolder + "/" + name;
        files() = {{path, "precious"},
                   {shelfFolder + "/.removals.json", "[\"" + std::string(name) + "\"]"}};
        start();
        platform.runLoopPort.runPosted();
        EXPECT_TRUE(files().contains(path)) << name;
    }
}

TEST_F(ShelfRemovalsTest, WhatIsStillToBeRemovedIsNotListedThoughTheListNamesIt) {
    files() = {{shelfFolder + "/a.txt", "a"},
               {shelfFolder + "/b.txt", "b"},
               {shelfFolder + "/.removals.json", R"(["a.txt"])"},
               {shelfFolder + "/.shelf_metadata.json",
                R"([{"urlPath":")" + shelfFolder + R"(/a.txt","addedAt":1,"expiresAt":2},)" +
                    R"({"urlPath":")" + shelfFolder + R"(/b.txt","addedAt":1,"expiresAt":2}])"}};
    start();
    ASSERT_EQ(shelf->items->size(), 1u);
    EXPECT_EQ(shelf->items->front().name, "b.txt");
    platform.runLoopPort.runPosted();
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_TRUE(isOnDisk("b.txt"));
}

TEST_F(ShelfRemovalsTest, ANameThatWasRemovedOnceMayComeAgainFromAnotherProgram) {
    addFile("a.txt");
    removeFirst();
    platform.runLoopPort.runPosted();
    files()[shelfFolder + "/a.txt"] = "theirs";
    files()[shelfFolder + "/.shelf_metadata.json"] =
        R"([{"urlPath":")" + shelfFolder + R"(/a.txt","addedAt":1,"expiresAt":2}])";
    addFile("b.txt");
    ASSERT_EQ(shelf->items->size(), 2u);
    EXPECT_EQ(shelf->items->front().name, "a.txt");
}

TEST_F(ShelfRemovalsTest, RestsOfANoteThatWasNotFinishedAreCleared) {
    auto& cleared = platform.fileSystemPort.clearedRests;
    EXPECT_EQ(std::ranges::count(cleared, shelfFolder + "/.removals.json"), 1);
}

} // namespace
} // namespace orvelle
