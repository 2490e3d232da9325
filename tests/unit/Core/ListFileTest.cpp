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

class ListFileTest : public testing::Test {
protected:
    ListFile::Loading<std::int64_t> load() { return file->load<std::int64_t>(decode); }
    void save(std::vector<std::int64_t> numbers) { file->save(std::move(numbers), encode); }
    void runPosted() { platform.runLoopPort.runPosted(); }
    SimulatedFileSystem& disk() { return platform.fileSystemPort; }

    SimulatedPlatform platform;
    std::vector<std::string> failures;
    std::optional<ListFile> file{std::in_place, platform, "numbers.json",
                                 [this](const std::string& reason) { failures.push_back(reason); }};
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
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt"), "[1,");
    save({3});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt"), "[1,") << "only once";
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
              std::vector<std::string>{"the unreadable file in its place cannot be kept aside"});
    disk().writable = true;
    save({2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath + ".corrupt"), "[1,");
    EXPECT_EQ(disk().files.at(numbersPath), "[2]");
}

TEST_F(ListFileTest, AnEmptyFileIsNoList) {
    disk().files[numbersPath] = "";
    EXPECT_NE(load().problem, "");
}

TEST_F(ListFileTest, AFailedSaveIsToldAndTheNextOneTriesAgain) {
    disk().writable = false;
    save({1});
    runPosted();
    EXPECT_EQ(failures, std::vector<std::string>{"the file cannot be written"});
    disk().writable = true;
    save({1, 2});
    runPosted();
    EXPECT_EQ(disk().files.at(numbersPath), "[1,2]");
    EXPECT_EQ(failures.size(), 1u);
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
    ListFile file(machine, "numbers.json", [](const std::string& reason) { FAIL() << reason; });
    file.save(std::vector<std::int64_t>{1}, encode);
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
    std::optional<ListFile> file{std::in_place, machine, "numbers.json",
                                 [this](const std::string& reason) { failures.push_back(reason); }};
};

TEST_F(ListFileOnASlowDisk, SavingDoesNotWaitAndOnlyTheLatestListFollows) {
    machine.disk.writing.close();
    file->save(std::vector<std::int64_t>{1}, encode);
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file->save(std::vector<std::int64_t>{2}, encode);
    file->save(std::vector<std::int64_t>{3}, encode);
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
    file->save(std::vector<std::int64_t>{1}, encode);
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file->save(std::vector<std::int64_t>{2}, encode);
    std::thread opener([this] { machine.disk.writing.open(); });
    file.reset();
    opener.join();
    EXPECT_EQ(machine.disk.files.at(numbersPath), "[2]");
    EXPECT_TRUE(failures.empty());
}

TEST_F(ListFileOnASlowDisk, TheEndGivesUpOnADiskThatHangs) {
    machine.disk.writing.close();
    file->save(std::vector<std::int64_t>{1}, encode);
    ASSERT_TRUE(machine.disk.writing.awaitArrival());
    file.reset();
    EXPECT_EQ(failures, std::vector<std::string>{"the disk does not answer"});
    machine.disk.writing.open();
    machine.loop.awaitWork();
}

} // namespace
} // namespace orvelle
