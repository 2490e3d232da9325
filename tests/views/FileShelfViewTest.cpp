#include "Features/FileShelf/FileShelfBinding.h"
#include "Foundation/FileURL.h"
#include "Views/Qt/MenuWindow.h"
#include "views/ViewFixture.h"

#include <QDrag>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>

namespace orvelle {

class FileShelfPanelTest : public ViewFixture {
protected:
    void add(const std::vector<std::string>& names) {
        for (const auto& name : names) {
            platform.fileSystemPort.files["/home/" + name] = name;
            fileShelf.addFile(FileURL::ofPath("/home/" + name));
        }
        platform.runLoopPort.runPosted();
        turn();
    }
    void showWith(const std::vector<std::string>& names) {
        platform.sharePickerPort.keyWindow = Rect{{0, 0}, {566, 220}};
        add(names);
        show(ActivePanel::fileShelf);
    }
    std::string urlOf(std::size_t index) { return fileShelf.items.get().at(index).url; }
    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
        const bool isDown = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, window.mapToGlobal(at), button,
                          isDown ? Qt::MouseButtons(button) : Qt::NoButton, Qt::NoModifier);
        event.setTimestamp(++time_);
        QCoreApplication::sendEvent(&window, &event);
    }
    void doubleClick(const QString& objectName) {
        const auto at = frameOf(objectName).center();
        for (int count = 0; count < 2; ++count) {
            mouse(QEvent::MouseButtonPress, at);
            mouse(QEvent::MouseButtonRelease, at);
        }
        turn();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&window, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers);
        QCoreApplication::sendEvent(&window, &release);
        turn();
    }
    void focusGrid() {
        window.requestActivate();
        turn();
        item("shelfGrid")->forceActiveFocus();
    }
    static MenuWindow* openMenu() {
        for (auto* shown : QGuiApplication::topLevelWindows())
            if (auto* menu = qobject_cast<MenuWindow*>(shown); menu && menu->isVisible())
                return menu;
        return nullptr;
    }

private:
    unsigned long time_ = 1000;
};

TEST_F(FileShelfPanelTest, anEmptyShelfIsAPlaceToDrop) {
    show(ActivePanel::fileShelf);
    EXPECT_EQ(textOf("emptyText"), "Drop files here");
    const auto outline = frameOf("dropOutline");
    EXPECT_EQ(outline.height(), 80);
    EXPECT_EQ(outline.left(), 12 + 12);
    EXPECT_EQ(outline.width(), 542 - 24);
    EXPECT_EQ(item("shareAll"), nullptr);
    picture("shelf-empty");
    const auto quiet = item("dropOutline")->property("color");
    notchState.isDragSessionActive = true;
    turn();
    EXPECT_NE(item("dropOutline")->property("color"), quiet);
    picture("shelf-empty-drag");
}

TEST_F(FileShelfPanelTest, filesStandInSevenColumns) {
    showWith({"1.txt", "2.pdf", "3.png", "4.mp3", "5.zip", "6.txt", "7.txt", "8.txt"});
    const auto first = frameOf("shelfItem.1.txt");
    const auto second = frameOf("shelfItem.2.pdf");
    EXPECT_EQ(first.left(), 12 + 8);
    EXPECT_NEAR(first.width(), (526 - 6 * 8) / 7.0, 0.01);
    EXPECT_NEAR(second.left() - first.right(), 8, 0.01);
    EXPECT_EQ(frameOf("shelfItem.7.txt").top(), first.top());
    EXPECT_NEAR(frameOf("shelfItem.7.txt").right(), 566 - 20, 0.1);
    const auto below = frameOf("shelfItem.8.txt");
    EXPECT_EQ(below.left(), first.left());
    EXPECT_NEAR(below.top() - first.bottom(), 12, 0.01);
    picture("shelf");
}

