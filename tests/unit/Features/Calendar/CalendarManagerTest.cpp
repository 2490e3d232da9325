#include "Features/Calendar/CalendarManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Durations.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

constexpr Seconds day = 86400;

/// Noon UTC, 7 in the morning in New York.
class CalendarManagerTest : public testing::Test {
protected:
    void store(const std::string& title, Seconds start, Seconds end, bool isAllDay = false) {
        StoredEvent event;
        event.eventIdentifier = title + "-id";
        event.title = title;
        event.startDate = now + start;
        event.endDate = now + end;
        event.isAllDay = isAllDay;
        platform.eventStorePort.stored.push_back(event);
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& event : manager.events.get())
            titles.push_back(event.title);
        return titles;
    }
    std::vector<std::string> sectionsOf(const std::string& title) {
        std::vector<std::string> headers;
        for (const auto& section : manager.expandedView().sections())
            for (const auto& row : section.rows)
                if (row.title.text == title)
                    headers.push_back(section.header.text);
        return headers;
    }
    void notifyChanged() {
        platform.eventStorePort.notifyChanged();
        platform.runLoopPort.runPosted();
    }

    SimulatedPlatform platform;
    const Date now = platform.runLoopPort.now();
    CalendarManager manager{platform};
};

using Texts = std::vector<std::string>;

TEST_F(CalendarManagerTest, AccessThatComesLaterBringsTheEvents) {
    platform.eventStorePort.status = EventAuthorizationStatus::notDetermined;
    store("Standup", 3600, 7200);
    manager.start();
    EXPECT_EQ(manager.authorizationStatus.get(), EventAuthorizationStatus::notDetermined);
    EXPECT_TRUE(titles().empty());
    platform.eventStorePort.change(EventAuthorizationStatus::fullAccess);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(manager.authorizationStatus.get(), EventAuthorizationStatus::fullAccess);
    EXPECT_EQ(titles(), std::vector<std::string>{"Standup"});
}

TEST_F(CalendarManagerTest, AnEventThatRunsOnIsInNowAndIsTheNextUpcomingEvent) {
    store("Running", -hour, hour);
    store("Later", 30 * minute, hour);
    manager.start();
    EXPECT_EQ(sectionsOf("Running"), Texts{"NOW"});
    EXPECT_EQ(sectionsOf("Later"), Texts{"UPCOMING"});
    ASSERT_TRUE(manager.nextUpcomingEvent());
    EXPECT_EQ(manager.nextUpcomingEvent()->title, "Running");
}

TEST_F(CalendarManagerTest, AnAllDayEventOfTodayIsInProgressForItsWholeSpan) {
    const Seconds midnight = -7 * hour; // in New York
    store("Holiday", midnight, midnight + day, true);
    manager.start();
    for (const Seconds step : {0.0, 10 * hour, 6 * hour, 1 * hour}) { // up to the next midnight
        platform.runLoopPort.advance(step);
        EXPECT_EQ(sectionsOf("Holiday"), Texts{"NOW"}) << platform.runLoopPort.monotonicNow();
        EXPECT_EQ(manager.nextUpcomingEvent()->title, "Holiday");
    }
    platform.runLoopPort.advance(1);
    EXPECT_EQ(sectionsOf("Holiday"), Texts{});
    EXPECT_FALSE(manager.nextUpcomingEvent());
}

TEST_F(CalendarManagerTest, AnEventIn24HoursAndOneMinuteIsNotInTheList) {
    store("Too late", day + minute, day + hour);
    store("In time", day - minute, day + hour);
    manager.start();
    EXPECT_EQ(titles(), Texts{"In time"});
}

TEST_F(CalendarManagerTest, AnEventWithNoTitleShowsUntitled) {
    store("", hour, 2 * hour);
    platform.eventStorePort.stored.back().title.reset();
    manager.start();
    EXPECT_EQ(titles(), Texts{"Untitled"});
}

TEST_F(CalendarManagerTest, WithoutFullAccessTheListStaysEmptyThoughTheStoreChanges) {
    for (const auto status :
         {EventAuthorizationStatus::notDetermined, EventAuthorizationStatus::restricted,
          EventAuthorizationStatus::denied, EventAuthorizationStatus::writeOnly}) {
        platform.eventStorePort.status = status;
        platform.eventStorePort.stored.clear();
        manager.start();
        EXPECT_EQ(manager.authorizationStatus.get(), status);
        store("Secret", hour, 2 * hour);
        notifyChanged();
        EXPECT_TRUE(manager.events->empty());
    }
}

TEST_F(CalendarManagerTest, ConstructionReadsTheStatusAndNothingElse) {
    store("Event", hour, 2 * hour);
    EXPECT_EQ(manager.authorizationStatus.get(), EventAuthorizationStatus::fullAccess);
    notifyChanged();
    EXPECT_EQ(platform.eventStorePort.queryCount, 0);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 0);
    EXPECT_TRUE(manager.isEnabled);
}

TEST_F(CalendarManagerTest, StartReadsTheStatusAgain) {
    platform.eventStorePort.status = EventAuthorizationStatus::denied;
    manager.start();
    EXPECT_EQ(manager.authorizationStatus.get(), EventAuthorizationStatus::denied);
    EXPECT_EQ(platform.eventStorePort.queryCount, 0);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 0) << "the wizard asks, not this feature";
}

