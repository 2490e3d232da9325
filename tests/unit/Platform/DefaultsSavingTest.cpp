#include "Platform/FileUserDefaults.h"
#include "Support/GatedFileSystem.h"
#include "Support/HungRunLoop.h"
#include "Support/StoredFiles.h"
#include "Support/ThreadedRunLoop.h"

#include <gtest/gtest.h>

#include <thread>

namespace orvelle {
namespace {

class DefaultsSaving : public testing::Test {
protected:
    DefaultsSaving() {
        fileSystem.files[settingsPath] = "{}";
        defaults = std::make_unique<FileUserDefaults>(fileSystem, runLoop, watch, log, unsaved);
        changes = defaults->observeChanges([this] { ++changeCount; });
    }
    std::string file() const { return fileSystem.files.at(settingsPath); }
    void startSave() { runLoop.advance(FileUserDefaults::saveDelay); }
    void save() {
        startSave();
        runLoop.complete();
    }
    /// Begins a save of "a" that is held up at the gate.
    void holdSave(Gate& gate) {
        gate.close();
        defaults->set("a", std::int64_t{1});
        startSave();
        ASSERT_TRUE(gate.awaitArrival());
    }
    /// Opens the gate from another thread while `wait` waits on this one.
    template <class Wait>
    void openDuring(Gate& gate, Wait wait) {
        std::thread opener([&gate] { gate.open(); });
        wait();
        opener.join();
    }

    GatedFileSystem fileSystem;
    SimulatedFileWatch watch;
    SimulatedLog log;
    UnsavedChanges unsaved;
    ThreadedRunLoop runLoop;
    std::unique_ptr<FileUserDefaults> defaults;
    Subscription changes;
    int changeCount = 0;
};

TEST_F(DefaultsSaving, ChangeDuringASaveIsSavedByTheNextOne) {
    holdSave(fileSystem.writing);
    defaults->set("a", std::int64_t{2});
    defaults->set("b", true);
    fileSystem.writing.open();
    runLoop.complete();
    EXPECT_EQ(file(), "{\n  \"a\": 1\n}\n");
    EXPECT_EQ(defaults->integer("a"), 2);
    EXPECT_TRUE(defaults->boolean("b"));
    EXPECT_EQ(changeCount, 3) << "an own save is no news";
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 2,\n  \"b\": true\n}\n");
}

TEST_F(DefaultsSaving, RemovalDuringASaveIsSavedByTheNextOne) {
    holdSave(fileSystem.writing);
    defaults->remove("a");
    fileSystem.writing.open();
    runLoop.complete();
    EXPECT_EQ(defaults->object("a"), std::nullopt);
    save();
    EXPECT_EQ(file(), "{\n}\n");
}

TEST_F(DefaultsSaving, OneSaveAtATimeIsUnderWay) {
    holdSave(fileSystem.writing);
    for (int step = 0; step < 10; ++step) {
        defaults->set("b", std::int64_t{step});
        runLoop.advance(1);
    }
    EXPECT_EQ(runLoop.detachCount, 1);
    fileSystem.writing.open();
    runLoop.complete();
    EXPECT_EQ(runLoop.detachCount, 2) << "the next save is overdue";
    runLoop.complete();
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": 9\n}\n");
    runLoop.advance(10);
    EXPECT_EQ(runLoop.detachCount, 2);
}

TEST_F(DefaultsSaving, RefusedSaveIsTriedAgainAfterPausesThatGrow) {
    fileSystem.writable = false;
    holdSave(fileSystem.writing);
    fileSystem.writing.open();
    runLoop.complete();
    const std::string path = DefaultsStorage::path(fileSystem);
    EXPECT_EQ(unsaved.files.get(), (UnsavedChanges::Files{{path, WriteFailure::full}}));
    int tries = 1;
    for (const double pause : {1, 2, 4, 8, 16, 32, 60, 60}) {
        runLoop.advance(pause - 0.01);
        EXPECT_EQ(runLoop.detachCount, tries) << "before " << pause;
        runLoop.advance(0.02);
        EXPECT_EQ(runLoop.detachCount, ++tries) << "after " << pause;
        runLoop.complete();
    }
    EXPECT_EQ(log.lines.size(), 1u);
    fileSystem.writable = true;
    runLoop.advance(60);
    runLoop.complete();
    EXPECT_EQ(file(), "{\n  \"a\": 1\n}\n");
    EXPECT_TRUE(unsaved.files->empty());
}

TEST_F(DefaultsSaving, RefusedSaveIsTriedAgainAtTheNextChange) {
    fileSystem.writable = false;
    holdSave(fileSystem.writing);
    fileSystem.writing.open();
    runLoop.complete();
    fileSystem.writable = true;
    defaults->set("b", true);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": true\n}\n");
    EXPECT_TRUE(unsaved.files->empty());
    runLoop.advance(600);
    EXPECT_EQ(runLoop.detachCount, 2) << "nothing is due any more";
}

TEST_F(DefaultsSaving, OutsideWriteBeforeTheSaveReadsIsNotLost) {
    holdSave(fileSystem.locking);
    fileSystem.files[settingsPath] = R"({"a": 5, "b": 5})";
    fileSystem.locking.open();
    runLoop.complete();
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": 5\n}\n");
    EXPECT_EQ(defaults->integer("b"), 5);
    EXPECT_EQ(changeCount, 2) << "the value taken over is news to the observers";
}

