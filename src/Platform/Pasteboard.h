#pragma once

#include <string>
#include <vector>

namespace orvelle {

/// The general pasteboard, which all programs share. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;
    /// Clears it and puts files there, for a file manager to paste.
    virtual void writeFiles(const std::vector<std::string>& urls) = 0;
};

} // namespace orvelle
