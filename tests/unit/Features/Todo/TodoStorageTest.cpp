#include "Features/Todo/TodoManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// What the task list's file holds after everything that can go wrong with a disk.
class TodoStorageTest : public testing::Test {
protected:
    using Titles = std::vector<std::string>;

    void runPosted() { platform.runLoopPort.runPosted(); }
    SimulatedFileSystem& disk() { return platform.fileSystemPort; }
    static Titles titlesOf(const std::vector<TodoItem>& items) {
        Titles titles;
        for (const auto& item : items)
            titles.push_back(item.title);
        return titles;
    }
    Titles stored() { return titlesOf(TodoManager(platform).items.get()); }

    const std::string path = listFolder + "todo_items.json";
    SimulatedPlatform platform;
};

TEST_F(TodoStorageTest, ATaskTypedWhileTheDiskIsFullIsSavedOnceSpaceReturns) {
    TodoManager todo(platform);
    disk().writable = false;
    todo.addItem("A");
    runPosted();
    disk().writable = true;
    platform.runLoopPort.advance(600);
    EXPECT_EQ(stored(), Titles{"A"});
}

TEST_F(TodoStorageTest, ATaskTypedWhileTheDiskIsFullIsSavedAtTheEnd) {
    {
        TodoManager todo(platform);
        disk().writable = false;
        todo.addItem("A");
        runPosted();
        disk().writable = true;
    }
    EXPECT_EQ(stored(), Titles{"A"});
}

TEST_F(TodoStorageTest, TasksThatAnotherProgramAddedAreKept) {
    TodoManager todo(platform);
    TodoManager other(platform);
    other.addItem("theirs");
    runPosted();
    todo.addItem("own");
    runPosted();
    EXPECT_EQ(stored(), (Titles{"theirs", "own"}));
    EXPECT_EQ(titlesOf(todo.items.get()), (Titles{"theirs", "own"}));
}

TEST_F(TodoStorageTest, ASecondDamageKeepsTheFirstOnesCopy) {
    for (const char* damage : {"[1", "[2"}) {
        disk().files[path] = damage;
        TodoManager(platform).addItem("A");
    }
    Titles kept;
    for (const auto& [name, bytes] : disk().files)
        if (name.starts_with(path + "."))
            kept.push_back(bytes);
    EXPECT_EQ(kept, (Titles{"[1", "[2"}));
}

} // namespace
} // namespace orvelle
