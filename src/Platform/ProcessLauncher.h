#pragma once

#include <string>
#include <vector>

namespace orvelle {

/// Starts a tool and forgets it. Tools that belong to another platform are answered with what this
/// one has for the same purpose.
class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;
    virtual void launch(const std::string& path, const std::vector<std::string>& arguments) = 0;
};

} // namespace orvelle
