#include "Platform/Linux/FolderWatch.h"

#include "Platform/Linux/InotifyEvents.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace orvelle {

FolderWatch::FolderWatch(std::function<void()> changed)
    : changed_(std::move(changed)), inotify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (!inotify_)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(inotify_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { readEvents(); });
}

void FolderWatch::setFolders(const std::vector<std::string>& folders) {
    if (!inotify_)
        return;
    auto before = std::move(watched_);
    watched_.clear();
    for (std::filesystem::path folder : folders) {
        std::optional<std::string> awaited;
        while (true) {
            const int number = inotify_add_watch(inotify_.get(), folder.c_str(), folderEvents);
            if (number >= 0) {
                const bool isNew = !watched_.contains(number);
                auto& names = watched_[number];
                if (!awaited)
                    names.clear();
                else if (isNew || !names.empty())
                    names.insert(*awaited);
                break;
            }
            if (!folder.has_relative_path())
                break;
            awaited = folder.filename().string();
            folder = folder.parent_path();
        }
    }
    for (const auto& [number, names] : before)
        if (!watched_.contains(number))
            inotify_rm_watch(inotify_.get(), number);
}

void FolderWatch::readEvents() {
    bool isChanged = false;
    readInotifyEvents(inotify_.get(), [&](const inotify_event& event, std::string_view name) {
        const auto found = watched_.find(event.wd);
        const bool isAwaited =
            found != watched_.end() && (found->second.empty() || found->second.contains(name) ||
                                        (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0);
        isChanged = isChanged || isAwaited || (event.mask & IN_Q_OVERFLOW) != 0;
    });
    if (isChanged)
        changed_();
}

} // namespace orvelle
