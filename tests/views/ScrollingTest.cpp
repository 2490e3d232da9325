#include "Foundation/FileURL.h"
#include "views/ViewFixture.h"

#include <cmath>

namespace orvelle {

/// The panels that can have more than they show, each filled with more.
class ScrollingTest : public ViewFixture {
protected:
    struct Case {
        ActivePanel panel;
        const char* list;
    };
    static constexpr Case cases[] = {
        {ActivePanel::todo, "entries"},        {ActivePanel::notes, "entries"},
        {ActivePanel::clipboard, "history"},   {ActivePanel::stockTicker, "tickers"},
        {ActivePanel::fileShelf, "shelfGrid"}, {ActivePanel::calendar, "events"},
    };

    ScrollingTest() {
        for (int number = 0; number < 20; ++number) {
            const auto text = "entry " + std::to_string(number);
            todo.addItem(text);
            notes.addItem(text);
            stockTicker.addTicker("S" + std::to_string(number));
            ClipboardItem copy;
            copy.id = UUID::random();
            copy.content = text;
            clipboard.items.update([&](auto& items) { items.push_back(copy); });
            CalendarEventModel event;
            event.id = event.title = text;
            event.startDate = platform.runLoopPort.now() + 3600;
            event.endDate = event.startDate + 60;
            calendar.events.update([&](auto& events) { events.push_back(event); });
            const auto file = "/home/" + text;
            platform.fileSystemPort.files[file] = text;
            fileShelf.addFile(FileURL::ofPath(file));
        }
        platform.runLoopPort.runPosted();
    }
    double number(const char* property) { return item(list)->property(property).toDouble(); }
    double first() { return number("originY") - number("topMargin"); }
    double last() {
        return number("originY") + number("contentHeight") + number("bottomMargin") -
               number("height");
    }
    double goal() { return item("scrollEdges")->property("goal").toDouble(); }
    QPointF middle() { return frameOf(list).center(); }
    /// Whether it comes to stand there.
    bool comesTo(double position) {
        return eventually([&] { return std::abs(number("contentY") - position) < 0.01; });
    }
    /// Turns by notches until there is no more; says by how many.
    int turns(int units) {
        int count = 0;
        while (count < 100 && wheel(middle(), units)) {
            // Where the end is may turn out on the way.
            EXPECT_TRUE(eventually([&] { return number("contentY") == goal(); }));
            settle();
            ++count;
        }
        return count;
    }
    void open(const Case& shown) {
        list = shown.list;
        show(shown.panel);
        turn();
    }

