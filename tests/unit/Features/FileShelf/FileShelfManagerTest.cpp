#include "Features/FileShelf/FileShelfManager.h"

#include "Features/FileShelf/FileShelfView.h"
#include "Foundation/FileURL.h"
#include "Foundation/Json.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Durations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace orvelle {
namespace {

const std::string folder = "/simulated/share/Orvelle/FileShelf";
const std::string listFile = folder + "/.shelf_metadata.json";

class FileShelfManagerTest : public testing::Test {
protected:
    FileShelfManagerTest() { restart(); }

    std::map<std::string, std::string>& files() { return platform.fileSystemPort.files; }
    void runPosted() { platform.runLoopPort.runPosted(); }
    void restart() {
        shelf.reset();
        shelf = std::make_unique<FileShelfManager>(platform);
    }
    /// Puts a file somewhere else and adds it to the shelf.
    void add(const std::string& path, const std::string& bytes) {
        files()[path] = bytes;
        shelf->addFile(FileURL::ofPath(path));
        runPosted();
    }
    void addMany(int count) {
        for (int number = 1; number <= count; ++number)
            add("/home/file" + std::to_string(number) + ".txt", "bytes");
    }
    std::vector<std::string> names() {
        std::vector<std::string> names;
        for (const auto& item : shelf->items.get())
            names.push_back(item.name);
        return names;
    }
    const ShelfItem& item(std::size_t index) { return shelf->items.get().at(index); }
    std::vector<std::string>& printed() { return platform.consolePort.lines; }

