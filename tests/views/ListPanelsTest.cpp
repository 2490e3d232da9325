#include "views/ViewFixture.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QTest>

namespace orvelle {

/// The panels with lists that the user edits.
class ListPanelsTest : public ViewFixture {
protected:
    ListPanelsTest() { window.requestActivate(); }

    void press(int key, const QString& text = {}) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &down);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &up);
        turn();
    }
    void type(const QString& text) {
        for (const auto character : text)
            press(0, character);
    }
    /// Rows come with the next frame.
    void clickRow(const QString& objectName) {
        ASSERT_TRUE(eventually([&] { return item(objectName) != nullptr; }));
        QTest::mouseClick(&window, Qt::LeftButton, {}, frameOf(objectName).center().toPoint());
        turn();
    }
    bool hasFocus(const QString& objectName) {
        const auto* found = item(objectName);
        return found && found->hasActiveFocus();
    }
    /// Shows the panel and waits for what takes the keyboard by itself.
    void open(ActivePanel panel, const QString& focused) {
        show(panel);
        ASSERT_TRUE(eventually([&] { return hasFocus(focused); }));
    }
    void pull(const QString& objectName, int distance) {
        const auto from = frameOf(objectName).center().toPoint() - QPoint(distance / 2, 0);
        QTest::mousePress(&window, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 10; ++step)
            QTest::mouseMove(&window, from + QPoint(distance * step / 10, 0));
        QTest::mouseRelease(&window, Qt::LeftButton, {}, from + QPoint(distance, 0));
        turn();
    }
    std::vector<std::string> todoTitles() const {
        std::vector<std::string> titles;
        for (const auto& each : todo.items.get())
            titles.push_back(each.title);
        return titles;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(ListPanelsTest, TheFieldTakesTheFocusWhenThePanelAppears) {
    for (const auto panel : {ActivePanel::todo, ActivePanel::notes})
        open(panel, "field");
}

TEST_F(ListPanelsTest, WhatIsTypedBecomesATaskAndTheFieldIsReadyForTheNext) {
    open(ActivePanel::todo, "field");
    type("buy milk");
    EXPECT_EQ(textOf("field"), "buy milk");
    press(Qt::Key_Return, "\r");
    type("call home");
    press(Qt::Key_Return, "\r");
    EXPECT_EQ(todoTitles(), (Texts{"buy milk", "call home"}));
    EXPECT_EQ(textOf("field"), "");
    EXPECT_TRUE(hasFocus("field"));
    EXPECT_TRUE(eventually([&] { return textOf("rowText") == "buy milk"; }));
}

TEST_F(ListPanelsTest, ReturnClearsAFieldOfBlanksAndAddsNothing) {
    open(ActivePanel::notes, "field");
    type("   ");
    press(Qt::Key_Return, "\r");
    EXPECT_TRUE(notes.items->empty());
    EXPECT_EQ(textOf("field"), "");
    EXPECT_TRUE(hasFocus("field"));
}

TEST_F(ListPanelsTest, TheButtonDoesWhatReturnDoesAndRestsWithoutAText) {
    open(ActivePanel::notes, "field");
    EXPECT_FALSE(item("addButton")->isEnabled());
    type("  ");
    EXPECT_FALSE(item("addButton")->isEnabled());
    type("idea");
    EXPECT_TRUE(item("addButton")->isEnabled());
    click("addButton");
    ASSERT_EQ(notes.items->size(), 1u);
    EXPECT_EQ(notes.items->front().text, "idea");
    EXPECT_TRUE(hasFocus("field"));
}

TEST_F(ListPanelsTest, WithoutEntriesAPlaceholderStands) {
    show(ActivePanel::todo);
    EXPECT_EQ(textOf("placeholderTitle"), "No tasks yet");
    picture("todo-empty");
    show(ActivePanel::notes);
    EXPECT_EQ(textOf("placeholderTitle"), "No notes yet");
    show(ActivePanel::clipboard);
    EXPECT_EQ(textOf("placeholderTitle"), "No clipboard history");
}

TEST_F(ListPanelsTest, TheRowsButtonTogglesTheTask) {
    todo.addItem("a");
    show(ActivePanel::todo);
    clickRow("rowButton");
    EXPECT_TRUE(todo.items->front().isCompleted);
    EXPECT_TRUE(item("rowText")->property("font").value<QFont>().strikeOut());
    picture("todo-done");
}

TEST_F(ListPanelsTest, AFullSwipePerformsAndAShortOneUncoversTheAction) {
    todo.addItem("a");
    todo.addItem("b");
    show(ActivePanel::todo);
    pull("row.0", 400);
    EXPECT_TRUE(todo.items->front().isCompleted);
    pull("row.1", -60);
    EXPECT_EQ(todo.items->size(), 2u);
    picture("todo-swipe");
    ASSERT_TRUE(eventually([&] { return item("row.1")->property("offset") == -74; }));
    pull("row.1", -400);
    EXPECT_EQ(todoTitles(), Texts{"a"});
}

TEST_F(ListPanelsTest, KeysDoWhatSwipesDo) {
    todo.addItem("a");
    todo.addItem("b");
    open(ActivePanel::todo, "field");
    press(Qt::Key_Down);
    EXPECT_TRUE(hasFocus("row.0"));
    press(Qt::Key_Space, " ");
    EXPECT_TRUE(todo.items->front().isCompleted);
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(todoTitles(), Texts{"a"});
    EXPECT_TRUE(eventually([&] { return hasFocus("row.0"); }));
    press(Qt::Key_Up);
    EXPECT_TRUE(hasFocus("field"));
}

TEST_F(ListPanelsTest, ANoteIsCopiedByItsButtonItsSwipeAndItsKey) {
    notes.addItem("a");
    open(ActivePanel::notes, "field");
    clickRow("rowButton");
    EXPECT_EQ(platform.pasteboardPort.text, "a");
    pull("row.0", 400);
    press(Qt::Key_Down);
    press(Qt::Key_Return, "\r");
    EXPECT_EQ(platform.pasteboardPort.count, 3);
    EXPECT_EQ(notes.items->size(), 1u);
    picture("notes");
}

TEST_F(ListPanelsTest, PastingKeepsTheTextAndTurnsLineEndsAloneIntoBlanks) {
    open(ActivePanel::todo, "field");
    type("ab");
    platform.pasteboardPort.copy("  one\n\ntwo\tthree   four\r\nfive ");
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, "\x16");
    QCoreApplication::sendEvent(&window, &paste);
    EXPECT_EQ(textOf("field"), "ab  one  two\tthree   four five ");
}

