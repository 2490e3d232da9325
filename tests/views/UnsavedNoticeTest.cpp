#include "views/ViewFixture.h"

#include <QAccessible>

namespace orvelle {

class UnsavedNoticeTest : public ViewFixture {};

TEST_F(UnsavedNoticeTest, tellsInThePanelThatATaskIsNotSavedUntilItIs) {
    show(ActivePanel::todo);
    EXPECT_EQ(item("unsavedNotice"), nullptr);
    platform.fileSystemPort.writable = false;
    todo.addItem("A");
    platform.runLoopPort.runPosted();
    ASSERT_TRUE(eventually([&] { return item("unsavedNotice") != nullptr; }));
    EXPECT_EQ(textOf("unsavedNotice"), "Not saved: the disk is full");
    const auto frame = frameOf("unsavedNotice"); // of the text itself
    EXPECT_NEAR(frame.center().x(), 283, 5);
    EXPECT_GE(frame.top(), 206);
    EXPECT_LE(frame.bottom(), 220);
    auto* accessible = QAccessible::queryAccessibleInterface(item("unsavedNotice"));
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Not saved: the disk is full");
    picture("unsaved");

    platform.fileSystemPort.writable = true;
    platform.runLoopPort.advance(60);
    EXPECT_TRUE(eventually([&] { return item("unsavedNotice") == nullptr; }));
}

} // namespace orvelle
