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

/// Tells of changes to the files in a set of folders, by the kernel's inotify and the Qt event
/// loop. Main thread only.
class FolderWatch {
public:
    /// `changed` is called once for any number of changes that come together; also while a file is
    /// still being written, and again when it is done.
    explicit FolderWatch(std::function<void()> changed);

    /// Watches these folders and no other. Of one that does not exist, its making is awaited.
    void setFolders(const std::vector<std::string>& folders);

private:
    void readEvents();

    std::function<void()> changed_;
    Descriptor inotify_;
    /// By the kernel's number of a folder: the names that are awaited there; all when empty.
    std::map<int, std::set<std::string, std::less<>>> watched_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace orvelle
