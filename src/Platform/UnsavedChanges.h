#pragma once

#include "Foundation/Published.h"
#include "Platform/FileSystem.h"

#include <map>
#include <string>

namespace orvelle {

/// What the disk has refused to take so far: the files whose latest changes are in memory only.
/// Main thread only.
class UnsavedChanges {
public:
    using Files = std::map<std::string, WriteFailure>;

    Published<Files> files; ///< by path; told only when it changes

    void report(const std::string& path, WriteFailure failure) {
        auto known = files.get();
        known.insert_or_assign(path, failure);
        tell(std::move(known));
    }
    /// The file is saved, or its changes are nobody's any more.
    void clear(const std::string& path) {
        auto known = files.get();
        known.erase(path);
        tell(std::move(known));
    }

private:
    void tell(Files known) {
        if (known != files.get())
            files = std::move(known);
    }
};

} // namespace orvelle
