#include "Platform/Linux/FolderWatch.h"

#include "Platform/Linux/CalendarDisk.h"
#include "Platform/Linux/InotifyEvents.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace orvelle {

FolderWatch::FolderWatch(std::function<void()> changed)
    : changed_(std::move(changed)),
      inotify_(std::make_shared<const Descriptor>(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))) {
    if (!*inotify_)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(inotify_->get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { readEvents(); });
}

FolderWatch::Watches FolderWatch::add(const Descriptor& inotify,
                                      const std::vector<std::string>& folders,
                                      const CalendarDisk& disk) {
    Watches watches;
    if (!inotify)
        return watches;
    for (std::filesystem::path folder : folders) {
        std::optional<std::string> awaited;
        while (true) {
            const int number = disk.watch(inotify.get(), folder.string());
            if (number >= 0) {
                const bool isNew = !watches.contains(number);
                auto& names = watches[number];
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
    return watches;
}

void FolderWatch::adopt(Watches watches) {
    const auto before = std::exchange(watched_, std::move(watches));
    for (const auto& [number, names] : before)
        if (!watched_.contains(number))
            inotify_rm_watch(inotify_->get(), number);
}

void FolderWatch::readEvents() {
    bool isChanged = false;
    readInotifyEvents(inotify_->get(), [&](const inotify_event& event, std::string_view name) {
        if (event.mask & IN_IGNORED) // the watch itself has ended
            return;
        const auto found = watched_.find(event.wd);
        // What is not adopted yet counts, for it may be what was read already.
        const bool isAwaited = found == watched_.end() || found->second.empty() ||
                               found->second.contains(name) ||
                               (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0;
        isChanged = isChanged || isAwaited || (event.mask & IN_Q_OVERFLOW) != 0;
    });
    if (isChanged)
        changed_();
}

} // namespace orvelle