TEST_F(ListPanelsTest, TheMiddleButtonPastesTheSelectionWhereItIsPressed) {
    open(ActivePanel::todo, "field");
    type("behind");
    platform.pasteboardPort.copy("copied");
    platform.pasteboardPort.selection = "selected\n";
    const auto frame = frameOf("field");
    QTest::mouseClick(&window, Qt::MiddleButton, {},
                      QPointF(frame.left() + 1, frame.center().y()).toPoint());
    EXPECT_EQ(textOf("field"), "selected behind");
    platform.pasteboardPort.selection.reset();
    QTest::mouseClick(&window, Qt::MiddleButton, {}, frame.center().toPoint());
    EXPECT_EQ(textOf("field"), "selected behind");
}

TEST_F(ListPanelsTest, CopiedFilesPasteNoText) {
    open(ActivePanel::todo, "field");
    platform.pasteboardPort.copyFiles({"file:///home/a.txt"}, "/home/a.txt");
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, "\x16");
    QCoreApplication::sendEvent(&window, &paste);
    EXPECT_EQ(textOf("field"), "");
}

class RowPullTest : public ListPanelsTest {
protected:
    void SetUp() override {
        for (const auto* title : {"a", "b", "c", "d", "e", "f", "g", "h"})
            todo.addItem(title);
        open(ActivePanel::todo, "field");
        pull("row.0", -60);
        ASSERT_TRUE(comesTo("row.0", -74)) << "it is open";
    }
    bool comesTo(const QString& row, double offset) {
        return eventually([&] { return item(row)->property("offset") == offset; });
    }
    void clickAt(QPointF at) {
        QTest::mouseClick(&window, Qt::LeftButton, {}, at.toPoint());
        turn();
    }
};

TEST_F(RowPullTest, AnotherRowThatOpensClosesIt) {
    pull("row.1", -60);
    EXPECT_TRUE(comesTo("row.0", 0));
    EXPECT_TRUE(comesTo("row.1", -74));
}