    const char* list = nullptr;
};

TEST_F(ScrollingTest, EveryListKeepsTheWheelWhileItCanScroll) {
    for (const auto& shown : cases) {
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        open(shown);
        EXPECT_TRUE(comesTo(first()));
        EXPECT_FALSE(wheel(middle(), 120)) << "it stands at its beginning";
        EXPECT_GT(turns(-120), 1);
        EXPECT_TRUE(comesTo(last()));
        EXPECT_FALSE(wheel(middle(), -120)) << "it stands at its end";
        EXPECT_TRUE(wheel(middle(), 120));
        EXPECT_TRUE(eventually([&] { return number("contentY") < last() - 30; }));
        turns(120);
        EXPECT_TRUE(comesTo(first()));
    }
}

TEST_F(ScrollingTest, ItsEndsAreBlackWhereAListGoesOn) {
    for (const auto& shown : cases) {
        if (shown.panel == ActivePanel::fileShelf)
            continue; // cuts no row
        SCOPED_TRACE(std::string(rawValue(shown.panel)));
        open(shown);
        ASSERT_TRUE(comesTo(first()));
        EXPECT_EQ(item("upperFade")->opacity(), 0);
        EXPECT_EQ(item("lowerFade")->opacity(), 1);
        wheel(middle(), -120);
        EXPECT_TRUE(eventually([&] { return item("upperFade")->opacity() == 1; }));
        turns(-120);
        EXPECT_EQ(item("lowerFade")->opacity(), 0);
        EXPECT_EQ(item("upperFade")->opacity(), 1);
        EXPECT_EQ(frameOf("upperFade").top(), frameOf(list).top());
    }
}

TEST_F(ScrollingTest, AMarkShowsWhereItIsWhileItMoves) {
    open({ActivePanel::todo, "entries"});
    const auto* mark = item("scrollMark");
    EXPECT_TRUE(eventually([&] { return mark->opacity() == 0; }));
    wheel(middle(), -120);
    EXPECT_TRUE(eventually([&] { return mark->opacity() == 1; }));
    EXPECT_LE(frameOf("scrollMark").width(), 4);
    EXPECT_GT(frameOf("scrollMark").top(), frameOf("entries").top());
    turns(-120);
    EXPECT_NEAR(frameOf("scrollMark").bottom(), frameOf("entries").bottom(), 0.1);
    EXPECT_TRUE(eventually([&] { return mark->opacity() == 0; }));
}

TEST_F(ScrollingTest, TheShelfShowsWholeRows) {
    open({ActivePanel::fileShelf, "shelfGrid"});
    EXPECT_EQ(item("scrollMark")->opacity(), 1) << "nothing else says that there is more";
    const auto view = frameOf("shelfView");
    const double pitch = number("cellHeight");
    const auto showsWholeRows = [&] {
        const double rows = (number("contentY") - first()) / pitch;
        return std::abs(rows - std::round(rows)) < 0.01;
    };
    const double rows = number("height") / pitch;
    EXPECT_NEAR(rows, std::round(rows), 0.01);
    EXPECT_GE(frameOf("shelfGrid").top(), view.top());
    EXPECT_LE(frameOf("shelfGrid").bottom() - 12, view.bottom()) << "the last gap may lie outside";
    EXPECT_TRUE(wheel(view.topLeft() + QPointF(4, 2), -120)) << "all of it takes the wheel";
    EXPECT_TRUE(eventually([&] { return number("contentY") == pitch; }));
    EXPECT_TRUE(wheel(middle(), -40));
    EXPECT_FALSE(showsWholeRows()) << "fingers move it freely";
    EXPECT_EQ(item("upperFade")->opacity(), 1);
    EXPECT_EQ(item("lowerFade")->opacity(), 1);
    EXPECT_TRUE(eventually(showsWholeRows)) << "until they rest";
    EXPECT_TRUE(eventually([&] {
        return item("upperFade")->opacity() == 0 && item("lowerFade")->opacity() == 0;
    })) << "a whole row is no end to blacken";
}

TEST_F(ScrollingTest, FingersMoveAListAtOnceAndByWhatTheyDo) {
    open({ActivePanel::todo, "entries"});
    EXPECT_TRUE(wheel(middle(), -14));
    EXPECT_EQ(number("contentY"), 7);
    EXPECT_TRUE(wheel(middle(), 4));
    EXPECT_EQ(number("contentY"), 5);
    EXPECT_TRUE(wheel(middle(), 100));
    EXPECT_EQ(number("contentY"), 0) << "not beyond its beginning";
    EXPECT_FALSE(wheel(middle(), 4));
}

TEST_F(ScrollingTest, TheWheelBesideAListIsNotItsOwn) {
    open({ActivePanel::todo, "entries"});
    EXPECT_FALSE(wheel({middle().x(), frameOf("entryField").center().y()}, -120));
    EXPECT_FALSE(wheel(frameOf("tabBar").center(), -120));
    EXPECT_EQ(number("contentY"), 0);
}

TEST_F(ScrollingTest, AListThatShowsAllItHasLeavesTheWheel) {
    todo.items.update([](auto& items) { items.resize(2); });
    open({ActivePanel::todo, "entries"});
    EXPECT_FALSE(wheel(middle(), -120));
    EXPECT_FALSE(wheel(middle(), 120));
}

TEST_F(ScrollingTest, AListOfAPanelThatClosesLeavesTheWheel) {
    open({ActivePanel::todo, "entries"});
    const auto at = middle();
    EXPECT_TRUE(wheel(at, -120));
    notchState.expandedState = NotchExpandedState::collapsed;
    turn();
    ASSERT_NE(item("entries"), nullptr) << "it fades away";
    EXPECT_FALSE(wheel(at, -120));
}

} // namespace orvelle
