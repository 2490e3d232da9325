#include "views/ViewFixture.h"

#include <QCoreApplication>

#include <algorithm>
#include <ctime>
#include <string>

namespace orvelle {

/// Texts of other programs, and of files, are of any length.
class LongTextsTest : public ViewFixture {
protected:
    static constexpr std::size_t megabyte = 1'000'000;
#ifdef ORVELLE_SANITIZED
    static constexpr double bound = 50; // a sanitizer looks at every copied byte
#else
    static constexpr double bound = 10; // milliseconds
#endif

    static double processorTime() {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
    }
    /// What the main thread works to show `change`, up to the picture.
    template <class Change>
    double cost(const Change& change) {
        settle();
        const double before = processorTime();
        change();
        turn();
        window.grabWindow();
        return processorTime() - before;
    }
    /// How much more it works for long texts than for short ones, at best of three.
    template <class Show>
    double extraCost(const Show& showText) {
        double least = 1e9;
        for (char letter = 'a'; letter < 'd'; ++letter) {
            const double shortCost = cost([&] { showText(std::string(20, letter)); });
            const double longCost = cost([&] { showText(std::string(megabyte, letter)); });
            least = std::min(least, longCost - shortCost);
        }
        return least;
    }
};

TEST_F(LongTextsTest, aTaskAndANoteOfAMegabyteCostNoMoreThanTheirFirstLines) {
    show(ActivePanel::todo);
    EXPECT_LT(extraCost([&](const std::string& text) {
                  TodoItem item;
                  item.title = text;
                  todo.items = std::vector{item};
              }),
              bound);
    EXPECT_EQ(textOf("rowText").size(), 1001);
    EXPECT_TRUE(textOf("rowText").endsWith(QChar(0x2026)));
    show(ActivePanel::notes);
    EXPECT_LT(extraCost([&](const std::string& text) {
                  NoteItem item;
                  item.text = text;
                  notes.items = std::vector{item};
              }),
              bound);
}

TEST_F(LongTextsTest, AnEventOfMegabytesCostsNoMoreThanItsFirstLine) {
    show(ActivePanel::calendar);
    EXPECT_LT(extraCost([&](const std::string& text) {
                  CalendarEventModel event;
                  event.id = event.title = text;
                  event.location = text;
                  event.startDate = platform.runLoopPort.now() + 60;
                  event.endDate = event.startDate + 60;
                  calendar.events = std::vector{event};
              }),
              bound);
}

TEST_F(LongTextsTest, ATrackOfMegabytesCostsNoMoreThanItsFirstLine) {
    const auto play = [&](const std::string& text) {
        MediaInfo info;
        info.title = info.artist = info.album = info.appName = text;
        info.isPlaying = true;
        media.currentMedia = info;
    };
    for (const auto state : {NotchExpandedState::hovering, NotchExpandedState::expanded}) {
        notchState.activePanel = ActivePanel::media;
        show(state);
        EXPECT_LT(extraCost(play), bound);
    }
}

TEST_F(LongTextsTest, ACopiedMegabyteCostsNoMoreThanItsFirstLine) {
    show(ActivePanel::clipboard);
    EXPECT_LT(extraCost([&](const std::string& text) {
                  ClipboardItem item;
                  item.content = text;
                  clipboard.items = std::vector{item};
              }),
              bound);
}

TEST_F(LongTextsTest, AMenuOfMegabytesCostsNoMoreThanItsFirstWords) {
    const MenuValue menu{{{std::string(megabyte, 'x'), [] {}}}};
    const double before = processorTime();
    const auto lines = menu.lines();
    EXPECT_LT(processorTime() - before, bound);
    EXPECT_LT(lines.front().value<MenuLineValue>().title.size(), 1002);
}

TEST_F(LongTextsTest, APastedMegabyteFillsTheFieldAndNoMore) {
    window.requestActivate();
    show(ActivePanel::notes);
    ASSERT_TRUE(eventually([&] { return item("field") != nullptr; }));
    auto* field = item("field");
    const auto fill = [&](const QString& text) {
        return cost([&] {
            field->setProperty("text", QString());
            QMetaObject::invokeMethod(field, "insert", Q_ARG(int, 0), Q_ARG(QString, text));
        });
    };
    const double shortCost = fill(QStringLiteral("words"));
    const double longCost = fill(QString(megabyte, u'x'));
    EXPECT_LT(longCost - shortCost, bound);
    EXPECT_EQ(textOf("field").size(), 4000);
    // Another letter into the full line.
    EXPECT_LT(cost([&] {
                  QMetaObject::invokeMethod(field, "remove", Q_ARG(int, 0), Q_ARG(int, 1));
                  QMetaObject::invokeMethod(field, "insert", Q_ARG(int, 0),
                                            Q_ARG(QString, QStringLiteral("y")));
              }) - shortCost,
              bound);
}

} // namespace orvelle