TEST_F(RowPullTest, AClickOnTheRowClosesItAndDoesNothingElse) {
    pull("row.1", 60);
    const auto* row = item("row.1");
    const auto* body = item(item("row.1"), "rowBody");
    ASSERT_TRUE(eventually([&] { return body->x() > 30 && body->x() == row->property("offset"); }));
    auto* button = item(item("row.1"), "rowButton");
    clickAt(button->mapToScene({8, 8}));
    EXPECT_TRUE(eventually([&] { return body->x() == 0; }));
    EXPECT_FALSE(todo.items->at(1).isCompleted);
    clickAt(button->mapToScene({8, 8}));
    EXPECT_TRUE(todo.items->at(1).isCompleted) << "closed, it acts";
}

TEST_F(RowPullTest, AClickOnItsActionActs) {
    settle();
    clickAt(frameOf("row.0").center() + QPointF(frameOf("row.0").width() / 2 - 20, 0));
    EXPECT_EQ(todo.items->size(), 7u);
}

TEST_F(RowPullTest, APressElsewhereClosesItAndActsThere) {
    clickAt(item(item("row.1"), "rowButton")->mapToScene({8, 8}));
    EXPECT_TRUE(comesTo("row.0", 0));
    EXPECT_TRUE(todo.items->at(1).isCompleted);
    pull("row.0", -60);
    ASSERT_TRUE(comesTo("row.0", -74));
    clickAt(frameOf("field").center());
    EXPECT_TRUE(comesTo("row.0", 0));
    EXPECT_TRUE(hasFocus("field"));
}

TEST_F(RowPullTest, ScrollingClosesIt) {
    const auto* row = item("row.0");
    EXPECT_TRUE(wheel(frameOf("entries").center(), -20));
    EXPECT_TRUE(comesTo("row.0", 0));
    EXPECT_EQ(item("row.0"), row) << "the same row, still in sight";
}

TEST_F(RowPullTest, EscapeClosesItAndThenThePanel) {
    press(Qt::Key_Escape);
    EXPECT_TRUE(comesTo("row.0", 0));
    EXPECT_EQ(panelClosed, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(panelClosed, 1);
}

TEST_F(RowPullTest, LeavingThePanelClosesIt) {
    open(ActivePanel::notes, "field");
    open(ActivePanel::todo, "field");
    EXPECT_EQ(item("row.0")->property("offset"), 0);
    pull("row.0", -60);
    ASSERT_TRUE(comesTo("row.0", -74));
    show(NotchExpandedState::collapsed);
    open(ActivePanel::todo, "field");
    EXPECT_EQ(item("row.0")->property("offset"), 0);
}

class PanelListTest : public ListPanelsTest {
protected:
    struct Case {
        ActivePanel panel;
        const char* list;
        const char* box;
    };
    static constexpr Case cases[] = {
        {ActivePanel::todo, "entries", "entryField"},
        {ActivePanel::notes, "entries", "entryField"},
        {ActivePanel::stockTicker, "tickers", "entryField"},
        {ActivePanel::clipboard, "history", "searchField"},
    };

    PanelListTest() {
        for (int number = 0; number < 20; ++number) {
            const auto text = "entry " + std::to_string(number);
            todo.addItem(text);
            notes.addItem(text);
            stockTicker.addTicker("S" + std::to_string(number));
            ClipboardItem copy;
            copy.id = UUID::random();
            copy.content = text;
            clipboard.items.update([&](auto& items) { items.push_back(copy); });
        }
    }
    void openWithKeyboard(const Case& shown) {
        show(shown.panel);
        item(shown.box)->forceActiveFocus();
        ASSERT_TRUE(eventually([&] { return hasFocus("field"); }));
    }
    bool isInView(const Case& shown, const QString& row) {
        return item(row) && frameOf(shown.list).contains(frameOf(row).center());
    }
    QRectF boxOf(const Case& shown) {
        auto* ground = item(item(shown.box), "fieldGround");
        return ground->mapRectToScene(ground->boundingRect());
    }
};

TEST_F(PanelListTest, EveryPlaceOfAFieldsBoxTakesTheClick) {
    for (const auto& shown : cases) {
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        const auto box = boxOf(shown).adjusted(1, 1, -2, -2);
        for (const auto at : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight(),
                              QPointF(box.left() + 14, box.center().y()), box.center()}) {
            item("tabBar")->forceActiveFocus();
            ASSERT_FALSE(hasFocus("field"));
            QTest::mouseClick(&window, Qt::LeftButton, {}, at.toPoint());
            EXPECT_TRUE(hasFocus("field")) << at.x() << ", " << at.y();
        }
    }
}