TEST_F(CalendarManagerTest, AChangeOfTheStoreReadsTheEventsAgain) {
    manager.start();
    store("New", hour, 2 * hour);
    platform.eventStorePort.notifyChanged();
    EXPECT_EQ(titles(), Texts{}) << "as a task on the main thread";
    platform.runLoopPort.runPosted();
    EXPECT_EQ(titles(), Texts{"New"});
}

TEST_F(CalendarManagerTest, WithoutItsObserverItHearsOfNoChange) {
    manager.start();
    manager.notificationObserver.reset();
    store("New", hour, 2 * hour);
    notifyChanged();
    EXPECT_EQ(titles(), Texts{});
}

TEST_F(CalendarManagerTest, AChangeThatArrivesAfterTheManagerDoesNothing) {
    auto mortal = std::make_unique<CalendarManager>(platform);
    mortal->start();
    const int queries = platform.eventStorePort.queryCount;
    platform.eventStorePort.notifyChanged();
    mortal.reset();
    platform.runLoopPort.runPosted();
    EXPECT_EQ(platform.eventStorePort.queryCount, queries);
}

TEST_F(CalendarManagerTest, SortsByStartAndKeepsTheStoresOrderAtATie) {
    store("Third", 3 * hour, 4 * hour);
    store("First", hour, 2 * hour);
    store("Second", hour, 4 * hour);
    manager.start();
    EXPECT_EQ(titles(), (Texts{"First", "Second", "Third"}));
}

TEST_F(CalendarManagerTest, PublishesTheListOnceAReading) {
    store("First", hour, 2 * hour);
    store("Second", hour, 4 * hour);
    manager.start();
    int published = -1; // the first delivery is the present value
    const auto observer = manager.events.observe([&](const auto&) { ++published; });
    manager.fetchEvents();
    EXPECT_EQ(published, 1);
}

TEST_F(CalendarManagerTest, TakesEveryFieldAndFillsInWhatIsMissing) {
    StoredEvent whole;
    whole.eventIdentifier = "id";
    whole.title = "Review";
    whole.startDate = now + hour;
    whole.endDate = now + 2 * hour;
    whole.calendar = StoredEvent::Calendar{colors::red, "Work"};
    whole.location = "Room 4";
    whole.url = "https://example.org/";
    StoredEvent bare;
    bare.startDate = now + 3 * hour;
    bare.endDate = now + 4 * hour;
    StoredEvent endless;
    endless.startDate = now + hour;
    platform.eventStorePort.stored = {whole, bare, bare, endless};
    manager.start();

    ASSERT_EQ(manager.events->size(), 3u) << "an event without its times is not built";
    EXPECT_EQ(manager.events->at(0),
              (CalendarEventModel{"id", "Review", now + hour, now + 2 * hour, colors::red, "Work",
                                  "Room 4", false, "https://example.org/"}));
    const auto& made = manager.events->at(1);
    EXPECT_EQ(made.id.size(), 36u);
    EXPECT_NE(made.id, manager.events->at(2).id);
    EXPECT_EQ(made.calendarColor, colors::blue);
    EXPECT_EQ(made.calendarTitle, "");
    EXPECT_FALSE(made.location);
    EXPECT_FALSE(made.url);
}

TEST_F(CalendarManagerTest, AnEventThatHasEndedStaysInTheListUntilTheStoreChanges) {
    store("Short", -hour, 10 * minute);
    manager.start();
    platform.runLoopPort.advance(hour);
    EXPECT_EQ(titles(), Texts{"Short"});
    EXPECT_FALSE(manager.nextUpcomingEvent());
    EXPECT_TRUE(manager.expandedView().sections().empty());
    EXPECT_FALSE(manager.expandedView().noEvents()) << "the list is not empty";
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    notifyChanged();
    EXPECT_EQ(titles(), Texts{});
}

TEST_F(CalendarManagerTest, AnEventThatBeginsAtThisMomentIsNow) {
    store("Beginning", 0, hour);
    manager.start();
    EXPECT_EQ(sectionsOf("Beginning"), Texts{"NOW"});
    const auto sections = manager.expandedView().sections();
    EXPECT_EQ(sections.at(0).rows.at(0).untilStart, std::nullopt) << "it no longer starts";
}

TEST_F(CalendarManagerTest, AnEventThatEndsAtThisMomentIsStillNow) {
    store("Ending", -hour, 0);
    manager.start();
    EXPECT_EQ(sectionsOf("Ending"), Texts{"NOW"});
    ASSERT_TRUE(manager.nextUpcomingEvent());
    EXPECT_EQ(manager.nextUpcomingEvent()->title, "Ending");
}

TEST_F(CalendarManagerTest, AnEventOfTheWholeDayIsOne) {
    store("Holiday", -hour, hour, true);
    manager.start();
    EXPECT_TRUE(manager.events->at(0).isAllDay);
    EXPECT_EQ(manager.expandedView().sections().at(0).rows.at(0).time.text, "All Day");
}

} // namespace
} // namespace orvelle
