#include "Platform/Linux/LinuxScriptExecutor.h"

#include "Features/Calendar/CalendarActions.h"
#include "Platform/Simulated/SimulatedMedia.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "adapters/PrivateBus.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// The program, with the scripts that this desktop answers.
struct Machine : SimulatedPlatform {
    PrivateBus bus;
    SimulatedUrlData urls;
    MprisCovers covers{urls};
    LinuxScriptExecutor scripts{bus.provider(), covers};
    ScriptExecutor& scriptExecutor() override { return scripts; }
};

TEST(LinuxScriptExecutor, TheCalendarsMenuOpensTheCalendarAndLogsNoFailure) {
    Machine machine;
    CalendarActions::openInCalendar(SimulatedRunLoop::defaultStart, machine);
    CalendarActions::createNewEvent(std::nullopt, machine);
    machine.runLoopPort.runPosted();
    EXPECT_EQ(machine.workspacePort.opened, (std::vector<std::string>{"ical://", "ical://"}));
    EXPECT_TRUE(machine.logPort.lines.empty());
}

TEST(LinuxScriptExecutor, OtherScriptsAreForThePlayers) {
    Machine machine;
    EXPECT_TRUE(std::holds_alternative<ScriptError>(
        machine.scripts.execute("tell application \"Music\"\n    return loved of current track")));
    EXPECT_TRUE(std::holds_alternative<ScriptNotMade>(
        machine.scripts.execute("tell application \"vlc\" to playpause")));
}

} // namespace
} // namespace orvelle
