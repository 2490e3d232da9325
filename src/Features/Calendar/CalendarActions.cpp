#include "Features/Calendar/CalendarActions.h"

#include "Foundation/Format.h"
#include "Platform/Formatting.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/ScriptExecutor.h"
#include "Platform/Workspace.h"

#include <string>
#include <utility>
#include <variant>

namespace orvelle::CalendarActions {

namespace {

constexpr const char* calendarUrl = "ical://";
constexpr const char* newEventScript =
    "tell application \"Calendar\"\n    activate\nend tell\n"
    "tell application \"System Events\"\n    tell process \"Calendar\"\n"
    "        keystroke \"n\" using command down\n    end tell\nend tell";
/// The system's number for a refusal by its privacy settings.
constexpr long automationRefusal = -1743;

void report(const ScriptOutcome& outcome, const char* action, const Logger& log) {
    if (std::holds_alternative<ScriptNotMade>(outcome)) {
        log.error(format("[%s] failed to compile AppleScript", action));
        return;
    }
    const auto* error = std::get_if<ScriptError>(&outcome);
    if (!error)
        return;
    const long number = error->number.value_or(-1);
    const auto message = error->message.value_or("(no message)");
    if (number == automationRefusal)
        log.error(format("[%s] denied by Automation policy. Grant access in System Settings → "
                         "Privacy & Security → Automation. (%s)",
                         action, message.c_str()));
    else
        log.error(format("[%s] AppleScript error %ld: %s", action, number, message.c_str()));
}

void runAppleScript(std::string source, const char* action, Platform& platform) {
    // An application that does not answer holds its script up for seconds.
    const auto detached = platform.runLoop().detach(
        [&executor = platform.scriptExecutor(), log = Logger(platform.log(), "Calendar"),
         source = std::move(source), action] { report(executor.execute(source), action, log); },
        [] {});
}

} // namespace

void openInCalendar(Date date, Platform& platform) {
    platform.workspace().openCalendar(date);
    const auto& formatting = platform.formatting();
    const auto day = formatting.date(date, "EEEE, MMMM d, yyyy", formatting.currentTimeZone());
    runAppleScript("tell application \"Calendar\"\n    activate\n    view calendar at date \"" +
                       day + "\"\nend tell",
                   "openInCalendar", platform);
}

void createNewEvent(std::optional<Date>, Platform& platform) {
    platform.workspace().open(calendarUrl);
    runAppleScript(newEventScript, "createNewEvent", platform);
}

} // namespace orvelle::CalendarActions
