#include "Foundation/FileURL.h"
#include "Views/Qt/MenuWindow.h"
#include "Views/Qt/Values.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QGuiApplication>

namespace orvelle {

/// Every panel with something in it, led through by keys alone.
class KeyboardPanelsTest : public ViewFixture {
protected:
    KeyboardPanelsTest() {
        window.requestActivate();
        MediaInfo info;
        info.title = "Song";
        info.artist = "Artist";
        info.duration = 200;
        info.appName = "Music";
        info.appBundleIdentifier = "com.apple.Music";
        media.currentMedia = info;
        platform.audioHardwarePort.list = {{1, "Speakers", 1, 0.5F}, {2, "Headphones", 1, 0.5F}};
        platform.audioHardwarePort.defaultOutput = 1;
        for (const char* name : {"a.txt", "b.txt"}) {
            platform.fileSystemPort.files[std::string("/home/") + name] = name;
            fileShelf.addFile(FileURL::ofPath(std::string("/home/") + name));
            todo.addItem(name);
            notes.addItem(name);
        }
        clipboard.start();
        for (const char* text : {"one", "two"}) {
            platform.pasteboardPort.copy(text);
            platform.runLoopPort.advance(0.5);
        }
        for (const char* symbol : {"AAA", "BBB"})
            stockTicker.addTicker(symbol);
        std::vector<CalendarEventModel> events(2);
        for (std::size_t index = 0; index < events.size(); ++index) {
            events[index].id = events[index].title = "event " + std::to_string(index);
            events[index].startDate = platform.runLoopPort.now() + 3600;
            events[index].endDate = platform.runLoopPort.now() + 7200;
        }
        calendar.events = events;
        weather.weather = WeatherData{};
        weather.hasFigures = true;
        weather.addSavedLocation({UUID::random(), "Oslo", 60, 10});
        weather.addSavedLocation({UUID::random(), "Rome", 42, 12});
    }
    /// Until what takes the keyboard by itself has it.
    void open(ActivePanel panel) {
        ViewFixture::show(panel);
        if (takesTyping(panel))
            EXPECT_TRUE(eventually([&] { return isTyping(); })) << label(panel);
        else
            item("tab." + toQt(rawValue(panel)))->forceActiveFocus(Qt::TabFocusReason);
    }
    bool isTyping() const {
        return window.activeFocusItem() && window.activeFocusItem()->inherits("QQuickTextInput");
    }
    static MenuWindow* openMenu() {
        for (auto* each : QGuiApplication::topLevelWindows())
            if (auto* menu = qobject_cast<MenuWindow*>(each); menu && menu->isVisible())
                return menu;
        return nullptr;
    }
    static std::vector<ActivePanel> panels() {
        std::vector<ActivePanel> shown(allActivePanels.begin(), allActivePanels.end());
        std::erase(shown, ActivePanel::settings); // has no tab
        return shown;
    }

    KeyboardWalk keyboard{window};
};

TEST_F(KeyboardPanelsTest, TabLeadsToEveryControlAndBack) {
    ASSERT_EQ(panels().size(), 13u);
    for (const auto panel : panels()) {
        open(panel);
        for (const auto& fault : keyboard.faults())
            ADD_FAILURE() << label(panel) << ": " << fault;
    }
}

TEST_F(KeyboardPanelsTest, SpaceAndReturnPressEveryButton) {
    for (const auto panel : panels())
        for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
            open(panel);
            for (const auto& name : keyboard.buttons()) {
                open(panel);
                auto* button = item(name);
                ASSERT_NE(button, nullptr) << label(panel) << ": " << name.toStdString();
                EXPECT_TRUE(keyboard.isPressedBy(key, button))
                    << label(panel) << ": " << name.toStdString();
                if (auto* menu = openMenu())
                    menu->dismiss();
                show(ActivePanel::battery);
            }
        }
}

TEST_F(KeyboardPanelsTest, EscapeLeavesEveryPanelFromEveryPlace) {
    for (const auto panel : panels()) {
        open(panel);
        for (auto* stop : keyboard.round()) {
            ASSERT_TRUE(keyboard.leadsTo(stop));
            panelClosed = 0;
            keyboard.press(Qt::Key_Escape);
            EXPECT_EQ(panelClosed, 1) << label(panel) << ": " << stop->objectName().toStdString();
        }
    }
}

TEST_F(KeyboardPanelsTest, EveryPanelsMenuIsLedThroughAndLeftByTheKeyboard) {
    for (const auto panel : panels()) {
        open(panel);
        keyboard.press(Qt::Key_Menu);
        auto* menu = openMenu();
        ASSERT_NE(menu, nullptr) << label(panel);
        KeyboardWalk inMenu(*menu);
        const auto count =
            static_cast<int>(menu->property("entries").value<MenuValue>().entries.size());
        for (int row = 0; row < count; ++row) {
            inMenu.press(Qt::Key_Down);
            EXPECT_EQ(menu->property("highlighted"), row) << label(panel);
        }
        inMenu.press(Qt::Key_Up);
        EXPECT_EQ(menu->property("highlighted"), std::max(count - 2, 0)) << label(panel);
        inMenu.press(Qt::Key_Escape);
        EXPECT_EQ(openMenu(), nullptr) << label(panel);
        EXPECT_EQ(panelClosed, 0) << "the first Escape is the menu's";
    }
}

TEST_F(KeyboardPanelsTest, ControlAndTabGoRoundTheTabs) {
    open(ActivePanel::media);
    for (const auto panel : panels()) {
        EXPECT_EQ(notchState.activePanel.get(), panel);
        keyboard.press(Qt::Key_Tab, Qt::ControlModifier);
        settle();
    }
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::media);
    keyboard.press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::stockTicker);
}

TEST_F(KeyboardPanelsTest, ControlAndADigitGoToThatTab) {
    open(ActivePanel::todo);
    keyboard.press(Qt::Key_4, Qt::ControlModifier);
    settle();
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::time);
    EXPECT_EQ(window.activeFocusItem(), item("tab.time"));
    keyboard.press(Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::pomodoro);
    for (const auto panel : {ActivePanel::calendar, ActivePanel::time, ActivePanel::battery})
        panelOrder.toggleVisibility(rawValue(panel));
    turn();
    keyboard.press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::clipboard) << "of those that are shown";
    for (const auto panel : {ActivePanel::todo, ActivePanel::mirror, ActivePanel::notes})
        panelOrder.toggleVisibility(rawValue(panel));
    turn();
    keyboard.press(Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::clipboard) << "there is no ninth";
}

TEST_F(KeyboardPanelsTest, AHiddenPanelIsLeftForTheFirstOrTheLastTab) {
    panelOrder.toggleVisibility("battery");
    ViewFixture::show(ActivePanel::battery);
    keyboard.press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::media);
    for (const auto panel : panels())
        if (panel != ActivePanel::battery)
            panelOrder.toggleVisibility(rawValue(panel));
    turn();
    keyboard.press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(notchState.activePanel.get(), ActivePanel::media) << "without tabs";
}

TEST_F(KeyboardPanelsTest, TheMenusShortcutsWorkFromEveryPanelAndItsFields) {
    for (const auto panel : panels()) {
        open(panel);
        shortcuts.clear();
        keyboard.press(Qt::Key_Comma, Qt::ControlModifier);
        keyboard.press(Qt::Key_Q, Qt::ControlModifier);
        keyboard.press(Qt::Key_Comma, Qt::ControlModifier | Qt::AltModifier);
        EXPECT_EQ(shortcuts, (std::vector<std::string>{",", "q"})) << label(panel);
    }
}

} // namespace orvelle
