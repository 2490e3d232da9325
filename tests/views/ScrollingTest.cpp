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
