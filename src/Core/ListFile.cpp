#include "Core/ListFile.h"

#include "Platform/RunLoop.h"

#include <utility>

namespace orvelle {

namespace {
constexpr Seconds shutdownPatience = 1;
}

ListFile::ListFile(Platform& platform, std::string_view name,
                   std::function<void(const std::string& reason)> savingFailed)
    : fileSystem_(platform.fileSystem()), runLoop_(platform.runLoop()),
      path_(fileSystem_.applicationSupportDirectory() + "/Orvelle/" + std::string(name)),
      savingFailed_(std::move(savingFailed)) {}

ListFile::~ListFile() {
    while (underWay_) {
        if (!underWay_->finish(shutdownPatience)) {
            savingFailed_("the disk does not answer");
            return;
        }
        adoptOutcome(); // begins what is due
    }
}

std::string ListFile::describe(FileSystem::ReadFailure failure) {
    switch (failure) {
    case FileSystem::ReadFailure::missing:
        break;
    case FileSystem::ReadFailure::unreadable:
        return "it cannot be read";
    case FileSystem::ReadFailure::tooLarge:
        return "it is larger than 64 MB";
    }
    return {};
}

void ListFile::save(Encoding encoding) {
    due_ = std::move(encoding);
    if (!underWay_)
        begin();
}

void ListFile::begin() {
    auto work = [encoding = std::exchange(due_, nullptr), mustMakeWay = !problem_.empty(),
                 path = path_,
                 &files = fileSystem_] { return write(files, path, encoding, mustMakeWay); };
    underWay_ = std::make_shared<Errand<Outcome>>(std::move(work));
    completion_ =
        runLoop_.detachSaving([errand = underWay_] { errand->run(); }, [this] { adoptOutcome(); });
}

ListFile::Outcome ListFile::write(FileSystem& files, const std::string& path,
                                  const Encoding& encoding, bool mustMakeWay) {
    const auto bytes = encoding();
    if (bytes.size() > maximumSize)
        return {"the list is larger than 64 MB", !mustMakeWay};
    if (mustMakeWay && !files.move(path, path + ".corrupt"))
        return {"the unreadable file in its place cannot be kept aside", false};
    if (!files.write(path, bytes))
        return {"the file cannot be written", true};
    return {{}, true};
}

void ListFile::adoptOutcome() {
    completion_.reset();
    const auto outcome = std::exchange(underWay_, nullptr)->take();
    if (outcome.isWayFree)
        problem_.clear();
    if (due_)
        begin();
    if (!outcome.failure.empty())
        savingFailed_(outcome.failure);
}

} // namespace orvelle
