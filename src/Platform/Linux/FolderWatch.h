#pragma once

#include "Platform/Linux/Descriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orvelle {

class CalendarDisk;

/// Tells of changes to the files in a set of folders, by the kernel's inotify and the Qt event
/// loop. Main thread only, but for `add`.
class FolderWatch {
public:
    /// By the kernel's number of a folder: the names that are awaited there; all when empty.
    using Watches = std::map<int, std::set<std::string, std::less<>>>;

    /// `changed` is called once for any number of changes that come together; also while a file is
    /// still being written, and again when it is done.
    explicit FolderWatch(std::function<void()> changed);

    /// Where `add` puts its watches; outlives this object where it is held.
    std::shared_ptr<const Descriptor> inotify() const { return inotify_; }
    /// Begins to watch these folders, on a background thread. Of one that does not exist, its
    /// making is awaited.
    static Watches add(const Descriptor& inotify, const std::vector<std::string>& folders,
                       const CalendarDisk& disk);
    /// What was added counts from now on, and nothing else.
    void adopt(Watches watches);

private:
    void readEvents();

    std::function<void()> changed_;
    std::shared_ptr<const Descriptor> inotify_;
    Watches watched_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace orvelle
