#include "Extensions/ColorTheme.h"
#include "Features/Notes/NotesExpandedView.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Todo/TodoExpandedView.h"
#include "Features/Todo/TodoManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class EntryListTest : public testing::Test {
protected:
    SimulatedPlatform platform;
    TodoManager todo{platform};
    NotesManager notes{platform};
    UndoOffer undo{platform.runLoopPort};
    TodoExpandedView todoView{todo, &undo};
    NotesExpandedView notesView{notes, platform, &undo};
};

TEST_F(EntryListTest, ATaskCanBeDoneAndACompletedOneUndone) {
    todoView.add("a");
    auto row = todoView.rows().front();
    EXPECT_EQ(row.button, (StyledSymbol{"circle", 14, notchTertiary}));
    EXPECT_EQ(row.leading, (SwipeAction{"Done", "checkmark.circle.fill", colors::green}));
    EXPECT_FALSE(row.isStruckThrough);
    todoView.performLeading(row.id);
    row = todoView.rows().front();
    EXPECT_EQ(row.button, (StyledSymbol{"checkmark.circle.fill", 14, colors::green}));
    EXPECT_EQ(row.leading, (SwipeAction{"Undo", "arrow.uturn.backward", colors::orange}));
    EXPECT_EQ(row.text.style.color, notchTertiary);
    EXPECT_TRUE(row.isStruckThrough);
    EXPECT_EQ(row.trailing.label, "Delete");
    todoView.performTrailing(row.id);
    EXPECT_TRUE(todo.items->empty());
}

TEST_F(EntryListTest, ClearCompletedIsOfferedOnlyWhileSomeTaskIsCompleted) {
    todoView.add("a");
    todoView.add("b");
    EXPECT_TRUE(todoView.contextMenu().empty());
    todoView.performLeading(todo.items->front().id);
    ASSERT_EQ(todoView.contextMenu().size(), 1u);
    EXPECT_EQ(todoView.contextMenu()[0].title, "Clear Completed");
    todoView.contextMenu()[0].perform();
    EXPECT_EQ(todo.items->size(), 1u);
}

TEST_F(EntryListTest, ANoteIsCopiedAndRemovedAndAllAreCleared) {
    notesView.add("a");
    notesView.add("b");
    const auto row = notesView.rows().back();
    EXPECT_EQ(row.leading, (SwipeAction{"Copy", "doc.on.doc", colors::blue}));
    EXPECT_EQ(row.help, "Copy to clipboard");
    notesView.performLeading(row.id);
    EXPECT_EQ(platform.pasteboardPort.text, "a");
    notesView.performTrailing(row.id);
    EXPECT_EQ(notesView.rows().size(), 1u);
    ASSERT_EQ(notesView.contextMenu().size(), 1u);
    EXPECT_EQ(notesView.contextMenu()[0].title, "Clear All Notes");
    notesView.contextMenu()[0].perform();
    EXPECT_TRUE(notes.items->empty());
}

TEST_F(EntryListTest, OnlyATextCanBeAdded) {
    EXPECT_FALSE(EntryList::canAdd(" \t "));
    EXPECT_TRUE(EntryList::canAdd(" a "));
}

TEST_F(EntryListTest, ANotesRowHasItsTextItsButtonBehindItAndADelete) {
    notesView.add("a");
    const auto row = notesView.rows().front();
    EXPECT_EQ(row.text, (StyledText{"a", {12, FontWeight::regular, colors::white}}));
    EXPECT_EQ(row.button, (StyledSymbol{"doc.on.doc", 11, colors::white}));
    EXPECT_EQ(row.buttonPlace, EntryList::ButtonPlace::behindText);
    EXPECT_EQ(row.trailing, (SwipeAction{"Delete", "trash.fill", colors::red}));
}

TEST_F(EntryListTest, ATasksButtonSaysWhatItDoes) {
    todoView.add("a");
    const auto open = todoView.rows().front();
    EXPECT_EQ(open.text, (StyledText{"a", {12, FontWeight::regular, colors::white}}));
    EXPECT_EQ(open.help, "Done");
    todoView.performLeading(open.id);
    EXPECT_EQ(todoView.rows().front().help, "Undo");
}

} // namespace
} // namespace orvelle
