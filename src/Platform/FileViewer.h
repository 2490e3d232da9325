#pragma once

#include <string>
#include <vector>

namespace orvelle {

/// The desktop's file manager. Main thread only; calls come back at once.
class FileViewer {
public:
    virtual ~FileViewer() = default;
    /// Shows the folder of these files, with the files selected. Without a file manager nothing
    /// happens.
    virtual void select(const std::vector<std::string>& urls) = 0;
};

} // namespace orvelle
