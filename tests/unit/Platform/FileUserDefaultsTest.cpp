#include "Platform/FileUserDefaults.h"

#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvelle {
namespace {

const std::string aside = settingsPath + ".corrupt.1";

class FileUserDefaultsTest : public testing::Test {
protected:
    std::unique_ptr<FileUserDefaults> open() {
        auto defaults =
            std::make_unique<FileUserDefaults>(fileSystem, runLoop, watch, log, unsaved);
        changes = defaults->observeChanges([this] { ++changeCount; });
        return defaults;
    }
    std::string file() const { return fileSystem.files.at(settingsPath); }
    /// As an editor or another process does.
    void writeOutside(const std::string& text) {
        fileSystem.files[settingsPath] = text;
        noticeChange();
    }
    void noticeChange() {
        watch.notifyChanged();
        runLoop.runPosted();
    }
    void save() { runLoop.advance(FileUserDefaults::saveDelay); }

    SimulatedFileSystem fileSystem;
    SimulatedRunLoop runLoop;
    SimulatedFileWatch watch;
    SimulatedLog log;
    UnsavedChanges unsaved;
    Subscription changes;
    int changeCount = 0;
};

TEST_F(FileUserDefaultsTest, EveryTypeReadsBackAsItWasWritten) {
    const std::vector<std::pair<std::string, DefaultsValue>> values{
        {"boolean", true},
        {"double", 0.1},
        {"wholeDouble", 5.0},
        {"largeDouble", 1e22},
        {"negativeZero", -0.0},
        {"integer", std::int64_t{5}},
        {"largest", std::numeric_limits<std::int64_t>::max()},
        {"string", std::string("Zürich \"quoted\"\n")},
        {"empty", std::string()},
        {"date", Date{790171200.25}},
        {"data", Data{0, 1, 254, 255}},
        {"noData", Data{}},
    };
    open(); // saves nothing
    {
        const auto defaults = open();
        for (const auto& [key, value] : values)
            defaults->set(key, value);
    }
    const auto defaults = open();
    for (const auto& [key, value] : values)
        EXPECT_EQ(defaults->object(key), value) << key << " in " << file();
    EXPECT_EQ(defaults->keys().size(), values.size());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(FileUserDefaultsTest, FileHasOneReadableSettingALine) {
    auto defaults = open();
    defaults->set("b", 5.0);
    defaults->set("a", Date{1});
    defaults->set("c", Data{1, 2});
    defaults->flush();
    EXPECT_EQ(file(),
              "{\n  \"a\": {\"$date\":1.0},\n  \"b\": 5.0,\n  \"c\": {\"$data\":\"AQI=\"}\n}\n");
}

TEST_F(FileUserDefaultsTest, ChangesOfOneMomentAreWrittenTogetherSoonAfter) {
    const auto defaults = open();
    defaults->set("a", true);
    defaults->set("b", true);
    EXPECT_TRUE(defaults->boolean("a"));
    EXPECT_EQ(changeCount, 2);
    EXPECT_EQ(fileSystem.writeCount, 0);
    runLoop.advance(0.1);
    EXPECT_EQ(fileSystem.writeCount, 1);
    runLoop.advance(10);
    EXPECT_EQ(fileSystem.writeCount, 1);
}

TEST_F(FileUserDefaultsTest, SteadyChangesDoNotPutTheWritingOff) {
    const auto defaults = open();
    for (int step = 0; step < 20; ++step) {
        defaults->set("slider", step * 0.5);
        runLoop.advance(0.01);
    }
    EXPECT_GE(fileSystem.writeCount, 3);
}

TEST_F(FileUserDefaultsTest, AnEqualValueIsNotWrittenAgain) {
    const auto defaults = open();
    defaults->set("a", true);
    save();
    defaults->set("a", true);
    save();
    EXPECT_EQ(fileSystem.writeCount, 1);
}

TEST_F(FileUserDefaultsTest, ReadsNeverTouchTheDisk) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    fileSystem.files.clear();
    EXPECT_EQ(defaults->integer("a"), 1);
}

TEST_F(FileUserDefaultsTest, FlushWritesAtOnce) {
    const auto defaults = open();
    defaults->set("a", true);
    defaults->flush();
    EXPECT_EQ(fileSystem.writeCount, 1);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(FileUserDefaultsTest, RemovedKeyIsUnsetAndLeavesTheFile) {
    fileSystem.files[settingsPath] = R"({"a": 1, "b": 2})";
    const auto defaults = open();
    defaults->remove("a");
    defaults->remove("never set");
    EXPECT_EQ(defaults->object("a"), std::nullopt);
    EXPECT_EQ(changeCount, 1);
    save();
    EXPECT_EQ(file(), "{\n  \"b\": 2\n}\n");
}

TEST_F(FileUserDefaultsTest, NumberThatIsNotFiniteUnsetsItsKey) {
    const auto defaults = open();
    defaults->set("a", 1.0);
    defaults->set("a", std::nan(""));
    EXPECT_EQ(defaults->object("a"), std::nullopt);
}

TEST_F(FileUserDefaultsTest, OutsideEditTakesEffectAtOnceAndNotifies) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    writeOutside(R"({"a": 2})");
    EXPECT_EQ(defaults->integer("a"), 2);
    EXPECT_EQ(changeCount, 1);
}

TEST_F(FileUserDefaultsTest, OutsideEditWithoutAnyDifferenceDoesNotNotify) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    writeOutside("{ \"a\" : 1 }\n");
    EXPECT_EQ(changeCount, 0);
}

