#include "Core/ListFile.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/GatedFileSystem.h"
#include "Support/HungRunLoop.h"
#include "Support/StoredFiles.h"
#include "Support/ThreadedRunLoop.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string numbersPath = listFolder + "numbers.json";

std::optional<std::int64_t> decode(const Json& json) {
    return json.integer();
}

Json encode(std::int64_t number) {
    return number;
}

const ListCoding<std::int64_t> coding{decode, encode, ""};

class ListFileTest : public testing::Test {
protected:
    ListFile<std::int64_t>::Loading load() { return file->load(); }
    void save(std::vector<std::int64_t> numbers) { file->save(std::move(numbers)); }
    void runPosted() { platform.runLoopPort.runPosted(); }
    const UnsavedChanges::Files& unsaved() { return platform.unsavedChanges().files.get(); }
    SimulatedFileSystem& disk() { return platform.fileSystemPort; }

    SimulatedPlatform platform;
    std::vector<std::string> failures;
    std::vector<std::int64_t> merged;
    std::optional<ListFile<std::int64_t>> file{
        std::in_place, platform, "numbers.json", coding,
        ListFile<std::int64_t>::Events{
            [this](std::vector<std::int64_t> list) { merged = std::move(list); },
            [this](const std::string& reason) { failures.push_back(reason); }}};
};

TEST_F(ListFileTest, LiesInTheApplicationsFolder) {
    EXPECT_EQ(file->path(), numbersPath);
}

TEST_F(ListFileTest, AMissingFileIsAnEmptyListWithoutAProblem) {
    const auto loading = load();
    EXPECT_TRUE(loading.records.empty());
    EXPECT_EQ(loading.problem, "");
}