    SimulatedPlatform platform;
    std::unique_ptr<FileShelfManager> shelf;
};

using Names = std::vector<std::string>;

TEST_F(FileShelfManagerTest, The21stFileIsIgnoredWithoutAMessage) {
    addMany(20);
    ASSERT_EQ(shelf->items->size(), 20u);
    add("/home/one too many.txt", "bytes");
    EXPECT_EQ(shelf->items->size(), 20u);
    EXPECT_FALSE(files().contains(folder + "/one too many.txt"));
    EXPECT_TRUE(printed().empty());
}

TEST_F(FileShelfManagerTest, AnEmptySourceFileIsNotAddedAndTheCopyIsGoneAfterwards) {
    add("/home/empty.txt", "");
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(files().contains(folder + "/empty.txt"));
    EXPECT_TRUE(files().contains("/home/empty.txt"));
    EXPECT_EQ(printed(), Names{"FileShelfManager: Copy produced 0-byte file, removing"});
}

TEST_F(FileShelfManagerTest, ASecondFileOfTheSameNameReplacesTheFirstOnesContent) {
    add("/home/a/plan.txt", "old");
    add("/home/b/plan.txt", "newer");
    EXPECT_EQ(names(), (Names{"plan.txt", "plan.txt"}));
    EXPECT_EQ(item(0).url, item(1).url);
    EXPECT_EQ(files()[folder + "/plan.txt"], "newer");

    shelf->removeFile(ShelfItem(item(0)));
    runPosted();
    EXPECT_EQ(names(), Names{"plan.txt"});
    EXPECT_FALSE(files().contains(folder + "/plan.txt")) << "from under the other";
    restart();
    EXPECT_TRUE(shelf->items->empty());
}

TEST_F(FileShelfManagerTest, AnEntryWhoseFileWasDeletedIsSkippedAndStaysInTheFileUntilTheNextSave) {
    add("/home/a.txt", "a");
    add("/home/b.txt", "b");
    files().erase(folder + "/a.txt");
    restart();
    EXPECT_EQ(names(), Names{"b.txt"});
    runPosted();
    EXPECT_NE(files()[listFile].find("a.txt"), std::string::npos);
    shelf->cleanupExpired();
    runPosted();
    EXPECT_EQ(files()[listFile].find("a.txt"), std::string::npos);
}

TEST_F(FileShelfManagerTest, AfterARestartAnItem23HoursOldLastsAFurther24Hours) {
    add("/home/a.txt", "a");
    platform.runLoopPort.advance(23 * hour);
    restart();
    shelf->start();
    platform.runLoopPort.advance(23.9 * hour);
    EXPECT_EQ(names(), Names{"a.txt"});
    platform.runLoopPort.advance(0.2 * hour);
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(files().contains(folder + "/a.txt"));
}

TEST_F(FileShelfManagerTest, ATickWithNothingExpiredStillRewritesTheFile) {
    shelf->start();
    runPosted();
    const int writes = platform.fileSystemPort.writeCount;
    platform.runLoopPort.advance(299);
    EXPECT_EQ(platform.fileSystemPort.writeCount, writes);
    platform.runLoopPort.advance(1);
    EXPECT_EQ(platform.fileSystemPort.writeCount, writes + 1);
    EXPECT_EQ(files()[listFile], "[]");
}

TEST_F(FileShelfManagerTest, ADropOfSeveralFilesAddsThemInTheOrderOfArrivalUpToTheLimit) {
    addMany(18);
    std::vector<std::string> urls;
    for (const char* name : {"x.txt", "empty.txt", "y.txt", "z.txt"}) {
        files()[std::string("/home/") + name] = std::string_view(name) == "empty.txt" ? "" : "1";
        urls.push_back(FileURL::ofPath(std::string("/home/") + name));
    }
    EXPECT_TRUE(shelf->receiveDrop(urls));
    runPosted();
    ASSERT_EQ(shelf->items->size(), 20u);
    EXPECT_EQ(item(18).name, "x.txt");
    EXPECT_EQ(item(19).name, "y.txt") << "a file that is refused takes no place";
}

TEST_F(FileShelfManagerTest, AnEmptyDropIsNotTaken) {
    EXPECT_TRUE(shelf->acceptsDrops());
    EXPECT_FALSE(shelf->receiveDrop({}));
}

TEST_F(FileShelfManagerTest, CopyingDoesNotKeepTheCallerWaiting) {
    files()["/home/a.txt"] = "a";
    shelf->addFile("file:///home/a.txt");
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(files().contains(folder + "/a.txt"));
    runPosted();
    EXPECT_EQ(names(), Names{"a.txt"});
}

TEST_F(FileShelfManagerTest, AFailedCopyAddsNothingAndSaysWhy) {
    platform.fileCopierPort.failure = "The disk is full";
    add("/home/a.txt", "a");
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_EQ(printed(), Names{"FileShelfManager: Failed to copy file: The disk is full"});
}

TEST_F(FileShelfManagerTest, AnItemTellsItsFile) {
    add("/home/my report.pdf", "12345");
    ASSERT_EQ(shelf->items->size(), 1u);
    EXPECT_EQ(item(0).url, "file://" + folder + "/my%20report.pdf");
    EXPECT_EQ(item(0).name, "my report.pdf");
    EXPECT_EQ(item(0).fileType, "application/pdf");
    EXPECT_EQ(item(0).icon, "x-office-document");
    EXPECT_EQ(item(0).size, 5);
    EXPECT_EQ(item(0).addedAt, platform.runLoopPort.now());
    EXPECT_EQ(item(0).expiresAt, platform.runLoopPort.now() + 24 * hour);
}

TEST_F(FileShelfManagerTest, AnUnknownExtensionHasNoType) {
    add("/home/a.qqq", "1");
    EXPECT_FALSE(item(0).fileType.has_value());
}

TEST_F(FileShelfManagerTest, AnItemThatExpiresIsDeletedWithItsFile) {
    shelf->start();
    add("/home/a.txt", "a");
    platform.runLoopPort.advance(24 * hour);
    EXPECT_EQ(names(), Names{"a.txt"}) << "24 hours are not yet over";
    platform.runLoopPort.advance(300);
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(files().contains(folder + "/a.txt"));
    EXPECT_TRUE(files().contains("/home/a.txt"));
}

TEST_F(FileShelfManagerTest, IsCleanedUpWhateverItsSwitchSays) {
    shelf->isEnabled = false;
    shelf->start();
    add("/home/a.txt", "a");
    platform.runLoopPort.advance(24 * hour + FileShelfManager::cleanupInterval);
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_FALSE(files().contains(folder + "/a.txt"));
}

TEST_F(FileShelfManagerTest, TheListsFileHasTheKeysAndFormOfAnEncodedArray) {
    add("/home/a b.txt", "a");
    const auto added = std::to_string(static_cast<long>(item(0).addedAt.sinceReference));
    const auto expires = std::to_string(static_cast<long>(item(0).expiresAt.sinceReference));
    const auto json = Json::parse(files()[listFile]);
    EXPECT_EQ(json, Json::parse(R"([{"urlPath":")" + folder + R"(/a b.txt","addedAt":)" + added +
                                R"(.0,"expiresAt":)" + expires + ".0}]"));
}

TEST_F(FileShelfManagerTest, AListsFileOfAnotherFormIsOfNoUse) {
    const auto entry = R"({"urlPath":")" + folder + R"(/a.txt","addedAt":1,"expiresAt":2})";
    for (const auto& text :
         {std::string("not json"), std::string("{}"), "[" + entry + R"(,{"urlPath":"/x"}])",
          R"([{"urlPath":")" + folder + R"(/a.txt","addedAt":"1","expiresAt":2}])"}) {
        files() = {{listFile, text}, {folder + "/b.txt", "b"}};
        restart();
        EXPECT_EQ(names(), Names{"b.txt"}) << text << ": what lies there is adopted";
    }
    files()[folder + "/a.txt"] = "a";
    files()[listFile] = "[" + entry + "]";
    restart();
    EXPECT_EQ(names(), Names{"a.txt"}) << "the stored dates do not count";
}

TEST_F(FileShelfManagerTest, WhatLiesOutsideTheFolderIsNeverListedAndSoNeverDeleted) {
    for (const auto& path : {std::string("/home/precious.txt"), folder + "/../../precious.txt",
                             listFile, folder + "/.incoming/half.txt", folder + "/.."}) {
        files()[path] = "precious";
        files()[listFile] = R"([{"urlPath":")" + path + R"(","addedAt":1,"expiresAt":2}])";
        restart();
        EXPECT_TRUE(shelf->items->empty()) << path;
    }
}

TEST_F(FileShelfManagerTest, AnotherSpellingOfTheFolderKeepsWhatLiesInIt) {
    platform.fileCopierPort.links["/home/link"] = "/simulated/share";
    for (const std::string spelled :
         {"/simulated/share//Orvelle/FileShelf/", "/simulated//share/./Orvelle/FileShelf/",
          "/simulated/x/../share/Orvelle/FileShelf/", "/home/link/Orvelle/FileShelf/"}) {
        files() = {
            {folder + "/a.txt", "a"},
            {listFile, R"([{"urlPath":")" + spelled + R"(a.txt","addedAt":1,"expiresAt":2}])"}};
        restart();
        ASSERT_EQ(names(), Names{"a.txt"}) << spelled;
        EXPECT_EQ(item(0).url, FileURL::ofPath(folder + "/a.txt"));
        shelf->removeFile(ShelfItem(item(0)));
        runPosted();
        EXPECT_FALSE(files().contains(folder + "/a.txt")) << spelled;
    }
}

TEST_F(FileShelfManagerTest, AfterDamageOfItsListTheFilesInTheFolderAreAdopted) {
    for (const char* damage : {"", "[{", "{}"}) {
        files() = {{listFile, damage},
                   {listFile + ".corrupt.1", "["},
                   {folder + "/..shelf_metadata.json.AbC123", "["},
                   {folder + "/a.txt", "a"},
                   {folder + "/.b", "b"}};
        restart();
        EXPECT_EQ(names(), (Names{".b", "a.txt"})) << damage;
        shelf->cleanupExpired();
        runPosted();
        restart();
        EXPECT_EQ(names(), (Names{".b", "a.txt"})) << damage;
    }
}

TEST_F(FileShelfManagerTest, WithAListThatCanBeReadOtherFilesInTheFolderAreLeftAlone) {
    files() = {{listFile, "[]"}, {folder + "/a.txt", "a"}};
    restart();
    EXPECT_EQ(names(), Names{});
    files().erase(listFile);
    restart();
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(files().contains(folder + "/a.txt"));
}

TEST_F(FileShelfManagerTest, HalfCopiesOfAKilledProcessAreCleared) {
    runPosted(); // what the shelf of before had to do
    files() = {{folder + "/.incoming", "half"}};
    restart();
    runPosted();
    EXPECT_FALSE(files().contains(folder + "/.incoming"));
}

class UnusableName : public FileShelfManagerTest,
                     public testing::WithParamInterface<const char*> {};

TEST_P(UnusableName, IsRefused) {
    files()["/home/x"] = "x";
    const auto before = files();
    shelf->addFile(GetParam());
    runPosted();
    EXPECT_TRUE(shelf->items->empty());
    EXPECT_EQ(files(), before);
    EXPECT_EQ(printed().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Of, UnusableName,
                         testing::Values("file:///", "file:///home/..", "file:///home/.",
                                         "file:///home/.shelf_metadata.json",
                                         "file:///home/.shelf_metadata.json.corrupt",
                                         "file:///home/.incoming", "file:///home/.removals.json",
                                         "https://example.org/x", "/home/x", "", "file:///home/%00",
                                         "file:///home/%2"));

TEST_F(FileShelfManagerTest, AnEscapedSeparatorNamesAFileBelowAndNoPlaceAbove) {
    files()["/home/../etc/passwd"] = "root";
    shelf->addFile("file:///home/..%2Fetc%2Fpasswd");
    runPosted();
    EXPECT_EQ(names(), Names{"passwd"});
    EXPECT_TRUE(files().contains(folder + "/passwd"));
}

TEST_F(FileShelfManagerTest, ANameThatIsNoTextBecomesOne) {
    add("/home/\xff\xfe-caf\xc3\xa9.txt", "a");
    EXPECT_EQ(names(), Names{"__-caf\xc3\xa9.txt"});
    restart();
    EXPECT_EQ(names(), Names{"__-caf\xc3\xa9.txt"});
}

TEST_F(FileShelfManagerTest, EndingWhileAFileIsCopiedListsNothing) {
    files()["/home/a.txt"] = "a";
    shelf->addFile("file:///home/a.txt");
    shelf.reset();
    runPosted();
    restart();
    EXPECT_TRUE(shelf->items->empty());
}

TEST_F(FileShelfManagerTest, ARemovalThatIsFollowedByTheSameNameLeavesTheNewFile) {
    add("/home/a.txt", "old");
    shelf->removeFile(ShelfItem(item(0)));
    files()["/home/a.txt"] = "new";
    shelf->addFile("file:///home/a.txt");
    runPosted();
    EXPECT_EQ(names(), Names{"a.txt"});
    EXPECT_EQ(files()[folder + "/a.txt"], "new");
}

TEST_F(FileShelfManagerTest, AListThatCannotBeSavedIsReported) {
    platform.fileSystemPort.writable = false;
    add("/home/a.txt", "a");
    ASSERT_EQ(printed().size(), 1u);
    EXPECT_TRUE(printed().front().starts_with("FileShelfManager: Failed to save metadata: "));
    EXPECT_EQ(names(), Names{"a.txt"});
}

TEST_F(FileShelfManagerTest, ItsPanelShowsItsItems) {
    add("/home/a.txt", "a");
    EXPECT_EQ(shelf->expandedView().cells().size(), 1u);
}

TEST_F(FileShelfManagerTest, FilesThatAnotherProgramShelvedAreListedAndTheOwnStayAsTheyAre) {
    add("/home/a.txt", "a");
    const auto own = item(0).id;
    platform.runLoopPort.advance(hour);
    files()[folder + "/theirs.txt"] = "theirs";
    auto list = files()[listFile];
    list.insert(list.size() - 1,
                R"(,{"urlPath":")" + folder + R"(/theirs.txt","addedAt":1,"expiresAt":2})");
    files()[listFile] = list;
    add("/home/b.txt", "b");
    EXPECT_EQ(names(), (Names{"a.txt", "theirs.txt", "b.txt"}));
    EXPECT_EQ(item(0).id, own);
    EXPECT_EQ(item(0).expiresAt, platform.runLoopPort.now() + 23 * hour);
    EXPECT_EQ(item(1).expiresAt, platform.runLoopPort.now() + 24 * hour) << "new on this shelf";
}

TEST_F(FileShelfManagerTest, OfTwoEntriesOfOneFileEachStaysItsOwnItemInAMerge) {
    add("/home/a/plan.txt", "old");
    add("/home/b/plan.txt", "newer");
    const std::vector<UUID> own{item(0).id, item(1).id};
    files()[folder + "/theirs.txt"] = "theirs";
    auto list = files()[listFile];
    list.insert(list.size() - 1,
                R"(,{"urlPath":")" + folder + R"(/theirs.txt","addedAt":1,"expiresAt":2})");
    files()[listFile] = list;
    add("/home/b.txt", "b");
    ASSERT_EQ(names(), (Names{"plan.txt", "plan.txt", "theirs.txt", "b.txt"}));
    EXPECT_EQ((std::vector<UUID>{item(0).id, item(1).id}), own);
}

TEST_F(FileShelfManagerTest, APathThatEndsWithSlashesNamesTheSameFile) {
    for (const auto& spelled :
         {folder + "/a.txt/", std::string("/simulated/share//Orvelle/FileShelf/a.txt//")}) {
        files() = {{folder + "/a.txt", "a"},
                   {listFile, R"([{"urlPath":")" + spelled + R"(","addedAt":1,"expiresAt":2}])"}};
        restart();
        EXPECT_EQ(names(), Names{"a.txt"}) << spelled;
    }
}

TEST_F(FileShelfManagerTest, AnEntryNeedsEachOfItsKeys) {
    const std::vector<std::string> fields{R"("urlPath":")" + folder + R"(/a.txt")",
                                          R"("addedAt":1)", R"("expiresAt":2)"};
    for (std::size_t missing = 0; missing <= fields.size(); ++missing) {
        std::string entry;
        for (std::size_t index = 0; index < fields.size(); ++index)
            if (index != missing)
                entry += (entry.empty() ? "" : ",") + fields[index];
        files() = {
            {listFile, "[{" + entry + "}]"}, {folder + "/a.txt", "a"}, {folder + "/b.txt", "b"}};
        restart();
        const bool isComplete = missing == fields.size();
        EXPECT_EQ(names(), (isComplete ? Names{"a.txt"} : Names{"a.txt", "b.txt"}))
            << entry << ": what lies there is adopted when the list is of no use";
    }
}

TEST_F(FileShelfManagerTest, APathElsewhereIsNotTakenForTheShelfsFileOfThatName) {
    files() = {{"/home/a.txt", "precious"},
               {folder + "/a.txt", "a"},
               {listFile, R"([{"urlPath":"/home/a.txt","addedAt":1,"expiresAt":2}])"}};
    restart();
    EXPECT_TRUE(shelf->items->empty());
}

TEST_F(FileShelfManagerTest, ARemovalIsSavedAtOnce) {
    add("/home/a.txt", "a");
    add("/home/b.txt", "b");
    shelf->removeFile(ShelfItem(item(0)));
    runPosted();
    EXPECT_EQ(files()[listFile].find("a.txt"), std::string::npos);
    EXPECT_NE(files()[listFile].find("b.txt"), std::string::npos);
}

TEST_F(FileShelfManagerTest, TheStartItselfCleansUp) {
    add("/home/a.txt", "a");
    files().erase(folder + "/a.txt");
    restart();
    shelf->start();
    runPosted();
    EXPECT_EQ(files()[listFile], "[]");
}

TEST_F(FileShelfManagerTest, TheFolderIsMadeBeforeAnythingElse) {
    ASSERT_FALSE(platform.fileCopierPort.madeFolders.empty());
    EXPECT_EQ(platform.fileCopierPort.madeFolders.front(), folder);
}

} // namespace
} // namespace orvelle