TEST_F(FileUserDefaultsTest, OwnWriteDoesNotEcho) {
    const auto defaults = open();
    defaults->set("a", 0.1);
    save();
    noticeChange();
    EXPECT_EQ(changeCount, 1);
}

TEST_F(FileUserDefaultsTest, OutsideEditOfOtherKeysSurvivesAnOwnWrite) {
    fileSystem.files[settingsPath] = R"({"a": 1, "b": 1, "c": 1})";
    const auto defaults = open();
    defaults->set("a", std::int64_t{2});
    fileSystem.files[settingsPath] = R"({"a": 1, "b": 3, "d": 4})"; // not noticed yet
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 2,\n  \"b\": 3,\n  \"d\": 4\n}\n");
    EXPECT_EQ(defaults->integer("b"), 3);
    EXPECT_EQ(defaults->object("c"), std::nullopt);
    EXPECT_EQ(changeCount, 2) << "the values taken over are news to the observers";
}

TEST_F(FileUserDefaultsTest, OutsideEditDoesNotUndoAChangeThatIsNotWrittenYet) {
    const auto defaults = open();
    defaults->set("a", std::int64_t{2});
    writeOutside(R"({"a": 1, "b": 1})");
    EXPECT_EQ(defaults->integer("a"), 2);
    EXPECT_EQ(defaults->integer("b"), 1);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 2,\n  \"b\": 1\n}\n");
}

TEST_F(FileUserDefaultsTest, WaitsWhileAnotherProcessWrites) {
    const auto defaults = open();
    fileSystem.lockedElsewhere = true;
    defaults->set("a", true);
    runLoop.advance(0.2);
    EXPECT_EQ(fileSystem.writeCount, 0);
    fileSystem.lockedElsewhere = false;
    save();
    EXPECT_EQ(fileSystem.writeCount, 1);
}

TEST_F(FileUserDefaultsTest, WritesAfterAllWhenTheOtherProcessHangs) {
    const auto defaults = open();
    fileSystem.lockedElsewhere = true;
    defaults->set("a", true);
    runLoop.advance(2);
    EXPECT_EQ(fileSystem.writeCount, 1);
}

TEST_F(FileUserDefaultsTest, MissingFileStartsEmptyWithoutALine) {
    const auto defaults = open();
    EXPECT_TRUE(defaults->keys().empty());
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(fileSystem.files.empty());
}

TEST_F(FileUserDefaultsTest, EmptyFileStartsEmptyWithOneLine) {
    fileSystem.files[settingsPath] = "";
    fileSystem.files[aside] = "precious";
    const auto defaults = open();
    defaults->set("a", true);
    runLoop.advance(5); // an editor that is about to fill the file would have by then
    EXPECT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(fileSystem.files[aside], "precious") << "an empty file is not worth keeping";
    EXPECT_EQ(file(), "{\n  \"a\": true\n}\n");
}

class UnusableFile : public FileUserDefaultsTest,
                     public testing::WithParamInterface<std::string> {};

