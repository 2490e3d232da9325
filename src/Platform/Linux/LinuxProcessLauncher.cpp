#include "Platform/Linux/LinuxProcessLauncher.h"

#include "Platform/Linux/ProgramStart.h"

#include <QFileInfo>

#include <algorithm>

namespace orvelle {

struct LinuxProcessLauncher::Tool {
    std::string path;
    std::vector<std::string> arguments;
    void (*serve)(LinuxProcessLauncher&);
};

const std::vector<LinuxProcessLauncher::Tool>& LinuxProcessLauncher::foreignTools() {
    static const std::vector<Tool> tools = {
        {"/System/Library/CoreServices/Menu Extras/User.menu/Contents/Resources/CGSession",
         {"-suspend"},
         [](LinuxProcessLauncher& self) { self.sessionLock_.lock(); }},
        {"/usr/bin/pmset",
         {"displaysleepnow"},
         [](LinuxProcessLauncher& self) { self.displaySleep_.sleep(); }},
    };
    return tools;
}

LinuxProcessLauncher::LinuxProcessLauncher(RunLoop& runLoop, LogSink& log, BusProvider systemBus,
                                           BusProvider sessionBus, QString sessionId)
    : log_(log, "LinuxProcessLauncher"),
      sessionLock_(runLoop, log, std::move(systemBus), sessionBus, std::move(sessionId)),
      displaySleep_(runLoop, log, sessionBus) {}

void LinuxProcessLauncher::launch(const std::string& path,
                                  const std::vector<std::string>& arguments) {
    const auto& tools = foreignTools();
    const auto tool = std::ranges::find_if(tools, [&](const Tool& candidate) {
        return candidate.path == path && candidate.arguments == arguments;
    });
    if (tool != tools.end())
        return tool->serve(*this);

    const auto program = QString::fromStdString(path);
    QStringList words;
    for (const auto& argument : arguments)
        words << QString::fromStdString(argument);
    const QFileInfo file(program);
    const bool started =
        file.isAbsolute() && file.isFile() && file.isExecutable() && startProgram(program, words);
    if (!started && reported_.insert(path).second)
        log_.error("Cannot launch " + path);
}

} // namespace orvelle
