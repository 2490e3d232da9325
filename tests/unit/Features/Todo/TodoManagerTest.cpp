#include "Features/Todo/TodoManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string todoPath = listFolder + "todo_items.json";

class TodoManagerTest : public testing::Test {
protected:
    std::string file() {
        platform.runLoopPort.runPosted();
        return platform.fileSystemPort.files.contains(todoPath)
                   ? platform.fileSystemPort.files.at(todoPath)
                   : "<no file>";
    }
    int writes() {
        platform.runLoopPort.runPosted();
        return platform.fileSystemPort.writeCount;
    }
    static std::vector<std::string> titles(const TodoManager& manager) {
        std::vector<std::string> titles;
        for (const auto& item : manager.items.get())
            titles.push_back(item.title);
        return titles;
    }
    using Titles = std::vector<std::string>;

    SimulatedPlatform platform;
};

TEST_F(TodoManagerTest, AddingThreeBlanksChangesNothingAndWritesNothing) {
    TodoManager manager(platform);
    manager.addItem("   ");
    manager.addItem("\t\u00a0\u2003");
    EXPECT_TRUE(manager.items->empty());
    EXPECT_EQ(writes(), 0);
}

TEST_F(TodoManagerTest, ATitleWithATrailingNewLineKeepsItSinceOnlyBlanksAreCut) {
    TodoManager manager(platform);
    manager.addItem("  buy milk\n");
    EXPECT_EQ(titles(manager), Titles{"buy milk\n"});
}

TEST_F(TodoManagerTest, AMissingFileGivesAnEmptyListWithNoErrorInTheLog) {
    const TodoManager manager(platform);
    EXPECT_TRUE(manager.items->empty());
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(TodoManagerTest, AFileOfInvalidJSONGivesAnEmptyListWithTheErrorMessage) {
    platform.fileSystemPort.files[todoPath] = "[{";
    const TodoManager manager(platform);
    EXPECT_TRUE(manager.items->empty());
    ASSERT_EQ(platform.logPort.lines.size(), 1u);
    const auto& line = platform.logPort.lines[0];
    EXPECT_EQ(line.subsystem, "com.orvelle.app");
    EXPECT_EQ(line.category, "TodoManager");
    EXPECT_EQ(line.level, LogLevel::error);
    EXPECT_TRUE(line.message.starts_with("Failed to load todo items: ")) << line.message;
    EXPECT_EQ(file(), "[{") << "it stays until the next save";
}

TEST_F(TodoManagerTest, AnUnknownExtraKeyLoadsAndIsLostAtTheNextSave) {
    platform.fileSystemPort.files[todoPath] =
        R"([{"title":"a\/b","id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","due":null,)"
        R"("isCompleted":true,"createdAt":700000000.25}])";
    TodoManager manager(platform);
    EXPECT_EQ(titles(manager), Titles{"a/b"});
    EXPECT_TRUE(platform.logPort.lines.empty());
    manager.toggleItem(manager.items->front());
    EXPECT_EQ(file(), R"([{"createdAt":700000000.25,"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF",)"
                      R"("isCompleted":false,"title":"a/b"}])");
}

TEST_F(TodoManagerTest, AfterAddingAThenBTheFileHoldsAThenB) {
    TodoManager manager(platform);
    manager.addItem("A");
    manager.addItem("B");
    EXPECT_EQ(titles(manager), (Titles{"A", "B"}));
    const auto text = file();
    EXPECT_LT(text.find("\"A\""), text.find("\"B\""));
    EXPECT_EQ(titles(TodoManager(platform)), (Titles{"A", "B"}));
}

TEST_F(TodoManagerTest, TogglingTwiceReturnsToTheFirstStateAndWritesTwice) {
    TodoManager manager(platform);
    manager.addItem("A");
    const auto before = file();
    const int count = writes();
    manager.toggleItem(manager.items->front());
    manager.toggleItem(manager.items->front());
    EXPECT_EQ(file(), before);
    EXPECT_EQ(writes(), count + 2);
}

TEST_F(TodoManagerTest, ClearingCompletedItemsWhenNoneIsCompletedStillRewritesTheFile) {
    TodoManager manager(platform);
    manager.addItem("A");
    const int count = writes();
    manager.clearCompleted();
    EXPECT_EQ(writes(), count + 1);
    EXPECT_EQ(titles(manager), Titles{"A"});
}

TEST_F(TodoManagerTest, TheFileHasExactlyTheFourKeysCompactly) {
    TodoManager manager(platform);
    manager.addItem("buy milk");
    EXPECT_EQ(file(), R"([{"createdAt":790171200.0,"id":")" + manager.items->front().id.text() +
                          R"(","isCompleted":false,"title":"buy milk"}])");
}

TEST_F(TodoManagerTest, EveryKeyIsRequired) {
    const std::string whole = R"({"createdAt":1,"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF",)"
                              R"("isCompleted":false,"title":"a"})";
    ASSERT_TRUE(TodoItem::fromJson(*Json::parse(whole)));
    for (const char* key : {"createdAt", "id", "isCompleted", "title"}) {
        auto members = *Json::parse(whole)->object();
        members.erase(key);
        EXPECT_FALSE(TodoItem::fromJson(Json(members))) << key;
        members[key] = nullptr;
        EXPECT_FALSE(TodoItem::fromJson(Json(members))) << key;
    }
}

TEST_F(TodoManagerTest, ClearingCompletedKeepsTheOrderOfTheOthers) {
    TodoManager manager(platform);
    for (const char* title : {"A", "B", "C", "D"})
        manager.addItem(title);
    manager.toggleItem(manager.items.get()[1]);
    manager.toggleItem(manager.items.get()[3]);
    manager.clearCompleted();
    EXPECT_EQ(titles(manager), (Titles{"A", "C"}));
}

TEST_F(TodoManagerTest, AnItemThatIsGoneIsNotToggledAndNothingIsWritten) {
    TodoManager manager(platform);
    manager.addItem("A");
    const auto gone = manager.items->front();
    manager.removeItem(gone);
    const int count = writes();
    manager.toggleItem(gone);
    EXPECT_EQ(writes(), count);
    EXPECT_EQ(file(), "[]");
}

TEST_F(TodoManagerTest, AFailedSaveIsLoggedAndTheListStays) {
    platform.fileSystemPort.writable = false;
    TodoManager manager(platform);
    manager.addItem("A");
    EXPECT_EQ(file(), "<no file>");
    EXPECT_TRUE(platform.logPort.contains("Failed to save todo items: the disk is full"));
    EXPECT_EQ(titles(manager), Titles{"A"});
}

} // namespace
} // namespace orvelle
