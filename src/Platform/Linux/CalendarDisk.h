#pragma once

#include "Platform/Linux/Descriptor.h"

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// Everything that reading the calendars does with the disk. Each call may take as long as the disk
/// likes, and so is for background threads only; several at once.
class CalendarDisk {
public:
    struct Access {
        bool isThere = false;
        bool isReadable = false;
    };
    struct Entries {
        std::vector<std::string> folders;   ///< paths, in ascending order
        std::vector<std::string> calendars; ///< regular files of iCalendar's extension, likewise
    };

    virtual ~CalendarDisk() = default;

    virtual Access access(const std::string& folder) const;
    /// One path for a folder, however it is reached; the given one for what is not there.
    virtual std::string canonical(const std::string& folder) const;
    /// Without what is hidden.
    virtual Entries entries(const std::string& folder) const;
    virtual std::optional<std::string> smallFile(const std::string& path, std::size_t limit) const;
    /// For reading; invalid when that fails.
    virtual Descriptor open(const std::string& path) const;
    /// Watches a folder; the kernel's number of it, negative when it cannot be watched.
    virtual int watch(int inotify, const std::string& folder) const;
};

} // namespace orvelle
