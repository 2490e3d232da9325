#include "Features/FileShelf/ShelfRemovals.h"

#include "Core/StoredList.h"
#include "Platform/FileCopier.h"
#include "Platform/FileSystem.h"
#include "Platform/RunLoop.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace orvelle {

namespace {

constexpr Seconds removalPatience = 1; // at the end of the program
constexpr std::size_t largestNote = 1 << 20;

std::string notePath(const std::string& folder) {
    return folder + "/" + std::string(ShelfRemovals::noteName);
}

void note(FileSystem& files, const std::string& folder, const std::vector<std::string>& names) {
    // Without a note a crash leaves the file in the folder, and no more.
    (void)files.write(notePath(folder),
                      encodeList(names, [](const std::string& name) { return Json(name); }));
}

bool isOneName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == name.npos;
}

} // namespace

ShelfRemovals::ShelfRemovals(Platform& platform, std::string folder)
    : runLoop_(platform.runLoop()), files_(platform.fileSystem()), copier_(platform.fileCopier()),
      folder_(std::move(folder)), due_(notedNames()),
      isAbandoned_(std::make_shared<std::atomic<bool>>(false)) {
    if (!due_.empty())
        begin();
}

ShelfRemovals::~ShelfRemovals() {
    while (underWay_) {
        if (!underWay_->finish(removalPatience)) {
            noteWhatIsLeft();
            return;
        }
        finished();
    }
}

// On another thread, since the disk may hang for this too.
void ShelfRemovals::noteWhatIsLeft() {
    *isAbandoned_ = true;
    if (due_.empty())
        return; // the rest stands there
    auto left = beingRemoved_;
    left.insert(left.end(), due_.begin(), due_.end());
    const auto noting = std::make_shared<Errand<void>>(
        [&files = files_, folder = folder_, left] { note(files, folder, left); });
    const auto handle = runLoop_.detachSaving([noting] { noting->run(); }, [] {});
    noting->await(removalPatience);
}

ShelfRemovals::Names ShelfRemovals::notedNames() const {
    files_.clearRests(notePath(folder_));
    const auto contents = files_.read(notePath(folder_), largestNote);
    auto names = decodeList<std::string>(contents.bytes, [](const Json& element) {
                     return element.string();
                 }).value_or(Names());
    std::erase_if(names, [](const auto& name) { return !isOneName(name); });
    return names;
}

void ShelfRemovals::remove(std::string name) {
    due_.push_back(std::move(name));
    if (!underWay_)
        begin();
}

bool ShelfRemovals::isPending(std::string_view name) const {
    return std::ranges::find(due_, name) != due_.end() ||
           std::ranges::find(beingRemoved_, name) != beingRemoved_.end();
}

Subscription ShelfRemovals::whenDone(std::function<void()> done) const {
    if (!underWay_)
        return {};
    return isWorking_.observe([done = std::move(done)](bool isWorking) {
        if (!isWorking)
            done();
    });
}

void ShelfRemovals::begin() {
    beingRemoved_ = std::exchange(due_, {});
    underWay_ =
        std::make_shared<Errand<void>>([&files = files_, &copier = copier_, folder = folder_,
                                        names = beingRemoved_, isAbandoned = isAbandoned_] {
            note(files, folder, names);
            for (const auto& name : names)
                copier.remove(folder + "/" + name);
            if (!*isAbandoned)
                copier.remove(notePath(folder));
        });
    isWorking_ = true;
    completion_ =
        runLoop_.detachSaving([errand = underWay_] { errand->run(); }, [this] { finished(); });
}

void ShelfRemovals::finished() {
    completion_.reset();
    underWay_.reset();
    beingRemoved_.clear();
    if (!due_.empty())
        begin();
    else
        isWorking_ = false;
}

} // namespace orvelle