TEST_F(DefaultsSaving, OutsideWriteBeforeTheSaveCompletesIsNotLost) {
    holdSave(fileSystem.writing);
    defaults->set("c", std::int64_t{3});
    fileSystem.writing.open();
    runLoop.awaitWork();
    fileSystem.files[settingsPath] = R"({"a": 5, "b": 5, "c": 5})";
    watch.notifyChanged();
    runLoop.complete(); // of the save
    EXPECT_EQ(defaults->integer("a"), 1);
    runLoop.complete(); // of the reading
    EXPECT_EQ(defaults->integer("a"), 5);
    EXPECT_EQ(defaults->integer("b"), 5);
    EXPECT_EQ(defaults->integer("c"), 3);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 5,\n  \"b\": 5,\n  \"c\": 3\n}\n");
}

TEST_F(DefaultsSaving, ChangeDuringAReadingIsNotUndone) {
    fileSystem.files[settingsPath] = R"({"a": 5, "b": 5})";
    fileSystem.reading.close();
    watch.notifyChanged();
    ASSERT_TRUE(fileSystem.reading.awaitArrival());
    defaults->set("a", std::int64_t{1});
    fileSystem.reading.open();
    runLoop.complete();
    EXPECT_EQ(defaults->integer("a"), 1);
    EXPECT_EQ(defaults->integer("b"), 5);
}

TEST_F(DefaultsSaving, OutsideEditsDuringAReadingAreReadTogether) {
    fileSystem.reading.close();
    watch.notifyChanged();
    ASSERT_TRUE(fileSystem.reading.awaitArrival());
    for (int edit = 0; edit < 5; ++edit)
        watch.notifyChanged();
    fileSystem.reading.open();
    runLoop.awaitWork();
    fileSystem.files[settingsPath] = R"({"a": 5})";
    runLoop.complete();
    runLoop.complete();
    EXPECT_EQ(defaults->integer("a"), 5);
    EXPECT_EQ(runLoop.detachCount, 2);
}

TEST_F(DefaultsSaving, FlushDuringASaveSavesEverything) {
    holdSave(fileSystem.writing);
    defaults->set("a", std::int64_t{2});
    openDuring(fileSystem.writing, [this] { defaults->flush(); });
    EXPECT_EQ(file(), "{\n  \"a\": 2\n}\n");
    EXPECT_EQ(fileSystem.writeCount, 2);
    runLoop.complete();
    runLoop.advance(10);
    EXPECT_EQ(runLoop.detachCount, 1) << "nothing is left to save";
}

TEST_F(DefaultsSaving, FlushGivesUpOnADiskThatHangs) {
    holdSave(fileSystem.writing);
    defaults->flush();
    EXPECT_EQ(log.lines.size(), 1u);
    fileSystem.writing.open();
    runLoop.complete();
    EXPECT_EQ(file(), "{\n  \"a\": 1\n}\n");
}

TEST_F(DefaultsSaving, FlushDoesNotWaitForABackgroundThatHasNotBegun) {
    runLoop.isBusy = true;
    defaults->set("a", true);
    startSave();
    defaults->flush();
    EXPECT_EQ(file(), "{\n  \"a\": true\n}\n");
    EXPECT_TRUE(log.lines.empty());
    runLoop.complete();
    EXPECT_EQ(fileSystem.writeCount, 1);
    EXPECT_EQ(changeCount, 1);
}

TEST_F(DefaultsSaving, OwnerThatGoesDuringASaveLeavesEverythingSaved) {
    holdSave(fileSystem.writing);
    defaults->set("b", true);
    openDuring(fileSystem.writing, [this] { defaults.reset(); });
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": true\n}\n");
    runLoop.complete();
    runLoop.advance(10);
    EXPECT_EQ(runLoop.detachCount, 1);
    EXPECT_EQ(changeCount, 2);
}

TEST_F(DefaultsSaving, OwnerThatGoesDuringAReadingDoesNotWaitForIt) {
    fileSystem.files[settingsPath] = R"({"a": 5})";
    fileSystem.reading.close();
    watch.notifyChanged();
    ASSERT_TRUE(fileSystem.reading.awaitArrival());
    defaults.reset();
    EXPECT_TRUE(fileSystem.reading.isReached());
    fileSystem.reading.open();
    runLoop.complete();
    EXPECT_EQ(changeCount, 0);
}

TEST(FileUserDefaults, AreSavedWhileOtherBackgroundWorkHangs) {
    SimulatedFileSystem fileSystem;
    SimulatedFileWatch watch;
    SimulatedLog log;
    UnsavedChanges unsaved;
    HungRunLoop runLoop;
    FileUserDefaults defaults(fileSystem, runLoop, watch, log, unsaved);
    defaults.set("a", true);
    runLoop.advance(FileUserDefaults::saveDelay);
    EXPECT_EQ(fileSystem.files[settingsPath], "{\n  \"a\": true\n}\n");
}

} // namespace
} // namespace orvelle
