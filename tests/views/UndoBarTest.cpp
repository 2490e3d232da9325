#include "Foundation/FileURL.h"
#include "Views/Qt/MenuWindow.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QTest>

namespace orvelle {

class UndoBarTest : public ViewFixture {
protected:
    UndoBarTest() {
        window.requestActivate();
        for (const char* title : {"a", "b", "c"})
            todo.addItem(title);
    }
    /// Shows the panel and waits until its field has the keyboard.
    void open(ActivePanel panel) {
        show(panel);
        ASSERT_TRUE(eventually([&] { return item("field") && item("field")->hasActiveFocus(); }));
    }
    void deleteFirstRow() {
        keyboard.press(Qt::Key_Down);
        keyboard.press(Qt::Key_Delete);
        ASSERT_TRUE(item("undoBar")->isVisible());
        settle();
    }
    std::string titles() const {
        std::string joined;
        for (const auto& each : todo.items.get())
            joined += each.title;
        return joined;
    }
    bool isOnShelf(const std::string& name) {
        platform.runLoopPort.runPosted();
        return platform.fileSystemPort.files.contains(fileShelf.storageDirectory + "/" + name);
    }
    void fillShelf() {
        for (const char* name : {"a.txt", "b.txt"}) {
            platform.fileSystemPort.files[std::string("/home/") + name] = name;
            fileShelf.addFile(FileURL::ofPath(std::string("/home/") + name));
        }
        platform.runLoopPort.runPosted();
    }

    KeyboardWalk keyboard{window};
};

TEST_F(UndoBarTest, NothingIsOfferedUntilSomethingIsTakenAway) {
    open(ActivePanel::todo);
    EXPECT_FALSE(item("undoBar")->isVisible());
}

TEST_F(UndoBarTest, AClickBringsADeletedTaskBackAtItsPlace) {
    open(ActivePanel::todo);
    const auto before = todo.items.get();
    deleteFirstRow();
    EXPECT_EQ(titles(), "bc");
    EXPECT_EQ(textOf("undoText"), "Task deleted");
    picture("undo-task");
    click("undoButton");
    EXPECT_EQ(todo.items.get(), before);
    EXPECT_FALSE(item("undoBar")->isVisible());
    EXPECT_TRUE(eventually([&] { return item("entries")->property("count") == 3; }));
}

TEST_F(UndoBarTest, ItStandsBesideTheNotchAndCoversNothing) {
    open(ActivePanel::todo);
    deleteFirstRow();
    for (const double notch : {180.0, 220.0, 320.0}) {
        notchState.notchSize = Size{notch, 32};
        settle();
        const auto bar = frameOf("undoBar");
        EXPECT_LE(bar.right(), 283 - notch / 2) << notch;
        EXPECT_GE(bar.left(), 16) << "clear of the round corner";
        EXPECT_LE(bar.bottom(), frameOf("tabBar").top());
        EXPECT_TRUE(bar.contains(frameOf("undoButton"))) << notch;
        EXPECT_GT(frameOf("undoText").width(), 20) << notch;
    }
}

TEST_F(UndoBarTest, ItIsToldAndReachedWithoutAPointer) {
    open(ActivePanel::todo);
    deleteFirstRow();
    auto* bar = QAccessible::queryAccessibleInterface(item("undoBar"));
    EXPECT_EQ(bar->role(), QAccessible::AlertMessage);
    EXPECT_EQ(bar->text(QAccessible::Name), "Task deleted");
    auto* button = QAccessible::queryAccessibleInterface(item("undoButton"));
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Name), "Undo");
    ASSERT_TRUE(keyboard.leadsTo(item("undoButton"), Qt::Key_Backtab));
    EXPECT_TRUE(keyboard.canBeSeenOn(item("undoButton")));
    ASSERT_TRUE(keyboard.leadsTo(item("undoButton")));
    keyboard.press(Qt::Key_Space);
    EXPECT_EQ(titles(), "abc");
    EXPECT_TRUE(item("panels")->property("panel").value<QQuickItem*>()->hasActiveFocus())
        << "the keyboard goes back to the panel";
}

TEST_F(UndoBarTest, AnOfferThatEndsUnderTheKeyboardGivesItToThePanel) {
    open(ActivePanel::todo);
    deleteFirstRow();
    ASSERT_TRUE(keyboard.leadsTo(item("undoButton"), Qt::Key_Backtab));
    platform.runLoopPort.advance(6.1);
    turn();
    EXPECT_FALSE(item("undoBar")->isVisible());
    EXPECT_TRUE(item("panels")->property("panel").value<QQuickItem*>()->hasActiveFocus());
}