TEST_F(PanelListTest, AClickBesideTheTextPutsTheCursorNearest) {
    openWithKeyboard(cases[0]);
    type("some words");
    const auto box = boxOf(cases[0]);
    QTest::mouseClick(&window, Qt::LeftButton, {},
                      QPointF(box.left() + 3, box.center().y()).toPoint());
    EXPECT_EQ(item("field")->property("cursorPosition"), 0);
    QTest::mouseClick(&window, Qt::LeftButton, {},
                      QPointF(box.right() - 3, box.top() + 3).toPoint());
    EXPECT_EQ(item("field")->property("cursorPosition"), 10);
}

TEST_F(PanelListTest, AllFieldsStandAtOnePlaceAndAreOfOneHeight) {
    std::vector<QRectF> boxes;
    for (const auto& shown : cases) {
        openWithKeyboard(shown);
        boxes.push_back(boxOf(shown));
        EXPECT_EQ(boxes.back().topLeft(), boxes.front().topLeft());
        EXPECT_EQ(boxes.back().height(), boxes.front().height());
    }
}

TEST_F(PanelListTest, ARowIsLitUnderThePointer) {
    for (const auto& shown : cases) {
        if (shown.panel == ActivePanel::clipboard)
            continue; // its ground is its own
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        const auto* ground = item(item("row.1"), "pointerGround");
        ASSERT_NE(ground, nullptr);
        QTest::mouseMove(&window, frameOf("row.0").center().toPoint());
        EXPECT_FALSE(ground->property("isHovered").toBool());
        QTest::mouseMove(&window, frameOf("row.1").center().toPoint());
        EXPECT_TRUE(ground->property("isHovered").toBool());
    }
}

TEST_F(PanelListTest, LettersTypedInAListGoToItsField) {
    for (const auto& shown : cases) {
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        press(Qt::Key_Down);
        ASSERT_TRUE(hasFocus("row.0"));
        press(Qt::Key_3, "3");
        EXPECT_EQ(textOf("field"), "3");
        EXPECT_TRUE(hasFocus("field"));
    }
}

TEST_F(PanelListTest, KeysOfWholeWaysMoveInLists) {
    for (const auto& shown : cases) {
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        press(Qt::Key_Down);
        const auto comesTo = [&](const QString& row) {
            return eventually([&] { return hasFocus(row) && isInView(shown, row); });
        };
        press(Qt::Key_End);
        EXPECT_TRUE(comesTo("row.19"));
        press(Qt::Key_Home);
        EXPECT_TRUE(comesTo("row.0"));
        press(Qt::Key_PageDown);
        EXPECT_TRUE(eventually([&] { return !isInView(shown, "row.0") || !hasFocus("row.0"); }));
        const int page = item(shown.list)->property("currentIndex").toInt();
        EXPECT_GT(page, 1);
        EXPECT_LT(page, 8);
        press(Qt::Key_PageDown);
        EXPECT_TRUE(comesTo("row." + QString::number(2 * page)));
        press(Qt::Key_PageUp);
        EXPECT_TRUE(comesTo("row." + QString::number(page)));
    }
}

TEST_F(PanelListTest, EscapeClearsTheFieldBeforeItCloses) {
    for (const auto& shown : cases) {
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        const int closed = panelClosed;
        type("3");
        press(Qt::Key_Escape);
        EXPECT_EQ(textOf("field"), "");
        EXPECT_EQ(panelClosed, closed);
        press(Qt::Key_Escape);
        EXPECT_EQ(panelClosed, closed + 1);
    }
}

TEST_F(PanelListTest, WhatIsAddedIsScrolledToAndLit) {
    for (const auto& shown : cases) {
        if (shown.panel == ActivePanel::clipboard)
            continue;
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        openWithKeyboard(shown);
        const bool isAtTheTop = shown.panel == ActivePanel::notes;
        if (isAtTheTop)
            while (wheel(frameOf(shown.list).center(), -120))
                turn();
        EXPECT_EQ(item("arrival")->opacity(), 0) << "those that were there did not just arrive";
        type("NEW");
        press(Qt::Key_Return, "\r");
        const QString row = isAtTheTop ? "row.0" : "row.20";
        EXPECT_TRUE(eventually([&] { return isInView(shown, row); }));
        EXPECT_TRUE(eventually([&] { return item("arrival")->opacity() > 0.1; }));
        EXPECT_TRUE(frameOf(row).contains(frameOf("arrival").center()));
        EXPECT_TRUE(eventually([&] { return item("arrival")->opacity() == 0; }));
        EXPECT_TRUE(hasFocus("field"));
    }
}

