#pragma once

#include "Platform/Linux/MprisScriptExecutor.h"

#include <string>
#include <utility>

namespace orvelle {

/// Answers the program's scripts: those for the players by asking them. Those for the calendar
/// succeed with nothing done: each comes after the calendar was opened, at its day where it takes
/// one, and calendar programs here take no keys from another program.
class LinuxScriptExecutor : public ScriptExecutor {
public:
    LinuxScriptExecutor(BusProvider sessionBus, MprisCovers& covers)
        : players_(std::move(sessionBus), covers) {}

    ScriptOutcome execute(const std::string& source) override;
    /// Scripts under way, and those to come, give an error. Any thread.
    void end() { players_.end(); }

private:
    MprisScriptExecutor players_;
};

} // namespace orvelle
