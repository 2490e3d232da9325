#include "Platform/Linux/CalendarDisk.h"

#include "Platform/Linux/InotifyEvents.h"
#include "Platform/Linux/SmallFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace orvelle {

CalendarDisk::Access CalendarDisk::access(const std::string& folder) const {
    return {::access(folder.c_str(), F_OK) == 0, ::access(folder.c_str(), R_OK | X_OK) == 0};
}

std::string CalendarDisk::canonical(const std::string& folder) const {
    std::error_code missing;
    const auto path = std::filesystem::canonical(folder, missing);
    return missing ? folder : path.string();
}

CalendarDisk::Entries CalendarDisk::entries(const std::string& folder) const {
    Entries found;
    std::error_code failure;
    std::filesystem::directory_iterator entries(folder, failure);
    for (; !failure && entries != std::filesystem::directory_iterator();
         entries.increment(failure)) {
        const auto& path = entries->path();
        if (path.filename().string().starts_with('.'))
            continue;
        std::error_code gone;
        if (path.extension() == ".ics") {
            if (entries->is_regular_file(gone))
                found.calendars.push_back(path.string());
        } else if (entries->is_directory(gone)) {
            found.folders.push_back(path.string());
        }
    }
    std::ranges::sort(found.folders);
    std::ranges::sort(found.calendars);
    return found;
}

std::optional<std::string> CalendarDisk::smallFile(const std::string& path,
                                                   std::size_t limit) const {
    return readSmallFile(path, limit);
}

Descriptor CalendarDisk::open(const std::string& path) const {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

int CalendarDisk::watch(int inotify, const std::string& folder) const {
    // A change of its rights may open a folder or close it.
    return inotify_add_watch(inotify, folder.c_str(), folderEvents | IN_ATTRIB);
}

} // namespace orvelle
