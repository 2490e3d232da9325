#include "Extensions/ColorTheme.h"
#include "Features/Calendar/CalendarManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Durations.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// 7 in the morning in New York.
class CalendarViewTest : public testing::Test {
protected:
    CalendarEventModel event(const std::string& title, Seconds start, Seconds end) const {
        CalendarEventModel event;
        event.id = title;
        event.title = title;
        event.startDate = now + start;
        event.endDate = now + end;
        return event;
    }

    SimulatedPlatform platform;
    const Date now = platform.runLoopPort.now();
    CalendarManager manager{platform};
    CalendarExpandedView view = manager.expandedView();
};

TEST_F(CalendarViewTest, WithoutEventsThePanelSaysSo) {
    EXPECT_EQ(view.noEvents(),
              (FilePlaceholder{{"calendar", 17, notchTertiary},
                               {"No upcoming events", {10, FontWeight::regular, notchTertiary}}}));
    EXPECT_TRUE(view.sections().empty());
    const auto menu = view.emptyMenu();
    ASSERT_FALSE(menu.empty());
    EXPECT_FALSE(menu[0].followsDivider) << "it stands alone";
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].title, "Create New Event...");
    menu[0].perform();
    EXPECT_EQ(platform.workspacePort.opened, std::vector<std::string>{"ical://"});
}

TEST_F(CalendarViewTest, SectionsHaveUpperCaseHeadersAndTheirOwnRows) {
    auto running = event("Running", -hour, hour);
    running.calendarColor = colors::red;
    running.location = "Room 4";
    manager.events = std::vector{event("Over", -3 * hour, -2 * hour), running,
                                 event("Later", 2 * hour, 3 * hour)};
    EXPECT_FALSE(view.noEvents());
    const auto sections = view.sections();
    ASSERT_EQ(sections.size(), 2u);
    EXPECT_EQ(sections[0].header, (StyledText{"NOW", {10, FontWeight::semibold, notchSecondary}}));
    EXPECT_EQ(sections[0].rowFill, Color::white(1, 0.06));
    ASSERT_EQ(sections[0].rows.size(), 1u);
    const auto& shown = sections[0].rows[0];
    EXPECT_EQ(shown.circle, colors::red);
    EXPECT_EQ(shown.title, (StyledText{"Running", {10, FontWeight::regular, colors::white}}));
    EXPECT_EQ(shown.time.text, "6:00\u202fAM");
    EXPECT_EQ(shown.location->text, "Room 4");
    EXPECT_FALSE(shown.untilStart) << "it has begun";

    EXPECT_EQ(sections[1].header.text, "UPCOMING");
    EXPECT_EQ(sections[1].rowFill, colors::clear);
    ASSERT_EQ(sections[1].rows.size(), 1u);
    const auto& later = sections[1].rows[0];
    EXPECT_EQ(later.time.text, "9:00\u202fAM");
    EXPECT_FALSE(later.location);
    EXPECT_EQ(later.untilStart->text, "in 2 hr.");
}

TEST_F(CalendarViewTest, ASectionWithoutEventsIsLeftOut) {
    manager.events = std::vector{event("Later", 2 * hour, 3 * hour)};
    ASSERT_EQ(view.sections().size(), 1u);
    EXPECT_EQ(view.sections()[0].header.text, "UPCOMING");
}

TEST_F(CalendarViewTest, SectionsFollowTheTime) {
    manager.events = std::vector{event("Meeting", hour, 2 * hour)};
    EXPECT_EQ(view.sections()[0].rows[0].untilStart->text, "in 1 hr.");
    platform.runLoopPort.advance(20 * 60);
    EXPECT_EQ(view.sections()[0].rows[0].untilStart->text, "in 40 min.");
    platform.runLoopPort.advance(40 * 60);
    EXPECT_EQ(view.sections()[0].header.text, "NOW") << "from the moment that it starts";
    platform.runLoopPort.advance(hour);
    EXPECT_EQ(view.sections()[0].header.text, "NOW") << "to the moment that it ends";
    platform.runLoopPort.advance(1);
    EXPECT_TRUE(view.sections().empty());
}

TEST_F(CalendarViewTest, AnAllDayEventHasNoTime) {
    auto holiday = event("Holiday", -hour, 23 * hour);
    holiday.isAllDay = true;
    manager.events = std::vector{holiday};
    EXPECT_EQ(view.sections()[0].rows[0].time.text, "All Day");
    EXPECT_EQ(manager.collapsedView().content()->time.text, "All Day");
}

TEST_F(CalendarViewTest, RowsOfOneIdentifierHaveIdentitiesOfTheirOwn) {
    manager.events = std::vector{event("Twin", -hour, hour), event("Twin", -hour, 2 * hour)};
    const auto rows = view.sections()[0].rows;
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_NE(rows[0].id, rows[1].id);
}

TEST_F(CalendarViewTest, ARowsMenuShowsItsDayOrBeginsAnEvent) {
    const auto menu = view.rowMenu(now);
    ASSERT_EQ(menu.size(), 2u);
    EXPECT_EQ(menu[0].title, "Open in Calendar");
    EXPECT_FALSE(menu[0].followsDivider);
    EXPECT_EQ(menu[1].title, "Create New Event...");
    EXPECT_TRUE(menu[1].followsDivider);
    menu[0].perform();
    platform.runLoopPort.runPosted();
    ASSERT_EQ(platform.scriptExecutorPort.executed.size(), 1u);
    EXPECT_NE(platform.scriptExecutorPort.executed[0].find("January 15, 2026"), std::string::npos);
    menu[1].perform();
    platform.runLoopPort.runPosted();
    EXPECT_NE(platform.scriptExecutorPort.executed[1].find("keystroke"), std::string::npos);
}

TEST_F(CalendarViewTest, TheCollapsedViewShowsTheNextEvent) {
    EXPECT_FALSE(manager.hasCollapsedContent());
    EXPECT_FALSE(manager.collapsedView().content());
    manager.events = std::vector{event("Meeting", hour, 2 * hour)};
    EXPECT_TRUE(manager.hasCollapsedContent());
    EXPECT_EQ(manager.collapsedView().content(),
              (CalendarCollapsedView::Content{
                  colors::blue,
                  {"Meeting", {10, FontWeight::regular, notchAccent}},
                  {"8:00\u202fAM", {10, FontWeight::medium, notchSecondary}}}));
}

} // namespace
} // namespace orvelle
