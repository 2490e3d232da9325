#include "Features/Calendar/CalendarActions.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string showDay =
    "tell application \"Calendar\"\n    activate\n    view calendar at date "
    "\"Thursday, January 15, 2026\"\nend tell";
const std::string newEvent =
    "tell application \"Calendar\"\n    activate\nend tell\ntell application \"System Events\"\n"
    "    tell process \"Calendar\"\n        keystroke \"n\" using command down\n    end tell\nend "
    "tell";

class CalendarActionsTest : public testing::Test {
protected:
    void open() {
        CalendarActions::openInCalendar(SimulatedRunLoop::defaultStart, platform);
        platform.runLoopPort.runPosted();
    }
    void outcome(const ScriptOutcome& outcome) {
        platform.scriptExecutorPort.outcomes[showDay] = outcome;
        platform.scriptExecutorPort.outcomes[newEvent] = outcome;
    }
    /// The one line that was logged.
    std::string logged() const {
        const auto& lines = platform.logPort.lines;
        if (lines.size() != 1 || lines[0].subsystem != "com.orvelle.app" ||
            lines[0].category != "Calendar" || lines[0].level != LogLevel::error)
            return "not one error of the calendar";
        return lines[0].message;
    }

    SimulatedPlatform platform;
};

TEST_F(CalendarActionsTest, OpeningADayStartsTheCalendarAndRunsTheScript) {
    outcome(ScriptResult{});
    open();
    EXPECT_EQ(platform.workspacePort.opened, std::vector<std::string>{"ical://"});
    EXPECT_EQ(platform.workspacePort.daysShown, std::vector<Date>{SimulatedRunLoop::defaultStart});
    EXPECT_EQ(platform.scriptExecutorPort.executed, std::vector<std::string>{showDay});
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(CalendarActionsTest, TheScriptRunsOffTheMainThread) {
    CalendarActions::openInCalendar(SimulatedRunLoop::defaultStart, platform);
    EXPECT_TRUE(platform.scriptExecutorPort.executed.empty());
    platform.runLoopPort.runPosted();
    EXPECT_EQ(platform.scriptExecutorPort.executed.size(), 1u);
}

TEST_F(CalendarActionsTest, ANewEventSendsTheKeystrokeWhateverTheDate) {
    outcome(ScriptResult{});
    CalendarActions::createNewEvent(std::nullopt, platform);
    CalendarActions::createNewEvent(SimulatedRunLoop::defaultStart, platform);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(platform.workspacePort.opened, (std::vector<std::string>{"ical://", "ical://"}));
    EXPECT_TRUE(platform.workspacePort.daysShown.empty());
    EXPECT_EQ(platform.scriptExecutorPort.executed, (std::vector<std::string>{newEvent, newEvent}));
}

TEST_F(CalendarActionsTest, AnAutomationRefusalLogsItsOwnMessage) {
    outcome(ScriptError{"Not authorized", -1743});
    open();
    EXPECT_EQ(logged(), "[openInCalendar] denied by Automation policy. Grant access in System "
                        "Settings → Privacy & Security → Automation. (Not authorized)");
}

TEST_F(CalendarActionsTest, AnyOtherErrorLogsItsNumber) {
    outcome(ScriptError{"No such object", -1728});
    open();
    EXPECT_EQ(logged(), "[openInCalendar] AppleScript error -1728: No such object");
}

TEST_F(CalendarActionsTest, AnErrorWithoutNumberAndMessageStillHasALine) {
    outcome(ScriptError{});
    CalendarActions::createNewEvent(std::nullopt, platform);
    platform.runLoopPort.runPosted();
    EXPECT_EQ(logged(), "[createNewEvent] AppleScript error -1: (no message)");
}

TEST_F(CalendarActionsTest, AScriptThatCannotBeMadeIsLogged) {
    open();
    EXPECT_EQ(logged(), "[openInCalendar] failed to compile AppleScript");
}

} // namespace
} // namespace orvelle
