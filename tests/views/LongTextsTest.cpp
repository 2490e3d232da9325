#include "views/ViewFixture.h"

#include <QCoreApplication>

#include <algorithm>
#include <string>

namespace orvelle {

/// Texts of other programs, and of files, are of any length.
class LongTextsTest : public ViewFixture {
protected:
    static constexpr std::size_t megabyte = 1'000'000;
    static constexpr qsizetype longestShown =
        1001; ///< characters, of which the last is an ellipsis

    /// What is laid out, shown at present or not: the length of its longest text.
    static qsizetype longestText(const QQuickItem* top) {
        const bool isText = top->inherits("QQuickText") || top->inherits("QQuickTextInput") ||
                            top->inherits("QQuickTextEdit");
        qsizetype longest = isText ? top->property("text").toString().size() : 0;
        for (const auto* child : top->childItems())
            longest = std::max(longest, longestText(child));
        return longest;
    }
    bool isTold() const {
        const auto* toast = item("toast");
        return toast && toast->isVisible();
    }
    /// The text arrives in the views, and no more of it than its beginning.
    template <class Show>
    void expectBeginning(const Show& showText) {
        settle();
        const auto before = longestText(window.contentItem());
        showText(std::string(megabyte, 'x'));
        settle();
        const auto after = longestText(window.contentItem());
        EXPECT_GT(after, before);
        EXPECT_LE(after, longestShown);
    }
};

TEST_F(LongTextsTest, OfATaskAndANoteTheBeginningIsLaidOut) {
    show(ActivePanel::todo);
    expectBeginning([&](const std::string& text) {
        TodoItem item;
        item.title = text;
        todo.items = std::vector{item};
    });
    EXPECT_TRUE(textOf("rowText").endsWith(QChar(0x2026)));
    todo.items = std::vector<TodoItem>();
    show(ActivePanel::notes);
    expectBeginning([&](const std::string& text) {
        NoteItem item;
        item.text = text;
        notes.items = std::vector{item};
    });
}

TEST_F(LongTextsTest, OfAnEventTheBeginningIsLaidOut) {
    show(ActivePanel::calendar);
    const auto showEvent = [&](const std::string& title, const std::string& location) {
        CalendarEventModel event;
        event.id = event.title = title;
        event.location = location;
        event.startDate = platform.runLoopPort.now() + 60;
        event.endDate = event.startDate + 60;
        calendar.events = std::vector{event};
    };
    expectBeginning([&](const std::string& text) { showEvent(text, ""); });
    showEvent("A", "B");
    expectBeginning([&](const std::string& text) { showEvent("A", text); });
}

TEST_F(LongTextsTest, OfATrackTheBeginningIsLaidOut) {
    for (const auto state : {NotchExpandedState::hovering, NotchExpandedState::expanded}) {
        notchState.activePanel = ActivePanel::media;
        show(state);
        for (const auto field : {&MediaInfo::title, &MediaInfo::artist}) {
            const auto play = [&](const std::string& text) {
                MediaInfo info;
                info.title = info.artist = info.album = info.appName = "A";
                info.isPlaying = true;
                info.*field = text;
                media.currentMedia = info;
            };
            play("A");
            expectBeginning(play);
        }
    }
}

TEST_F(LongTextsTest, OfACopiedTextTheBeginningIsLaidOut) {
    show(ActivePanel::clipboard);
    expectBeginning([&](const std::string& text) {
        ClipboardItem item;
        item.content = text;
        clipboard.items = std::vector{item};
    });
}

TEST_F(LongTextsTest, OfAFileNameTheBeginningIsLaidOut) {
    show(ActivePanel::fileShelf);
    expectBeginning([&](const std::string& text) {
        const auto name = text.substr(0, 4000); // longer ones are no file's
        fileShelf.items = std::vector{ShelfItem("file:///" + name, 24, platform)};
    });
}

TEST_F(LongTextsTest, OfAMenuTheBeginningIsLaidOut) {
    const MenuValue menu{{{std::string(megabyte, 'x'), [] {}}}};
    EXPECT_EQ(menu.lines().front().value<MenuLineValue>().title.size(), longestShown);
}

TEST_F(LongTextsTest, APastedMegabyteFillsTheFieldAndThePanelTellsThatItIsCut) {
    window.requestActivate();
    for (const auto panel : {ActivePanel::todo, ActivePanel::notes, ActivePanel::stockTicker,
                             ActivePanel::clipboard}) {
        show(panel);
        ASSERT_TRUE(eventually([&] { return item("field") != nullptr; }));
        EXPECT_FALSE(isTold()) << static_cast<int>(panel);
        item("field")->forceActiveFocus();
        platform.pasteboardPort.copy(std::string(megabyte, 'x'));
        QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, "\x16");
        QCoreApplication::sendEvent(&window, &paste);
        EXPECT_TRUE(eventually([&] { return isTold(); })) << static_cast<int>(panel);
        EXPECT_EQ(textOf("field").size(), 4000);
        EXPECT_EQ(textOf("toastText"), "No more than 4,000 characters fit");
        picture("cut");
        item("field")->setProperty("text", QString());
        EXPECT_TRUE(eventually([&] { return !isTold(); })) << static_cast<int>(panel);
    }
}

} // namespace orvelle
