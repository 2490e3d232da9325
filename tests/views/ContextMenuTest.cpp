#include "Features/Battery/BatteryActions.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/MenuWindow.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

namespace orvelle {

class ContextMenuTest : public ViewFixture {
protected:
    void rightPress(QPointF at) {
        QMouseEvent press(QEvent::MouseButtonPress, at, window.mapToGlobal(at), Qt::RightButton,
                          Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &press);
        QMouseEvent release(QEvent::MouseButtonRelease, at, window.mapToGlobal(at), Qt::RightButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &release);
        turn();
    }
    static MenuWindow* openMenu() {
        for (auto* window : QGuiApplication::topLevelWindows())
            if (auto* menu = qobject_cast<MenuWindow*>(window); menu && menu->isVisible())
                return menu;
        return nullptr;
    }
    static void press(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(openMenu(), &event);
        turn();
    }
};

TEST_F(ContextMenuTest, thePanelOffersTheSettings) {
    show(ActivePanel::time);
    rightPress({283, 100});
    ASSERT_NE(openMenu(), nullptr);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(settingsOpened, 1);
    EXPECT_EQ(openMenu(), nullptr);
}

TEST_F(ContextMenuTest, aTitleKeepsOffTheEdgeOfItsLine) {
    show(ActivePanel::time);
    rightPress({283, 100});
    ASSERT_NE(openMenu(), nullptr);
    const auto* caption = item(openMenu()->contentItem(), "caption");
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(caption->x(), 10);
}

TEST_F(ContextMenuTest, thePanelsOwnMenuComesBeforeThePanels) {
    show(ActivePanel::battery);
    rightPress({283, 140});
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(titlesOf(openMenu()->property("entries").value<MenuValue>()),
              QStringList({"Lock Screen", "Sleep Display", "Energy Settings...", "Settings..."}));
    turn();
    press(Qt::Key_Down);
    picture("menu", *openMenu());
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    SimulatedPlatform expected;
    BatteryActions::openEnergySettings(expected);
    EXPECT_EQ(platform.workspacePort.opened, expected.workspacePort.opened);
    EXPECT_EQ(settingsOpened, 0);
}

TEST_F(ContextMenuTest, theMenuKeyOpensThePanelsMenu) {
    show(ActivePanel::battery);
    KeyboardWalk(window).press(Qt::Key_Menu);
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(titlesOf(openMenu()->property("entries").value<MenuValue>()).first(), "Lock Screen");
    press(Qt::Key_Escape);
    media.currentMedia.update([](MediaInfo& info) {
        info.title = "A Tone";
        info.appName = "Music";
    });
    window.requestActivate();
    show(ActivePanel::media);
    KeyboardWalk(window).press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(titlesOf(openMenu()->property("entries").value<MenuValue>()),
              QStringList({"Open in Music", "Settings..."}));
}

TEST_F(ContextMenuTest, theMenuKeyOpensTheSettingsEntryOfAPanelWithoutAMenu) {
    show(ActivePanel::time);
    KeyboardWalk(window).press(Qt::Key_Menu);
    ASSERT_NE(openMenu(), nullptr);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(settingsOpened, 1);
}

TEST_F(ContextMenuTest, theSettingsStandLastInEveryPanelsMenuBehindADivider) {
    for (const auto panel : allActivePanels) {
        show(panel);
        rightPress({283, 140});
        ASSERT_NE(openMenu(), nullptr) << label(panel);
        const auto entries = openMenu()->property("entries").value<MenuValue>().entries;
        ASSERT_FALSE(entries.empty()) << label(panel);
        EXPECT_EQ(entries.back().title, "Settings...") << label(panel);
        EXPECT_EQ(entries.back().followsDivider, entries.size() > 1) << label(panel);
        const int before = settingsOpened;
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        EXPECT_EQ(settingsOpened, before + 1) << label(panel);
    }
}

TEST_F(ContextMenuTest, escapeClosesWithoutAnAction) {
    show(ActivePanel::time);
    rightPress({283, 100});
    ASSERT_NE(openMenu(), nullptr);
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_EQ(openMenu(), nullptr);
    EXPECT_EQ(settingsOpened, 0);
}

TEST_F(ContextMenuTest, aPressBesideTheMenuClosesIt) {
    show(ActivePanel::time);
    rightPress({283, 100});
    auto* menu = openMenu();
    ASSERT_NE(menu, nullptr);
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(-40, 5), QPointF(), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &event);
    EXPECT_EQ(openMenu(), nullptr);
}

TEST_F(ContextMenuTest, theMenuStaysOnTheScreen) {
    show(ActivePanel::time);
    window.setPosition(window.screen()->geometry().bottomRight() - QPoint(40, 40));
    turn();
    rightPress({30, 30});
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(openMenu()->geometry()));
}

} // namespace orvelle
