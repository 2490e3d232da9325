#include "Platform/Linux/CalendarReader.h"

#include "Platform/Ical/IcalFile.h"
#include "Platform/Linux/Descriptor.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>

namespace orvelle {

namespace {

using Clock = std::chrono::steady_clock;

Clock::duration duration(Seconds seconds) {
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// False when there was more than could be read.
bool readAll(const Descriptor& file, IcalFile& calendar) {
    std::vector<char> buffer(64 << 10);
    std::size_t size = 0;
    while (size < CalendarReader::maximumFileSize) {
        const auto count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        size += static_cast<std::size_t>(count);
        if (!calendar.feed({buffer.data(), static_cast<std::size_t>(count)}))
            return false;
    }
    return false;
}

} // namespace

/// What is read was watched before, so that no change comes between: also not the making of a
/// folder that nobody watched yet.
CalendarFolders CalendarReader::watchedFolders(const Descriptor& inotify,
                                               FolderWatch::Watches& watches) {
    constexpr int mostTries = 10; // of folders that come and go; their own change calls again
    auto folders = CalendarFolders::find(place_, disk_);
    for (int tries = 0; tries < mostTries; ++tries) {
        watches = FolderWatch::add(inotify, folders.visited, disk_);
        if (folders.visited == watched_)
            break;
        watched_ = folders.visited;
        folders = CalendarFolders::find(place_, disk_);
    }
    return folders;
}

CalendarReader::Result CalendarReader::read(const Descriptor& inotify, Date now,
                                            const std::string& localZone) {
    if (zone_ != localZone)
        files_.clear();
    zone_ = localZone;
    auto known = std::move(files_);
    files_.clear();

    Result result;
    const auto folders = watchedFolders(inotify, result.watches);
    const auto end = Clock::now() + duration(patience);
    std::size_t count = 0;
    for (const auto& collection : folders.collections) {
        auto& found = result.collections.emplace_back(Collection{collection.folder, {}});
        for (const auto& path : collection.files) {
            const Descriptor file = disk_.open(path);
            struct stat status {};
            if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
                continue;
            const Version version{static_cast<std::int64_t>(status.st_dev),
                                  static_cast<std::int64_t>(status.st_ino), status.st_size,
                                  nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
            const auto old = known.find(path);
            if (old != known.end() && old->second.version == version && old->second.from <= now &&
                old->second.to >= now + leastReach) {
                files_.insert(known.extract(old));
            } else if (Clock::now() < end && count < maximumEvents) {
                IcalFile calendar({now, now + reach, localZone,
                                   std::min(end, Clock::now() + duration(patiencePerFile))});
                if (!readAll(file, calendar))
                    result.complaints.push_back(path + " is too large to be read in full");
                files_[path] = {version, now, now + reach, calendar.finish()};
            }
            if (const auto present = files_.find(path); present != files_.end())
                for (const auto& event : present->second.events) {
                    ++count;
                    found.events.push_back(event);
                    found.events.back().calendar = collection.calendar;
                }
        }
    }
    return result;
}

} // namespace orvelle