class HelpTest : public ListPanelsTest {
protected:
    void hover(const QString& objectName) {
        ASSERT_TRUE(eventually([&] { return item(objectName) != nullptr; }));
        hover(frameOf(objectName).center());
    }
    void hover(QPointF at) { QTest::mouseMove(&window, at.toPoint()); }
    bool isHelpShown() { return item("help")->isVisible(); }
    bool isHelpShownSoon() {
        return eventually([&] { return isHelpShown(); });
    }
    bool isHelpGoneSoon() {
        return eventually([&] { return !isHelpShown(); });
    }
    QString help() { return item("help")->childItems().constFirst()->property("text").toString(); }
};

TEST_F(HelpTest, TheNotesCopyButtonShowsWhatItDoes) {
    notes.addItem("a");
    open(ActivePanel::notes, "field");
    hover("rowButton");
    ASSERT_TRUE(isHelpShownSoon());
    EXPECT_EQ(help(), "Copy to clipboard");
    EXPECT_TRUE(frameOf("expandedContent").contains(frameOf("help")));
    EXPECT_FALSE(frameOf("help").intersects(frameOf("rowButton")));
    picture("help-notes");
    hover("field");
    EXPECT_TRUE(isHelpGoneSoon());
}

TEST_F(HelpTest, APressEndsTheHelp) {
    notes.addItem("a");
    open(ActivePanel::notes, "field");
    hover("rowButton");
    ASSERT_TRUE(isHelpShownSoon());
    QTest::mousePress(&window, Qt::LeftButton, {}, frameOf("rowButton").center().toPoint());
    EXPECT_FALSE(isHelpShown());
    QTest::mouseRelease(&window, Qt::LeftButton, {}, frameOf("rowButton").center().toPoint());
    EXPECT_EQ(platform.pasteboardPort.text, "a") << "and the press is the button's all the same";
}

TEST_F(HelpTest, ATasksButtonShowsWhatItDoes) {
    todo.addItem("a");
    open(ActivePanel::todo, "field");
    hover("rowButton");
    ASSERT_TRUE(isHelpShownSoon());
    EXPECT_EQ(help(), "Done");
}

TEST_F(HelpTest, GoesWithWhatItHelpsWith) {
    notes.addItem("a");
    open(ActivePanel::notes, "field");
    hover("rowButton");
    ASSERT_TRUE(isHelpShownSoon());
    notes.clear();
    EXPECT_TRUE(isHelpGoneSoon());
}

TEST_F(HelpTest, ATabThatTheKeyboardRestsOnIsNamed) {
    show(ActivePanel::battery);
    item("tab.battery")->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_TRUE(isHelpShownSoon());
    EXPECT_EQ(help(), "Battery");
    press(Qt::Key_Right);
    EXPECT_TRUE(isHelpShown()) << "from one to the next it follows at once";
    EXPECT_NE(help(), "Battery");
    press(Qt::Key_Space, " ");
    EXPECT_FALSE(isHelpShown());
}

class ClipboardPanelTest : public ListPanelsTest {
protected:
    ClipboardPanelTest() {
        clipboard.start();
        copy("first text");
        copy("https://host.example/second");
    }
    void copy(const std::string& text) {
        platform.pasteboardPort.copy(text);
        platform.runLoopPort.advance(0.5);
    }
};

TEST_F(ClipboardPanelTest, ShowsTheNewestFirstWithSourceAndAge) {
    platform.runLoopPort.advance(120);
    show(ActivePanel::clipboard);
    EXPECT_EQ(textOf("preview"), "https://host.example/second");
    EXPECT_EQ(textOf("detail"), "Unknown");
    picture("clipboard");
}

TEST_F(ClipboardPanelTest, AClickCopiesAndMovesTheRowToTheTop) {
    show(ActivePanel::clipboard);
    clickRow("row.1");
    EXPECT_EQ(platform.pasteboardPort.text, "first text");
    EXPECT_EQ(clipboard.items->front().content, "first text");
}

TEST_F(ClipboardPanelTest, TheSearchFieldTakesTheKeyboardWhenThePanelAppears) {
    open(ActivePanel::clipboard, "field");
    type("f");
    EXPECT_EQ(textOf("field"), "f");
}

