#include "Platform/Linux/LinuxScriptExecutor.h"

namespace orvelle {

ScriptOutcome LinuxScriptExecutor::execute(const std::string& source) {
    if (source.starts_with("tell application \"Calendar\"\n"))
        return ScriptResult{};
    return players_.execute(source);
}

} // namespace orvelle
