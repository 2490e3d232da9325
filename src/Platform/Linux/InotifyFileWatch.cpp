#include "Platform/Linux/InotifyFileWatch.h"

#include "Platform/Linux/Descriptor.h"
#include "Platform/Linux/InotifyEvents.h"

#include <QSocketNotifier>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

namespace orvelle {

namespace {

namespace fs = std::filesystem;

/// The file is complete, or gone. Its making is not: its writer will close it.
constexpr std::uint32_t fileEvents = IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;

/// The notifier may be in the middle of its signal.
struct DeleteLater {
    void operator()(QSocketNotifier* notifier) const {
        notifier->setEnabled(false);
        notifier->disconnect();
        notifier->deleteLater();
    }
};

class Watch {
public:
    Watch(const std::string& path, std::function<void()> changed)
        : path_(path), changed_(std::move(changed)),
          inotify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (!inotify_)
            return;
        arm();
        notifier_.reset(new QSocketNotifier(inotify_.get(), QSocketNotifier::Read));
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
    }

    explicit operator bool() const { return static_cast<bool>(inotify_); }

private:
    /// What is awaited in a watched folder.
    struct Awaited {
        int watch; ///< the kernel's number for the folder
        std::string name;
        bool isFile; ///< else the next folder on the way to the file
        bool operator==(const Awaited&) const = default;
    };

    /// Watches the folder of the file, and of each link on the way to it; where a folder is
    /// missing, the nearest one above it.
    void arm() {
        std::vector<Awaited> armed;
        fs::path file = path_;
        constexpr int maximumLinks = 40; // as the kernel follows
        for (int count = 0; count < maximumLinks; ++count) {
            armNearest(file, armed);
            std::error_code failure;
            const auto target = fs::read_symlink(file, failure);
            if (failure)
                break;
            file = (file.parent_path() / target).lexically_normal();
        }
        for (const auto& old : awaited_)
            if (std::ranges::find(armed, old.watch, &Awaited::watch) == armed.end())
                inotify_rm_watch(inotify_.get(), old.watch);
        awaited_ = std::move(armed);
    }

    void armNearest(fs::path path, std::vector<Awaited>& armed) {
        for (bool isFile = true; path.has_relative_path(); isFile = false) {
            const auto folder = path.parent_path();
            const int number = inotify_add_watch(inotify_.get(), folder.c_str(), folderEvents);
            if (number >= 0) {
                armed.push_back({number, path.filename().string(), isFile});
                return;
            }
            path = folder;
        }
    }

    void readEvents() {
        bool fileChanged = false;
        bool pathChanged = false;
        readInotifyEvents(inotify_.get(), [&](const inotify_event& event, std::string_view name) {
            const auto found = std::ranges::find_if(awaited_, [&](const Awaited& awaited) {
                return awaited.watch == event.wd && awaited.name == name;
            });
            const bool awaited = found != awaited_.end();
            fileChanged = fileChanged || (event.mask & IN_Q_OVERFLOW) != 0 ||
                          (awaited && found->isFile && (event.mask & fileEvents) != 0);
            pathChanged = pathChanged || awaited ||
                          (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) != 0;
        });
        if (pathChanged) {
            const auto before = awaited_;
            arm();
            fileChanged = fileChanged || awaited_ != before; // a new folder may hold the file
        }
        if (fileChanged) {
            const auto changed = changed_; // it may end this watch
            changed();
        }
    }

    std::string path_;
    std::function<void()> changed_;
    Descriptor inotify_;
    std::vector<Awaited> awaited_;
    std::unique_ptr<QSocketNotifier, DeleteLater> notifier_;
};

} // namespace

Subscription InotifyFileWatch::watch(const std::string& path, std::function<void()> changed) {
    auto watch = std::make_shared<Watch>(path, std::move(changed));
    if (!*watch)
        return {};
    return Subscription([watch]() mutable { watch.reset(); });
}

} // namespace orvelle