TEST_F(ClipboardPanelTest, ACopySaysSoForAMoment) {
    show(ActivePanel::clipboard);
    ASSERT_NE(item("toast"), nullptr);
    EXPECT_FALSE(item("toast")->isVisible());
    clickRow("row.1");
    EXPECT_TRUE(item("toast")->isVisible());
    EXPECT_EQ(textOf("toastText"), "Copied");
    EXPECT_TRUE(eventually([&] { return !item("toast")->isVisible(); }));
}

TEST_F(ListPanelsTest, ACopiedNoteSaysSoAndAFinishedTaskShowsIt) {
    notes.addItem("a");
    open(ActivePanel::notes, "field");
    clickRow("rowButton");
    ASSERT_NE(item("toast"), nullptr);
    EXPECT_TRUE(item("toast")->isVisible());
    EXPECT_EQ(textOf("toastText"), "Copied");
    todo.addItem("b");
    open(ActivePanel::todo, "field");
    clickRow("rowButton");
    EXPECT_FALSE(item("toast")->isVisible());
}

TEST_F(ClipboardPanelTest, ASearchWithoutAMatchIsNoEmptyHistory) {
    open(ActivePanel::clipboard, "field");
    type("zz");
    EXPECT_TRUE(eventually([&] { return textOf("placeholderTitle") == "No results"; }));
    clipboard.items = std::vector<ClipboardItem>{};
    turn();
    EXPECT_EQ(textOf("placeholderTitle"), "No clipboard history");
}

TEST_F(ClipboardPanelTest, TypingSearches) {
    open(ActivePanel::clipboard, "field");
    type("FIRST");
    EXPECT_EQ(item("history")->property("count"), 1);
    type("x");
    EXPECT_EQ(item("history")->property("count"), 0);
    EXPECT_TRUE(eventually([&] { return item("placeholderTitle")->isVisible(); }));
}

TEST_F(ClipboardPanelTest, KeysCopyAndDelete) {
    show(ActivePanel::clipboard);
    item("field")->forceActiveFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    ASSERT_EQ(clipboard.items->size(), 1u);
    EXPECT_TRUE(eventually([&] { return hasFocus("row.0"); }));
    press(Qt::Key_Return, "\r");
    EXPECT_EQ(platform.pasteboardPort.text, "first text");
}

class PomodoroPanelTest : public ViewFixture {
protected:
    void show(const char* style) {
        platform.userDefaultsPort.set("pomodoroTimerStyle", std::string(style));
        ViewFixture::show(ActivePanel::pomodoro);
    }
    void play(Seconds seconds) {
        pomodoro.startTimer();
        platform.runLoopPort.advance(seconds);
        turn();
    }
};

TEST_F(PomodoroPanelTest, EveryStyleShowsTheTime) {
    for (const char* style : {"digital", "ring", "analog", "minimal"}) {
        play(300);
        show(style);
        EXPECT_EQ(textOf("time"), "20:00") << style;
        const QFontInfo face(item("time")->property("font").value<QFont>());
        EXPECT_TRUE(face.fixedPitch()) << style << ": " << face.family().toStdString();
        picture(std::string("pomodoro-") + style);
        pomodoro.reset();
    }
}

TEST_F(PomodoroPanelTest, TheDrawnStylesAre80HighAndFit) {
    show("ring");
    EXPECT_EQ(frameOf("ring").size(), QSizeF(80, 80));
    EXPECT_TRUE(frameOf("timerArea").contains(frameOf("ring")));
    show("analog");
    EXPECT_EQ(frameOf("dial").size(), QSizeF(80, 80));
    EXPECT_EQ(frameOf("sessionAndControls").height(), 44);
}

TEST_F(PomodoroPanelTest, TheButtonsStartPauseSkipAndReset) {
    show("digital");
    EXPECT_EQ(textOf("phase"), "READY");
    click("playButton");
    EXPECT_TRUE(pomodoro.state->isRunning);
    click("playButton");
    EXPECT_FALSE(pomodoro.state->isRunning);
    click("skipButton");
    EXPECT_EQ(textOf("phase"), "BREAK");
    EXPECT_EQ(frameOf("barFill").width(), 0);
    click("resetButton");
    EXPECT_EQ(pomodoro.state.get(), PomodoroState{});
}

TEST_F(PomodoroPanelTest, TheHandTurnsWithTheProgress) {
    play(25 * 60 / 4);
    show("analog");
    const auto hand = frameOf("hand");
    EXPECT_GT(hand.center().x(), frameOf("dial").center().x() + 10);
    EXPECT_NEAR(hand.center().y(), frameOf("dial").center().y(), 1);
}

} // namespace orvelle
