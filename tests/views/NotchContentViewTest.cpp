#include "Views/Qt/Values.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>

namespace orvelle {

class NotchContentViewTest : public ViewFixture {
protected:
    bool isHUDFading() {
        const auto* overlay = item("hud");
        return overlay && overlay->parentItem()->opacity() < 1;
    }
};

TEST_F(NotchContentViewTest, theShapeHangsFromTheMiddleOfTheTopEdge) {
    show(NotchExpandedState::collapsed);
    EXPECT_EQ(frameOf("shape"), QRectF(193, 0, 180, 32));
    show(NotchExpandedState::expanded);
    EXPECT_EQ(frameOf("shape"), QRectF(0, 0, 566, 220));
}

TEST_F(NotchContentViewTest, theShapeGrowsOnTheSpring) {
    show(NotchExpandedState::collapsed);
    notchState.expandedState = NotchExpandedState::expanded;
    ASSERT_TRUE(eventually([&] {
        const double width = frameOf("shape").width();
        return width > 190 && width < 560;
    }));
    const double width = frameOf("shape").width();
    const double height = frameOf("shape").height();
    EXPECT_NEAR((width - 180) / 386, (height - 32) / 188, 0.02);
    settle();
    EXPECT_EQ(frameOf("shape").width(), 566);
}

TEST_F(NotchContentViewTest, theBorderStandsInOpenStatesOnly) {
    show(NotchExpandedState::collapsed);
    EXPECT_FALSE(item("border")->isVisible());
    show(NotchExpandedState::hovering);
    EXPECT_TRUE(item("border")->isVisible());
    EXPECT_EQ(item("border")->opacity(), 1);
    EXPECT_EQ(item("border")->property("stroke").value<StrokeValue>().lineWidth, 0.5);
    EXPECT_EQ(frameOf("border"), frameOf("shape"));
}

TEST_F(NotchContentViewTest, theBorderIsDrawnOverTheContent) {
    show(ActivePanel::battery);
    notchState.hudType = HUDType::volume;
    notchState.isHUDVisible = true;
    ASSERT_TRUE(
        eventually([&] { return item("hud") && item("hud")->parentItem()->opacity() == 1; }));
    settle();
    const QRgb edge = window.grabWindow().pixel(283, 219);
    EXPECT_GE(qGray(edge), 8) << "a quarter of a point at 15 % on this side of the edge";
}

TEST_F(NotchContentViewTest, tabsShareTheBarEqually) {
    show(NotchExpandedState::expanded);
    const auto bar = frameOf("tabBar");
    EXPECT_EQ(bar, QRectF(12, 36, 542, 24));
    EXPECT_EQ(frameOf("tab.media").left(), 12);
    EXPECT_EQ(frameOf("tab.stockTicker").right(), 554);
    const double spacing = frameOf("tab.fileShelf").left() - frameOf("tab.media").right();
    EXPECT_EQ(spacing, 4);
    EXPECT_NEAR(frameOf("tab.media").width(), (542 - 12 * 4) / 13.0, 1);
}

TEST_F(NotchContentViewTest, tabsAreInTheUsersOrder) {
    panelOrder.reorder({3}, 0);
    panelOrder.toggleVisibility("media");
    show(NotchExpandedState::expanded);
    EXPECT_EQ(item("tab.media"), nullptr);
    EXPECT_LT(frameOf("tab.time").left(), frameOf("tab.fileShelf").left());
}

TEST_F(NotchContentViewTest, withoutVisiblePanelsTheActiveOneStillShows) {
    for (const auto panel : allActivePanels)
        panelOrder.toggleVisibility(rawValue(panel));
    show(ActivePanel::battery);
    EXPECT_EQ(item("tab.battery"), nullptr);
    EXPECT_EQ(frameOf("tabBar"), QRectF(12, 36, 542, 24)) << "it keeps its padding";
    EXPECT_NE(item("batteryTitle"), nullptr);
}

TEST_F(NotchContentViewTest, clickOnATabSlidesItsPanelIn) {
    show(ActivePanel::time);
    ASSERT_NE(item("localTime"), nullptr);
    click("tab.battery");
    EXPECT_EQ(notchState.activePanel, ActivePanel::battery);
    EXPECT_EQ(notchState.panelTransitionEdge, Edge::trailing);

    ASSERT_TRUE(eventually([&] { return item("batteryTitle") != nullptr; }));
    EXPECT_NE(item("localTime"), nullptr) << "the old panel leaves, it does not vanish";
    EXPECT_TRUE(eventually([&] {
        return frameOf("localTime").center().x() < 200 && frameOf("batteryTitle").left() > 100;
    }));
    EXPECT_TRUE(eventually([&] { return item("localTime") == nullptr; }));
    settle();
    EXPECT_EQ(item("panels")->property("panel").value<QQuickItem*>()->parentItem()->x(), 0);
    EXPECT_EQ(item("panels")->property("panel").value<QQuickItem*>()->parentItem()->opacity(), 1);
}

TEST_F(NotchContentViewTest, aPanelOfLowerOrderComesFromTheLeft) {
    show(ActivePanel::battery);
    click("tab.time");
    EXPECT_EQ(notchState.panelTransitionEdge, Edge::leading);
    ASSERT_TRUE(eventually([&] { return item("localTime") != nullptr; }));
    EXPECT_LT(frameOf("localTime").center().x(), 283);
}

TEST_F(NotchContentViewTest, aChangeDuringASlideEndsOnTheLastPanel) {
    show(ActivePanel::time);
    click("tab.battery");
    ASSERT_TRUE(eventually([&] { return item("batteryTitle") != nullptr; }));
    click("tab.systemMonitor");
    settle();
    EXPECT_TRUE(eventually(
        [&] { return item("metric.CPU") && !item("batteryTitle") && !item("localTime"); }));
}

TEST_F(NotchContentViewTest, clickOnTheActiveTabChangesNothing) {
    show(ActivePanel::battery);
    const auto* title = item("batteryTitle");
    click("tab.battery");
    settle();
    EXPECT_EQ(item("batteryTitle"), title);
}

TEST_F(NotchContentViewTest, theActiveTabIsMarkedInTheAccentColour) {
    platform.appearancePort.accent = Color{1, 0, 0, 1};
    show(ActivePanel::battery);
    const auto colorOf = [&](const char* tab) {
        return item(tab)->property("color").value<QColor>().rgba();
    };
    EXPECT_EQ(colorOf("tab.battery"), qRgba(255, 0, 0, 51));
    EXPECT_EQ(qAlpha(colorOf("tab.time")), 0);
    platform.appearancePort.accent = Color{0, 1, 0, 1};
    platform.appearancePort.notifyChanged();
    turn();
    EXPECT_EQ(colorOf("tab.battery"), qRgba(0, 255, 0, 51));
}

TEST_F(NotchContentViewTest, tabsAreTabsForAssistiveTools) {
    show(ActivePanel::battery);
    auto* tab = QAccessible::queryAccessibleInterface(item("tab.battery"));
    ASSERT_NE(tab, nullptr);
    EXPECT_EQ(tab->role(), QAccessible::PageTab);
    EXPECT_EQ(tab->text(QAccessible::Name), "Battery");
    EXPECT_TRUE(tab->state().selected);
    auto* other = QAccessible::queryAccessibleInterface(item("tab.time"));
    EXPECT_FALSE(other->state().selected);
    other->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(notchState.activePanel, ActivePanel::time);
}

TEST_F(NotchContentViewTest, arrowKeysMoveFromTabToTab) {
    show(ActivePanel::battery);
    item("tab.battery")->forceActiveFocus();
    const auto press = [&](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    press(Qt::Key_Right);
    EXPECT_TRUE(item("tab.clipboard")->hasActiveFocus());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_TRUE(item("tab.time")->hasActiveFocus());
    press(Qt::Key_Space);
    EXPECT_EQ(notchState.activePanel, ActivePanel::time);
}

TEST_F(NotchContentViewTest, escapeClosesThePanel) {
    show(ActivePanel::battery);
    KeyboardWalk(window).press(Qt::Key_Escape);
    EXPECT_EQ(panelClosed, 1);
}

TEST_F(NotchContentViewTest, theKeyboardBeginsAtTheActiveTab) {
    show(ActivePanel::battery);
    EXPECT_EQ(window.activeFocusItem(), item("tab.battery"));
    notchState.activePanel = ActivePanel::time;
    settle();
    EXPECT_EQ(window.activeFocusItem(), item("tab.time"));
}

TEST_F(NotchContentViewTest, withoutAnActiveTabTheKeyboardBeginsAtTheFirst) {
    panelOrder.toggleVisibility("battery");
    show(ActivePanel::battery);
    EXPECT_EQ(window.activeFocusItem(), item("tab.media"));
}

TEST_F(NotchContentViewTest, helpNamesTheTabUnderThePointer) {
    show(ActivePanel::battery);
    const auto hover = [&](QPointF at) {
        QMouseEvent event(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    hover(frameOf("tab.pomodoro").center());
    ASSERT_TRUE(eventually([&] { return item("help")->isVisible(); }));
    EXPECT_EQ(item("help")->childItems().constFirst()->property("text").toString(), "Focus");
    EXPECT_GE(frameOf("help").top(), frameOf("tab.pomodoro").bottom());
    picture("help");
    hover(QPointF(283, 150));
    EXPECT_TRUE(eventually([&] { return !item("help")->isVisible(); }));
}

TEST_F(NotchContentViewTest, aPanelWithoutAViewShowsItsPlaceholder) {
    show(ActivePanel::settings);
    EXPECT_EQ(textOf("placeholderTitle"), "Settings");
    show(ActivePanel::media);
    EXPECT_TRUE(eventually([&] { return textOf("placeholderTitle") == "No media playing"; }));
}

TEST_F(NotchContentViewTest, aPlaceholderThatLeavesKeepsItsPanel) {
    show(ActivePanel::settings);
    auto* leaving = item("panels")->property("panel").value<QQuickItem*>();
    notchState.activePanel = ActivePanel::time;
    turn();
    EXPECT_EQ(textOf(leaving, "placeholderTitle"), "Settings");
}

TEST_F(NotchContentViewTest, aLevelDisplayThatWasThereFromTheStartFadesToo) {
    notchState.hudType = HUDType::volume;
    notchState.isHUDVisible = true;
    root = host.showNotchContent(window, environment);
    show(ActivePanel::time);
    ASSERT_NE(item("hud"), nullptr);
    notchState.isHUDVisible = false;
    EXPECT_TRUE(eventually([&] { return isHUDFading(); })) << "it does not vanish at once";
    EXPECT_TRUE(eventually([&] { return item("hud") == nullptr; }));
}

TEST_F(NotchContentViewTest, theLevelDisplayCoversThePanelAndKeepsIt) {
    show(ActivePanel::time);
    notchState.hudType = HUDType::brightness;
    notchState.hudValue = 0.5;
    notchState.isHUDVisible = true;
    ASSERT_TRUE(
        eventually([&] { return item("hud") && item("hud")->parentItem()->opacity() == 1; }));
    EXPECT_EQ(frameOf("hud"), QRectF(0, 0, 566, 220));
    EXPECT_NE(item("localTime"), nullptr);
    notchState.isHUDVisible = false;
    turn();
    animations.step(180);
    EXPECT_TRUE(isHUDFading()) << "the fade takes 200 milliseconds";
    EXPECT_TRUE(eventually([&] { return item("hud") == nullptr; }));
    EXPECT_NE(item("localTime"), nullptr);
}

TEST_F(NotchContentViewTest, LoadsThatWereNotMeasuredYetAreDimmed) {
    show(ActivePanel::systemMonitor);
    EXPECT_LT(item("metric.CPU")->opacity(), 0.5);
    systemMonitor.updateMetrics();
    turn();
    EXPECT_EQ(item("metric.CPU")->opacity(), 1);
}

TEST_F(NotchContentViewTest, TheSettingsAreFoundBesideTheNotchInEveryPanel) {
    for (const double notch : {180.0, 320.0}) {
        notchState.notchSize = Size{notch, 32};
        for (const auto panel : {ActivePanel::media, ActivePanel::todo, ActivePanel::settings}) {
            show(panel);
            const auto button = frameOf("settingsButton");
            EXPECT_TRUE(item("settingsButton")->isVisible());
            EXPECT_GE(button.left() - 6, 283 + notch / 2) << "with what takes the click";
            EXPECT_LE(button.right(), frameOf("tabBar").right());
            EXPECT_LE(button.bottom(), frameOf("tabBar").top());
        }
    }
    EXPECT_EQ(frameOf("tabBar"), QRectF(12, 36, 542, 24)) << "the tabs keep their place";
    EXPECT_EQ(KeyboardWalk::name(item("settingsButton")), "Settings");
    click("settingsButton");
    EXPECT_EQ(settingsOpened, 1);
    KeyboardWalk keyboard(window);
    ASSERT_TRUE(keyboard.leadsTo(item("settingsButton"), Qt::Key_Backtab));
    ASSERT_TRUE(eventually([&] { return item("help")->isVisible(); }));
    EXPECT_EQ(item("help")->childItems().constFirst()->property("text").toString(), "Settings");
    picture("settings-button");
    keyboard.press(Qt::Key_Space);
    EXPECT_EQ(settingsOpened, 2);
}

TEST_F(NotchContentViewTest, ANotchThatLeavesNoRoomHasNothingBesideIt) {
    notchState.notchSize = Size{470, 32};
    show(ActivePanel::media);
    EXPECT_FALSE(item("settingsButton")->isVisible());
}

} // namespace orvelle