TEST_F(UndoBarTest, ItGoesAfterSixSeconds) {
    open(ActivePanel::todo);
    deleteFirstRow();
    platform.runLoopPort.advance(5.9);
    turn();
    EXPECT_TRUE(item("undoBar")->isVisible());
    platform.runLoopPort.advance(0.2);
    turn();
    EXPECT_FALSE(item("undoBar")->isVisible());
}

TEST_F(UndoBarTest, ControlAndZDoesTheSameFromTheListAndFromTheField) {
    open(ActivePanel::todo);
    deleteFirstRow();
    keyboard.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(titles(), "abc");
    open(ActivePanel::notes);
    notes.addItem("note");
    settle();
    deleteFirstRow();
    item("field")->forceActiveFocus();
    keyboard.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(notes.items->size(), 1u);
}

TEST_F(UndoBarTest, WhatIsTypedIsUndoneBeforeWhatWasDeleted) {
    open(ActivePanel::todo);
    deleteFirstRow();
    auto* field = item("field");
    field->forceActiveFocus();
    QTest::sendKeyEvent(QTest::Click, &window, Qt::Key_X, QStringLiteral("x"), Qt::NoModifier);
    ASSERT_EQ(textOf("field"), "x");
    keyboard.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(textOf("field"), "");
    EXPECT_EQ(titles(), "bc");
    keyboard.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(titles(), "abc");
}

TEST_F(UndoBarTest, AllThatIsClearedIsRedAndComesBack) {
    notes.addItem("x");
    notes.addItem("y");
    open(ActivePanel::notes);
    keyboard.press(Qt::Key_Down);
    keyboard.press(Qt::Key_Menu);
    MenuWindow* menu = nullptr;
    for (auto* shown : QGuiApplication::topLevelWindows())
        if (auto* found = qobject_cast<MenuWindow*>(shown); found && found->isVisible())
            menu = found;
    ASSERT_NE(menu, nullptr);
    const auto entries = menu->property("entries").value<MenuValue>();
    EXPECT_EQ(titlesOf(entries)[0], "Clear All Notes");
    EXPECT_TRUE(entries.entries[0].isDestructive);
    entries.perform(0);
    menu->dismiss();
    turn();
    EXPECT_TRUE(notes.items->empty());
    EXPECT_EQ(textOf("undoText"), "All notes cleared");
    click("undoButton");
    EXPECT_EQ(notes.items->size(), 2u);
}

TEST_F(UndoBarTest, ADeletedTextComesBack) {
    clipboard.start();
    platform.pasteboardPort.copy("copied");
    platform.runLoopPort.advance(0.5);
    open(ActivePanel::clipboard);
    deleteFirstRow();
    EXPECT_TRUE(clipboard.items->empty());
    click("undoButton");
    EXPECT_EQ(clipboard.items->size(), 1u);
}

TEST_F(UndoBarTest, ARemovedFileLeavesTheShelfAtOnceAndTheDiskWhenTheTimeIsOver) {
    fillShelf();
    show(ActivePanel::fileShelf);
    item("shelfGrid")->forceActiveFocus();
    keyboard.press(Qt::Key_Delete);
    EXPECT_TRUE(eventually([&] { return !item("shelfItem.a.txt"); }));
    EXPECT_EQ(textOf("undoText"), "File removed");
    EXPECT_TRUE(isOnShelf("a.txt"));
    picture("undo-file");
    platform.runLoopPort.advance(6.1);
    EXPECT_FALSE(isOnShelf("a.txt"));
    EXPECT_TRUE(isOnShelf("b.txt"));
}

TEST_F(UndoBarTest, ARemovedFileComesBackByAClick) {
    fillShelf();
    show(ActivePanel::fileShelf);
    item("shelfGrid")->forceActiveFocus();
    keyboard.press(Qt::Key_Delete);
    ASSERT_TRUE(eventually([&] { return !item("shelfItem.a.txt"); }));
    click("undoButton");
    EXPECT_TRUE(eventually([&] { return item("shelfItem.a.txt") != nullptr; }));
    platform.runLoopPort.advance(10);
    EXPECT_TRUE(isOnShelf("a.txt"));
}

TEST_F(UndoBarTest, ARemovedFileGoesAtOnceWhenTheTabIsLeft) {
    fillShelf();
    show(ActivePanel::fileShelf);
    item("shelfGrid")->forceActiveFocus();
    keyboard.press(Qt::Key_Delete);
    ASSERT_TRUE(isOnShelf("a.txt"));
    click("tab.time");
    EXPECT_FALSE(isOnShelf("a.txt"));
    EXPECT_FALSE(item("undoBar")->isVisible());
}

} // namespace orvelle