TEST_F(ListFileTest, WhatWasSavedIsLoaded) {
    save({3, 1, 2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[3,1,2]");
    EXPECT_EQ(load().records, (std::vector<std::int64_t>{3, 1, 2}));
}

TEST_F(ListFileTest, OneBadElementMakesTheFileUseless) {
    disk().files[numbersPath] = R"([1,"two"])";
    const auto loading = load();
    EXPECT_TRUE(loading.records.empty());
    EXPECT_EQ(loading.problem, "it is no JSON array of such items");
}

TEST_F(ListFileTest, AFileWithoutUseStaysUntilTheNextSaveWhichKeepsItAside) {
    disk().files[numbersPath] = "[1,";
    load();
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,");
    save({2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[2]");
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt.1"), "[1,");
    save({3});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt.1"), "[1,") << "only once";
    EXPECT_TRUE(failures.empty());
}

TEST_F(ListFileTest, AFileThatCannotBeKeptAsideIsNotOverwritten) {
    disk().files[numbersPath] = "[1,";
    load();
    disk().writable = false;
    save({2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,");
    EXPECT_EQ(failures,
              std::vector<std::string>{
                  "the unreadable file in its place cannot be kept aside: the disk is full"});
    disk().writable = true;
    save({2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt.1"), "[1,");
    EXPECT_EQ(disk().files.at(numbersPath), "[2]");
}

TEST_F(ListFileTest, AFileOfMoreThan64MegabytesIsNotRead) {
    disk().files[numbersPath] = "[1]" + std::string((std::size_t{64} << 20) - 2, ' ');
    EXPECT_EQ(load().problem, "it is larger than 64 MB");
    disk().files[numbersPath].pop_back();
    EXPECT_EQ(load().records, std::vector<std::int64_t>{1});
}

TEST_F(ListFileTest, AnEmptyFileIsNoList) {
    disk().files[numbersPath] = "";
    EXPECT_NE(load().problem, "");
}

TEST_F(ListFileTest, AFailedSaveIsToldAndTheNextOneTriesAgain) {
    disk().writable = false;
    save({1});
    runPosted();
    EXPECT_EQ(failures, std::vector<std::string>{"the disk is full"});
    EXPECT_EQ(unsaved(), (UnsavedChanges::Files{{numbersPath, WriteFailure::full}}));
    disk().writable = true;
    save({1, 2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,2]");
    EXPECT_EQ(failures.size(), 1u);
    EXPECT_TRUE(unsaved().empty());
    platform.runLoopPort.advance(600);
    EXPECT_EQ(disk().writeCount, 2) << "nothing is due any more";
}

TEST_F(ListFileTest, AFailedSaveIsTriedAgainAfterPausesThatGrow) {
    disk().writable = false;
    save({1});
    runPosted();
    int tries = 1;
    for (const double pause : {1, 2, 4, 8, 16, 32, 60, 60}) {
        platform.runLoopPort.advance(pause - 0.5);
        EXPECT_EQ(disk().writeCount, tries) << "before " << pause;
        platform.runLoopPort.advance(0.5);
        EXPECT_EQ(disk().writeCount, ++tries) << "after " << pause;
    }
    EXPECT_EQ(failures.size(), 1u) << "the log has it once";
    disk().refusal = WriteFailure::readOnly;
    platform.runLoopPort.advance(60);
    EXPECT_EQ(failures.back(), "the disk is read-only");
    EXPECT_EQ(unsaved().at(numbersPath), WriteFailure::readOnly);
    disk().writable = true;
    platform.runLoopPort.advance(60);
    EXPECT_EQ(disk().files.at(numbersPath), "[1]");
    EXPECT_TRUE(unsaved().empty());
}

TEST_F(ListFileTest, TheEndTriesAFailedSaveOnceMore) {
    disk().writable = false;
    save({1});
    runPosted();
    disk().writable = true;
    file.reset();
    EXPECT_EQ(disk().files.at(numbersPath), "[1]");
    EXPECT_TRUE(unsaved().empty());
}

TEST_F(ListFileTest, WhatAnotherProgramWroteIsMergedAndTold) {
    disk().files[numbersPath] = "[1,2,3]";
    load();
    disk().files[numbersPath] = "[1,3,4]";
    save({1, 2, 3, 5});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,3,4,5]");
    EXPECT_EQ(merged, (std::vector<std::int64_t>{1, 3, 4, 5}));
    merged.clear();
    save({1, 3, 4});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,3,4]");
    EXPECT_TRUE(merged.empty()) << "nobody else has written since";
}

TEST_F(ListFileTest, WhatTheDiskRefusesToTheVeryEndStaysReported) {
    disk().writable = false;
    save({1});
    runPosted();
    ASSERT_EQ(unsaved().size(), 1u);
    file.reset();
    EXPECT_EQ(unsaved().size(), 1u);
    EXPECT_EQ(failures.size(), 1u) << "one reason is told once";
}

TEST_F(ListFileTest, AFailureThatComesBackAfterASaveIsToldAgain) {
    disk().writable = false;
    save({1});
    runPosted();
    disk().writable = true;
    platform.runLoopPort.advance(600);
    ASSERT_TRUE(unsaved().empty());
    disk().writable = false;
    save({1, 2});
    runPosted();
    EXPECT_EQ(failures.size(), 2u);
}

TEST_F(ListFileTest, AfterASaveTheNextRefusalIsTriedAgainAsSoonAsTheFirst) {
    const auto firstRetry = [this](std::vector<std::int64_t> numbers) {
        disk().writable = false;
        save(std::move(numbers));
        runPosted();
        const int writes = disk().writeCount;
        int seconds = 0;
        while (disk().writeCount == writes && seconds < 600) {
            platform.runLoopPort.advance(1);
            ++seconds;
        }
        return seconds;
    };
    const int first = firstRetry({1});
    platform.runLoopPort.advance(600); // it takes ever longer pauses
    disk().writable = true;
    platform.runLoopPort.advance(600);
    ASSERT_TRUE(unsaved().empty());
    EXPECT_EQ(firstRetry({1, 2}), first);
}

TEST_F(ListFileTest, AFileThatAnotherProgramRemovedIsWrittenAgain) {
    disk().files[numbersPath] = "[1,2]";
    load();
    disk().files.erase(numbersPath);
    save({1, 2, 3});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,2,3]");
}

TEST_F(ListFileTest, AFileThatAnotherProgramDamagedIsKeptAside) {
    save({1});
    runPosted();
    disk().files[numbersPath] = "[1,";
    save({1, 2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,2]");
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt.1"), "[1,");
}

TEST_F(ListFileTest, WhatADiskTookInSpiteOfItsComplaintIsNotAnotherProgramsChange) {
    save({1});
    runPosted();
    disk().writable = false;
    save({1, 2});
    runPosted();
    disk().files[numbersPath] = "[1,2]"; // it broke after the last step
    disk().writable = true;
    save({1});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1]") << "what was removed does not come back";
}

TEST_F(ListFileTest, LoadingClearsWhatKilledSavesLeft) {
    load();
    EXPECT_EQ(disk().clearedRests, std::vector<std::string>{numbersPath});
}

TEST_F(ListFileTest, TheEndSavesWhatIsDue) {
    save({1});
    save({2});
    file.reset();
    EXPECT_EQ(disk().files.at(numbersPath), "[2]");
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[2]");
}

TEST(ListFile, IsSavedWhileOtherBackgroundWorkHangs) {
    struct : SimulatedPlatform {
        HungRunLoop loop;
        RunLoop& runLoop() override { return loop; }
    } machine;
    ListFile<std::int64_t> file(
        machine, "numbers.json", coding,
        {[](const auto&) {}, [](const std::string& reason) { FAIL() << reason; }});
    file.save({1});
    machine.loop.runPosted();
    EXPECT_EQ(machine.fileSystemPort.files[numbersPath], "[1]");
}

/// The same file on a disk that takes as long as the test wants.
class ListFileOnASlowDisk : public testing::Test {
protected:
    struct Machine : SimulatedPlatform {
        GatedFileSystem disk;
        ThreadedRunLoop loop;
        FileSystem& fileSystem() override { return disk; }
        RunLoop& runLoop() override { return loop; }
    };

    Machine machine;
    std::vector<std::string> failures;
    std::vector<std::int64_t> merged;
    std::optional<ListFile<std::int64_t>> file{
        std::in_place, machine, "numbers.json", coding,
        ListFile<std::int64_t>::Events{
            [this](std::vector<std::int64_t> list) { merged = std::move(list); },
            [this](const std::string& reason) { failures.push_back(reason); }}};
};

TEST_F(ListFileOnASlowDisk, SavingDoesNotWaitAndOnlyTheLatestListFollows) {
    machine.disk.writing.close();
    file->save({1});
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file->save({2});
    file->save({3});
    machine.disk.writing.open();
    machine.loop.isBusy = true; // so that the next save waits for this look at the file
    machine.loop.complete();
    EXPECT_EQ(machine.disk.files.at(numbersPath), "[1]");
    machine.loop.complete();
    EXPECT_EQ(machine.disk.files.at(numbersPath), "[3]");
    EXPECT_EQ(machine.disk.writeCount, 2);
}

TEST_F(ListFileOnASlowDisk, TheEndWaitsForASaveUnderWayAndSavesTheLatest) {
    machine.disk.writing.close();
    file->save({1});
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file->save({2});
    std::thread opener([this] { machine.disk.writing.open(); });
    file.reset();
    opener.join();
    EXPECT_EQ(machine.disk.files.at(numbersPath), "[2]");
    EXPECT_TRUE(failures.empty());
}

TEST_F(ListFileOnASlowDisk, AChangeDuringASaveThatMergesLosesNothing) {
    machine.disk.files[numbersPath] = "[1]";
    file->load();
    machine.disk.files[numbersPath] = "[1,7]";
    machine.disk.writing.close();
    file->save({1, 2});
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file->save({1, 2, 3});
    machine.disk.writing.open();
    machine.loop.complete();
    machine.loop.complete();
    EXPECT_EQ(machine.disk.files.at(numbersPath), "[1,7,2,3]");
    EXPECT_EQ(merged, (std::vector<std::int64_t>{1, 7, 2, 3}));
}

TEST_F(ListFileOnASlowDisk, TheEndGivesUpOnADiskThatHangs) {
    machine.disk.writing.close();
    file->save({1});
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file.reset();
    EXPECT_EQ(failures, std::vector<std::string>{"the disk does not answer"});
    machine.disk.writing.open();
    machine.loop.awaitWork();
}

} // namespace
} // namespace orvelle