TEST_P(UnusableFile, IsKeptAsideAndLoggedInOneLine) {
    fileSystem.files[settingsPath] = GetParam();
    const auto defaults = open();
    EXPECT_TRUE(defaults->keys().empty());
    EXPECT_EQ(fileSystem.files[aside], GetParam());
    defaults->set("a", true);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": true\n}\n");
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines[0].level, LogLevel::error);
    EXPECT_NE(log.lines[0].message.find(settingsPath), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Kinds, UnusableFile,
                         testing::Values("{\"half\": tr", "not JSON", "[1, 2]", "42", "   ",
                                         std::string("{}\0", 3), "{\"a\": \"\xFF\"}",
                                         std::string(5'000'000, ' ') + "{}",
                                         std::string(100'000, '[')));

TEST_F(FileUserDefaultsTest, FileOfExactlyTheMaximumSizeIsRead) {
    std::string text = R"({"a": 1})";
    text.resize(DefaultsFile::maximumSize, ' ');
    fileSystem.files[settingsPath] = text;
    EXPECT_EQ(open()->integer("a"), 1);
}

TEST_F(FileUserDefaultsTest, ValuesOfAnUnknownKindStayInTheFileUntouched) {
    fileSystem.files[settingsPath] =
        R"({"good": 1, "list": [1, 2], "none": null, "odd": {"$date": "soon"}, "old": 1})";
    const auto defaults = open();
    EXPECT_EQ(defaults->keys(), (std::vector<std::string>{"good", "old"}));
    EXPECT_EQ(defaults->object("list"), std::nullopt);
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].message.find("list, none, odd"), std::string::npos);
    defaults->set("good", std::int64_t{2});
    defaults->remove("old");
    save();
    EXPECT_EQ(file(), "{\n  \"good\": 2,\n  \"list\": [1,2],\n  \"none\": null,\n"
                      "  \"odd\": {\"$date\":\"soon\"}\n}\n");
    noticeChange();
    EXPECT_EQ(log.lines.size(), 1u);
    EXPECT_FALSE(fileSystem.files.contains(aside));
}

TEST_F(FileUserDefaultsTest, DiskThatRefusesIsLoggedOnceAndTheValuesHold) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    fileSystem.writable = false;
    const auto defaults = open();
    defaults->set("a", std::int64_t{2});
    save();
    defaults->set("b", true);
    save();
    EXPECT_EQ(defaults->integer("a"), 2);
    EXPECT_EQ(file(), R"({"a": 1})");
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(FileUserDefaultsTest, RefusedWriteIsMadeUpForByTheNextOne) {
    fileSystem.writable = false;
    const auto defaults = open();
    defaults->set("a", true);
    save();
    fileSystem.writable = true;
    defaults->set("b", true);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": true,\n  \"b\": true\n}\n");
}

TEST_F(FileUserDefaultsTest, UnusableFileInAReadOnlyFolderStaysAndIsLoggedOnce) {
    fileSystem.files[settingsPath] = "not JSON";
    fileSystem.writable = false;
    const auto defaults = open();
    defaults->set("a", true);
    runLoop.advance(5);
    EXPECT_TRUE(defaults->boolean("a"));
    EXPECT_EQ(file(), "not JSON");
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(FileUserDefaultsTest, HalfAnOutsideEditChangesNothingUntilItIsWhole) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    writeOutside(R"({"a": )");
    writeOutside(R"({"a": )");
    EXPECT_EQ(defaults->integer("a"), 1);
    EXPECT_EQ(log.lines.size(), 1u);
    writeOutside(R"({"a": 2})");
    EXPECT_EQ(defaults->integer("a"), 2);
    EXPECT_EQ(changeCount, 1);
    EXPECT_FALSE(fileSystem.files.contains(aside));
}

TEST_F(FileUserDefaultsTest, OwnWriteWaitsForHalfAnOutsideEditToBecomeWhole) {
    const auto defaults = open();
    writeOutside(R"({"a": )");
    defaults->set("b", true);
    runLoop.advance(0.2);
    EXPECT_EQ(file(), R"({"a": )");
    writeOutside(R"({"a": 1})");
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": true\n}\n");
}

TEST_F(FileUserDefaultsTest, OutsideEditThatStaysBrokenIsKeptAsideAndAllValuesAreWritten) {
    fileSystem.files[settingsPath] = R"({"a": 1, "list": []})";
    const auto defaults = open();
    writeOutside("broken");
    defaults->set("b", true);
    runLoop.advance(5);
    EXPECT_EQ(fileSystem.files[aside], "broken");
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": true,\n  \"list\": []\n}\n");
}

TEST_F(FileUserDefaultsTest, VanishedFileChangesNothingAndComesBackWhole) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    fileSystem.files.clear();
    noticeChange();
    EXPECT_EQ(defaults->integer("a"), 1);
    EXPECT_EQ(changeCount, 0);
    defaults->set("b", true);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": 1,\n  \"b\": true\n}\n");
}

TEST_F(FileUserDefaultsTest, MoreThanTheMaximumSizeIsKeptInMemoryOnly) {
    fileSystem.files[settingsPath] = R"({"a": 1})";
    const auto defaults = open();
    defaults->set("huge", Data(DefaultsFile::maximumSize));
    save();
    EXPECT_EQ(file(), R"({"a": 1})");
    EXPECT_EQ(defaults->data("huge")->size(), DefaultsFile::maximumSize);
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(FileUserDefaultsTest, ObserverMayChangeASettingWhileCalled) {
    const auto defaults = open();
    const auto reaction = defaults->observeChanges([&] {
        if (!defaults->boolean("b"))
            defaults->set("b", true);
    });
    defaults->set("a", true);
    save();
    EXPECT_EQ(file(), "{\n  \"a\": true,\n  \"b\": true\n}\n");
}

} // namespace
} // namespace orvelle
