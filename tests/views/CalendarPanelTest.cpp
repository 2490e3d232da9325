#include "Views/Qt/MenuWindow.h"
#include "Views/Qt/Values.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QGuiApplication>

#include <functional>
#include <string>

namespace orvelle {

class CalendarPanelTest : public ViewFixture {
protected:
    CalendarEventModel event(const std::string& title, Seconds start, Seconds end) const {
        CalendarEventModel event;
        event.id = title;
        event.title = title;
        event.startDate = platform.runLoopPort.now() + start;
        event.endDate = platform.runLoopPort.now() + end;
        return event;
    }
    QQuickItem* part(const QString& row, const QString& name) const {
        auto* at = item("event." + row);
        std::function<QQuickItem*(QQuickItem*)> find = [&](QQuickItem* from) -> QQuickItem* {
            if (!from || from->objectName() == name)
                return from;
            for (auto* child : from->childItems())
                if (auto* found = find(child))
                    return found;
            return nullptr;
        };
        return find(at);
    }
    QString textOf(const QString& row, const QString& name) const {
        const auto* found = part(row, name);
        return found ? found->property("text").toString() : QStringLiteral("<no item>");
    }
};

TEST_F(CalendarPanelTest, withoutEventsThePlaceholderStands) {
    show(ActivePanel::calendar);
    EXPECT_EQ(ViewFixture::textOf("placeholderTitle"), "No upcoming events");
    EXPECT_FALSE(item("events")->isVisible());
    picture("calendar-empty");
}

TEST_F(CalendarPanelTest, aRowIsLitUnderThePointer) {
    calendar.events = std::vector{event("Lunch", 7200, 9000)};
    show(ActivePanel::calendar);
    const auto* ground = part("Lunch", "pointerGround");
    ASSERT_NE(ground, nullptr);
    mouse(QEvent::MouseMove, frameOf("tabBar").center());
    EXPECT_FALSE(ground->property("isHovered").toBool());
    mouse(QEvent::MouseMove, frameOf("event.Lunch").center());
    EXPECT_TRUE(ground->property("isHovered").toBool());
}

TEST_F(CalendarPanelTest, showsWhatIsOnAndWhatComes) {
    auto running = event("Design review", -1800, 1800);
    running.location = "Room 4";
    running.calendarColor = colors::red;
    calendar.events = std::vector{running, event("Lunch", 7200, 9000)};
    show(ActivePanel::calendar);
    EXPECT_EQ(item("placeholderTitle"), nullptr);
    EXPECT_EQ(ViewFixture::textOf("section.NOW"), "NOW");
    EXPECT_EQ(ViewFixture::textOf("section.UPCOMING"), "UPCOMING");
    EXPECT_EQ(textOf("Design review", "title"), "Design review");
    EXPECT_EQ(textOf("Design review", "time"), QString::fromUtf8("6:30\u202fAM"));
    EXPECT_EQ(textOf("Design review", "location"), "Room 4");
    EXPECT_EQ(textOf("Design review", "untilStart"), "<no item>");
    EXPECT_EQ(part("Design review", "circle")->property("color").value<QColor>(),
              toQt(colors::red));
    EXPECT_EQ(item("event.Design review")->property("color").value<QColor>(),
              toQt(Color::white(1, 0.06)));
    EXPECT_EQ(item("event.Lunch")->property("color").value<QColor>().alpha(), 0);
    EXPECT_EQ(textOf("Lunch", "untilStart"), "in 2 hr.");
    EXPECT_LT(frameOf("event.Design review").bottom(), frameOf("event.Lunch").top());
    EXPECT_LE(frameOf("event.Lunch").bottom(), 220);
    picture("calendar");
}

TEST_F(CalendarPanelTest, longTextsGiveWayToTheTime) {
    auto crowded = event(std::string(300, 'w'), 3600, 7200);
    crowded.location = std::string(300, 'm');
    calendar.events = std::vector{crowded};
    show(ActivePanel::calendar);
    const auto row = QString(300, u'w');
    const auto frame = frameOf("event." + row);
    const auto inScene = [&](const char* name) {
        auto* found = part(row, name);
        return found->mapRectToScene(found->boundingRect());
    };
    EXPECT_LE(inScene("title").right(), inScene("untilStart").left());
    EXPECT_LE(inScene("location").right(), inScene("untilStart").left());
    EXPECT_NEAR(inScene("untilStart").right(), frame.right() - 8, 0.5);
}

TEST_F(CalendarPanelTest, theSectionsFollowTheTime) {
    calendar.events = std::vector{event("Meeting", 60, 120)};
    show(ActivePanel::calendar);
    EXPECT_NE(item("section.UPCOMING"), nullptr);
    platform.runLoopPort.advance(60);
    EXPECT_TRUE(eventually([&] { return item("section.NOW") && !item("section.UPCOMING"); }));
    platform.runLoopPort.advance(65);
    EXPECT_TRUE(eventually([&] { return !item("section.NOW"); }));
}

TEST_F(CalendarPanelTest, aPanelThatIsGoneLooksAtNoClock) {
    show(ActivePanel::calendar);
    const auto timers = platform.runLoopPort.timerCount();
    show(ActivePanel::battery);
    EXPECT_LT(platform.runLoopPort.timerCount(), timers);
}

TEST_F(CalendarPanelTest, manyEventsCanBeScrolledThrough) {
    std::vector<CalendarEventModel> many;
    for (int index = 0; index < 40; ++index)
        many.push_back(event("Event " + std::to_string(index), 60 * (index + 1), 7200));
    calendar.events = many;
    show(ActivePanel::calendar);
    auto* list = item("events");
    EXPECT_GT(list->property("contentHeight").toDouble(), list->height());
    QMetaObject::invokeMethod(list, "positionViewAtEnd");
    turn();
    EXPECT_NE(item("event.Event 39"), nullptr);
    EXPECT_LE(frameOf("event.Event 39").bottom(), 220);
}

TEST_F(CalendarPanelTest, theArrowKeysGoFromEventToEventPastTheHeaders) {
    calendar.events =
        std::vector{event("Now", -60, 600), event("Next", 600, 1200), event("Last", 1800, 2400)};
    show(ActivePanel::calendar);
    item("events")->forceActiveFocus(Qt::TabFocusReason);
    const auto focused = [&] {
        for (const auto* name : {"Now", "Next", "Last"})
            if (item(QStringLiteral("event.") + QLatin1String(name))
                    ->property("isFocused")
                    .toBool())
                return std::string(name);
        return std::string();
    };
    KeyboardWalk keyboard(window);
    EXPECT_EQ(focused(), "Now");
    keyboard.press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Next");
    keyboard.press(Qt::Key_Down);
    keyboard.press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Last");
    keyboard.press(Qt::Key_Up);
    keyboard.press(Qt::Key_Up);
    keyboard.press(Qt::Key_Up);
    EXPECT_EQ(focused(), "Now");
}

TEST_F(CalendarPanelTest, theMenuKeyOpensTheMenuOfTheEventOrOfTheEmptyCalendar) {
    const auto hasMenu = [] {
        for (auto* shown : QGuiApplication::topLevelWindows())
            if (auto* menu = qobject_cast<MenuWindow*>(shown); menu && menu->isVisible())
                return menu->close();
        return false;
    };
    show(ActivePanel::calendar);
    KeyboardWalk(window).press(Qt::Key_Menu);
    EXPECT_TRUE(hasMenu());
    calendar.events = std::vector{event("Next", 600, 1200)};
    window.requestActivate();
    settle();
    KeyboardWalk(window).press(Qt::Key_Menu);
    EXPECT_TRUE(hasMenu());
}

} // namespace orvelle
