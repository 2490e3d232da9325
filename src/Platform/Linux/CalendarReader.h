#pragma once

#include "Platform/Linux/CalendarFolders.h"

#include <map>
#include <string>
#include <vector>

namespace orvelle {

/// Reads all calendars, and files that did not change since only once. Any thread, one at a time.
class CalendarReader {
public:
    static constexpr std::size_t maximumFileSize = 64 << 20; ///< bytes; the rest is not read
    static constexpr std::size_t maximumEvents = 5000;       ///< of all files together
    static constexpr Seconds patiencePerFile = 2;
    static constexpr Seconds patience = 20; ///< for all of them
    /// How far ahead a file is read, and how far at least what was read before must still reach.
    static constexpr Seconds reach = 3 * 86400;
    static constexpr Seconds leastReach = 2 * 86400;

    struct Result {
        std::vector<StoredEvent> events;
        std::vector<std::string> folders;    ///< whose changes call for another reading
        std::vector<std::string> complaints; ///< of files read now; for the log
    };

    Result read(const CalendarPlaces& places, Date now, const std::string& localZone);

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

    std::map<std::string, File> files_; ///< by path
    std::string zone_;                  ///< that they were read for
};

} // namespace orvelle
