#include "Features/Notes/NotesManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string notesPath = listFolder + "note_items.json";

class NotesManagerTest : public testing::Test {
protected:
    std::string file() {
        platform.runLoopPort.runPosted();
        return platform.fileSystemPort.files.contains(notesPath)
                   ? platform.fileSystemPort.files.at(notesPath)
                   : "<no file>";
    }
    static std::vector<std::string> texts(const NotesManager& manager) {
        std::vector<std::string> texts;
        for (const auto& item : manager.items.get())
            texts.push_back(item.text);
        return texts;
    }
    using Texts = std::vector<std::string>;

    SimulatedPlatform platform;
};

TEST_F(NotesManagerTest, AddingThreeBlanksChangesNothingAndWritesNothing) {
    NotesManager manager(platform);
    manager.addItem("   ");
    EXPECT_TRUE(manager.items->empty());
    EXPECT_EQ(file(), "<no file>");
}

TEST_F(NotesManagerTest, AMissingFileGivesAnEmptyListWithNoErrorInTheLog) {
    const NotesManager manager(platform);
    EXPECT_TRUE(manager.items->empty());
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(NotesManagerTest, AFileOfInvalidJSONGivesAnEmptyListWithTheErrorMessage) {
    platform.fileSystemPort.files[notesPath] = "{}";
    const NotesManager manager(platform);
    EXPECT_TRUE(manager.items->empty());
    ASSERT_EQ(platform.logPort.lines.size(), 1u);
    EXPECT_EQ(platform.logPort.lines[0].category, "NotesManager");
    EXPECT_EQ(platform.logPort.lines[0].message,
              "Failed to load note items: it is no JSON array of such items");
}

TEST_F(NotesManagerTest, AnUnknownExtraKeyLoadsAndIsLostAtTheNextSave) {
    platform.fileSystemPort.files[notesPath] =
        R"([{"color":"red","text":"x","id":"6f9619ff-8b86-d011-b42d-00c04fc964ff","createdAt":5}])";
    NotesManager manager(platform);
    EXPECT_EQ(texts(manager), Texts{"x"});
    manager.addItem("y");
    EXPECT_EQ(file(), R"([{"createdAt":790171200.0,"id":")" + manager.items->front().id.text() +
                          R"(","text":"y"},{"createdAt":5.0,)"
                          R"("id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","text":"x"}])");
}

TEST_F(NotesManagerTest, AfterAddingAThenBTheFileHoldsBThenA) {
    NotesManager manager(platform);
    manager.addItem("A");
    manager.addItem("B");
    EXPECT_EQ(texts(manager), (Texts{"B", "A"}));
    const auto text = file();
    EXPECT_LT(text.find("\"B\""), text.find("\"A\""));
    EXPECT_EQ(texts(NotesManager(platform)), (Texts{"B", "A"}));
}

TEST_F(NotesManagerTest, DeletingRemovesTheNoteAndClearingRemovesAll) {
    NotesManager manager(platform);
    for (const char* text : {"A", "B", "C"})
        manager.addItem(text);
    manager.removeItem(manager.items.get()[1]);
    EXPECT_EQ(texts(manager), (Texts{"C", "A"}));
    manager.clear();
    EXPECT_EQ(file(), "[]");
}

TEST_F(NotesManagerTest, EveryKeyIsRequired) {
    const std::string whole =
        R"({"createdAt":1,"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","text":"a"})";
    ASSERT_TRUE(NoteItem::fromJson(*Json::parse(whole)));
    for (const char* key : {"createdAt", "id", "text"}) {
        auto members = *Json::parse(whole)->object();
        members.erase(key);
        EXPECT_FALSE(NoteItem::fromJson(Json(members))) << key;
    }
}

TEST_F(NotesManagerTest, AFailedSaveIsLogged) {
    platform.fileSystemPort.writable = false;
    NotesManager manager(platform);
    manager.addItem("A");
    EXPECT_EQ(file(), "<no file>");
    EXPECT_TRUE(platform.logPort.contains("Failed to save note items: the disk is full"));
}

TEST_F(NotesManagerTest, NotesThatAnotherProgramAddedAreKept) {
    NotesManager manager(platform);
    NotesManager other(platform);
    other.addItem("theirs");
    platform.runLoopPort.runPosted();
    manager.addItem("own");
    platform.runLoopPort.runPosted();
    EXPECT_EQ(texts(manager), (Texts{"theirs", "own"}));
    EXPECT_EQ(texts(NotesManager(platform)), texts(manager));
}

TEST_F(NotesManagerTest, ARemovedNoteIsGoneAtTheNextStart) {
    NotesManager manager(platform);
    manager.addItem("a");
    manager.addItem("b");
    const auto removed = manager.items->front();
    manager.removeItem(removed);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(texts(manager), Texts{"a"});
    EXPECT_EQ(texts(NotesManager(platform)), Texts{"a"});
}

} // namespace
} // namespace orvelle