TEST_F(FileShelfPanelTest, aCellIsItsIconOverItsName) {
    showWith({"a name that is far too long for its cell.txt"});
    const auto cell = frameOf("shelfItem.a name that is far too long for its cell.txt");
    const auto icon = frameOf("icon");
    const auto name = frameOf("name");
    EXPECT_EQ(icon.size(), QSizeF(40, 40));
    EXPECT_EQ(icon.top() - cell.top(), 4);
    EXPECT_NEAR(icon.center().x(), cell.center().x(), 0.6);
    EXPECT_EQ(name.top() - icon.bottom(), 4);
    EXPECT_EQ(item("name")->width(), 60);
    EXPECT_NEAR(cell.bottom() - name.bottom(), 4, 1);
    EXPECT_TRUE(item("name")->property("truncated").toBool());
}

TEST_F(FileShelfPanelTest, aDoubleClickOpensAndASingleOneDoesNot) {
    showWith({"a.txt", "b.txt"});
    click("shelfItem.a.txt");
    EXPECT_TRUE(platform.workspacePort.documents.empty());
    doubleClick("shelfItem.b.txt");
    EXPECT_EQ(platform.workspacePort.documents, std::vector{urlOf(1)});
}

TEST_F(FileShelfPanelTest, theContextMenuComesWithTheRightButton) {
    showWith({"a.txt", "b.txt"});
    const auto at = frameOf("shelfItem.b.txt").center();
    mouse(QEvent::MouseButtonPress, at, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::RightButton);
    turn();
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(titlesOf(openMenu()->property("entries").value<MenuValue>()),
              QStringList({"Open", "Show in Finder", "Copy", "Share...", "Remove", "Settings..."}));
    picture("shelf-menu", *openMenu());
    openMenu()->property("entries").value<MenuValue>().perform(4);
    openMenu()->dismiss();
    turn();
    EXPECT_TRUE(eventually([this] { return !item("shelfItem.b.txt"); }));
    undo.finish();
    EXPECT_EQ(fileShelf.items->size(), 1u);
}

TEST_F(FileShelfPanelTest, shareAllHandsOnEveryFile) {
    showWith({"a.txt", "b.txt"});
    click("shareAll");
    ASSERT_EQ(platform.sharePickerPort.requests.size(), 1u);
    EXPECT_EQ(platform.sharePickerPort.requests[0].urls, (std::vector{urlOf(0), urlOf(1)}));
    EXPECT_NEAR(frameOf("shareAll").bottom(), 220 - 12 - 4, 0.01);
    EXPECT_NEAR(frameOf("shareAll").top() - frameOf("shelfView").bottom(), 8, 0.01);
}

TEST_F(FileShelfPanelTest, theKeyboardDoesWhatThePointerDoes) {
    showWith({"a.txt", "b.txt"});
    focusGrid();
    key(Qt::Key_Right);
    key(Qt::Key_Return);
    EXPECT_EQ(platform.workspacePort.documents, std::vector{urlOf(1)});
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(platform.pasteboardPort.files, std::vector{urlOf(1)});
    picture("shelf-focus");
    for (const auto& [menuKey, modifiers] :
         {std::pair{Qt::Key_Menu, Qt::NoModifier}, std::pair{Qt::Key_F10, Qt::ShiftModifier}}) {
        focusGrid(); // a menu that closed may have left it nowhere
        key(menuKey, modifiers);
        ASSERT_NE(openMenu(), nullptr) << menuKey;
        openMenu()->dismiss();
        turn();
    }
    focusGrid();
    key(Qt::Key_Delete);
    undo.finish();
    ASSERT_EQ(fileShelf.items->size(), 1u);
    EXPECT_EQ(fileShelf.items.get()[0].name, "a.txt");
}

