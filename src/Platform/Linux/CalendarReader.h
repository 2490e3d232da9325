#pragma once

#include "Platform/Linux/CalendarFolders.h"
#include "Platform/Linux/FolderWatch.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Reads the calendars of one place, and files that did not change since only once. Any thread, one
/// at a time.
class CalendarReader {
public:
    static constexpr std::size_t maximumFileSize = 64 << 20; ///< bytes; the rest is not read
    static constexpr std::size_t maximumEvents = 5000;       ///< of all files together
    static constexpr Seconds patiencePerFile = 2;
    static constexpr Seconds patience = 20; ///< for all of them
    /// How far ahead a file is read, and how far at least what was read before must still reach.
    static constexpr Seconds reach = 3 * 86400;
    static constexpr Seconds leastReach = 2 * 86400;

    struct Collection {
        std::string folder; ///< by its one path
        std::vector<StoredEvent> events;
    };
    struct Result {
        std::vector<Collection> collections;
        FolderWatch::Watches watches;        ///< of what calls for another reading
        std::vector<std::string> complaints; ///< of files read now; for the log
    };

    /// The disk outlives the reader.
    CalendarReader(CalendarPlace place, const CalendarDisk& disk)
        : place_(std::move(place)), disk_(disk) {}

    Result read(const Descriptor& inotify, Date now, const std::string& localZone);

private:
    /// Differs after every change.
    struct Version {
        std::int64_t device = 0, inode = 0, size = 0;
        std::int64_t modified = 0, changed = 0; ///< nanoseconds
        bool operator==(const Version&) const = default;
    };
    struct File {
        Version version;
        Date from, to; ///< of the span that was looked for
        std::vector<StoredEvent> events;
    };

    CalendarFolders watchedFolders(const Descriptor& inotify, FolderWatch::Watches& watches);

    CalendarPlace place_;
    const CalendarDisk& disk_;
    std::vector<std::string> watched_;
    std::map<std::string, File> files_; ///< by path
    std::string zone_;                  ///< that they were read for
};

} // namespace orvelle
