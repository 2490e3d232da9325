#pragma once

#include "Platform/Linux/DisplaySleep.h"
#include "Platform/Linux/SessionLock.h"
#include "Platform/ProcessLauncher.h"

#include <set>

namespace orvelle {

/// Starts the programs of this machine, and answers the tools of another platform with what serves
/// the same purpose here. What is neither does nothing and is logged once. Main thread.
class LinuxProcessLauncher : public ProcessLauncher {
public:
    LinuxProcessLauncher(RunLoop& runLoop, LogSink& log, BusProvider systemBus,
                         BusProvider sessionBus, QString sessionId);

    void launch(const std::string& path, const std::vector<std::string>& arguments) override;

private:
    struct Tool;
    static const std::vector<Tool>& foreignTools();

    Logger log_;
    SessionLock sessionLock_;
    DisplaySleep displaySleep_;
    std::set<std::string> reported_;
};

} // namespace orvelle