TEST_F(FileShelfPanelTest, keysWorkOnTheFileThatWasClicked) {
    showWith({"a.txt", "b.txt"});
    window.requestActivate();
    ASSERT_TRUE(eventually([this] { return window.isActive(); }));
    const auto at = frameOf("shelfItem.b.txt").center();
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonRelease, at);
    turn();
    EXPECT_TRUE(item("shelfItem.b.txt")->hasActiveFocus());
    key(Qt::Key_Delete);
    undo.finish();
    ASSERT_EQ(fileShelf.items->size(), 1u);
    EXPECT_EQ(fileShelf.items.get()[0].name, "a.txt");
}

TEST_F(FileShelfPanelTest, copiedFilesArePastedOntoTheEmptyShelfAndBehindOthers) {
    for (const char* name : {"a.txt", "b.txt"})
        platform.fileSystemPort.files[std::string("/home/") + name] = name;
    show(ActivePanel::fileShelf);
    window.requestActivate();
    turn();
    item("emptyShelf")->forceActiveFocus();
    platform.pasteboardPort.files = {"file:///home/a.txt"};
    key(Qt::Key_V, Qt::ControlModifier);
    platform.runLoopPort.runPosted();
    turn();
    ASSERT_TRUE(eventually([this] { return item("shelfItem.a.txt"); }));
    EXPECT_TRUE(item("shelfGrid")->hasActiveFocus()) << "the focus stays on the shelf";
    platform.pasteboardPort.files = {"file:///home/b.txt"};
    key(Qt::Key_V, Qt::ControlModifier);
    platform.runLoopPort.runPosted();
    turn();
    EXPECT_TRUE(eventually([this] { return item("shelfItem.b.txt"); }));
}

TEST_F(FileShelfPanelTest, aFileThatArrivesAndOneThatGoesLeaveTheOthersInPlace) {
    showWith({"a.txt", "b.txt"});
    const auto* stays = item("shelfItem.b.txt");
    fileShelf.removeFile(ShelfItem(fileShelf.items.get()[0]));
    add({"c.txt"});
    EXPECT_EQ(item("shelfItem.b.txt"), stays);
    EXPECT_TRUE(eventually([this] { return item("shelfItem.c.txt"); }));
    while (!fileShelf.items->empty())
        fileShelf.removeFile(ShelfItem(fileShelf.items.get()[0]));
    turn();
    EXPECT_EQ(textOf("emptyText"), "Drop files here");
}

TEST_F(FileShelfPanelTest, keysOfWholeWaysMoveOnTheShelf) {
    std::vector<std::string> names;
    for (int number = 0; number < 20; ++number)
        names.push_back(std::to_string(number) + ".txt");
    showWith(names);
    focusGrid();
    const auto isAt = [&](int index) {
        return item("shelfGrid")->property("currentIndex") == index;
    };
    key(Qt::Key_End);
    EXPECT_TRUE(isAt(19));
    key(Qt::Key_Home);
    EXPECT_TRUE(isAt(0));
    key(Qt::Key_PageDown);
    EXPECT_TRUE(isAt(7)) << "as many as are in view";
    key(Qt::Key_PageUp);
    EXPECT_TRUE(isAt(0));
}

TEST_F(FileShelfPanelTest, theWheelScrollsWithinTheRows) {
    std::vector<std::string> names;
    for (int number = 0; number < 20; ++number)
        names.push_back(std::to_string(number) + ".txt");
    showWith(names);
    auto* grid = item("shelfGrid");
    const auto at = frameOf("shelfGrid").center();
    const double lowest = grid->property("contentHeight").toDouble() - grid->height();
    const auto position = [&] { return grid->property("contentY").toDouble(); };
    EXPECT_FALSE(wheel(at, 120));
    for (int count = 0; count < 10; ++count)
        wheel(at, -120);
    EXPECT_FALSE(wheel(at, -120));
    EXPECT_TRUE(eventually([&] { return std::abs(position() - lowest) < 0.01; }));
    for (int count = 0; count < 10; ++count)
        wheel(at, 120);
    EXPECT_FALSE(wheel(at, 120));
    EXPECT_TRUE(eventually([&] { return position() == 0; }));
}

} // namespace orvelle
