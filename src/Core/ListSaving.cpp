#include "Core/ListSaving.h"

#include "Core/ListMerge.h"
#include "Platform/KeptAside.h"
#include "Platform/WritersLock.h"

#include <utility>

namespace orvelle {

namespace {

constexpr Seconds shutdownPatience = 1;
/// For another process that saves the same list; its saves take milliseconds.
constexpr Seconds lockPatience = 0.25;

std::string describe(FileSystem::ReadFailure failure) {
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

std::string bytesOf(Json::Array list) {
    return Json(std::move(list)).text();
}

} // namespace

/// One save, in the background.
struct ListSaving::Job {
    FileSystem& files;
    std::string path;
    std::string identifier;
    Reading reading;
    Encoding encoding;
    std::shared_ptr<const Version> saved;
    std::shared_ptr<const Version> refused;

    Outcome run() const {
        // Without a lock, on a file system that has none, another process can come only between
        // the reading and the writing.
        const auto held = lockAmongWriters(files, path, maximumSize, lockPatience);
        auto own = encoding();
        Outcome outcome;
        outcome.version.own = bytesOf(own);
        outcome.version.file = outcome.version.own;
        outcome.failure = takeOver(own, outcome);
        if (outcome.failure) {
            outcome.reason = "the unreadable file in its place cannot be kept aside: " +
                             orvelle::describe(*outcome.failure);
            return outcome;
        }
        const auto& bytes = outcome.version.file;
        outcome.failure = bytes.size() > maximumSize ? WriteFailure::tooLarge
                                                     : files.write(path, bytes).failure();
        if (outcome.failure)
            outcome.reason = orvelle::describe(*outcome.failure);
        return outcome;
    }

private:
    /// Looks at what is there, and merges or puts aside what this program has not written. Gives
    /// why the file cannot be put aside.
    std::optional<WriteFailure> takeOver(const Json::Array& own, Outcome& outcome) const {
        const auto contents = files.read(path, maximumSize);
        if (contents.failure == FileSystem::ReadFailure::missing)
            return std::nullopt;
        const auto& known = contents.bytes == refused->file ? *refused : *saved;
        if (!contents.failure && contents.bytes == known.file && known.file == known.own)
            return std::nullopt;
        const auto others = contents.failure ? std::nullopt : reading(contents.bytes);
        if (!others)
            return keepAside(files, path).outcome.failure();
        const auto base = reading(known.own).value_or(Json::Array());
        outcome.merged = mergedLists(base, own, *others, identifier);
        outcome.version.file = bytesOf(*outcome.merged);
        return std::nullopt;
    }
};

ListSaving::ListSaving(Platform& platform, std::string_view name, std::string identifier,
                       Reading reading, Events events)
    : fileSystem_(platform.fileSystem()), runLoop_(platform.runLoop()),
      unsaved_(platform.unsavedChanges()),
      path_(fileSystem_.applicationSupportDirectory() + "/Orvelle/" + std::string(name)),
      identifier_(std::move(identifier)), reading_(std::move(reading)), events_(std::move(events)) {
}

ListSaving::~ListSaving() {
    retry_.reset();
    completion_.reset();
    if (underWay_) {
        if (!underWay_->finish(shutdownPatience)) {
            events_.savingFailed("the disk does not answer");
            return;
        }
        auto outcome = underWay_->take();
        conclude(outcome);
    }
    if (isDue_) {
        auto outcome = nextJob().run();
        conclude(outcome);
    }
    if (!isDue_)
        unsaved_.clear(path_);
}

ListSaving::Loading ListSaving::load() {
    fileSystem_.clearRests(path_);
    const auto contents = fileSystem_.read(path_, maximumSize);
    if (contents.failure)
        return {{}, describe(*contents.failure)};
    auto records = reading_(contents.bytes);
    if (!records)
        return {{}, "it is no JSON array of such items"};
    saved_ = std::make_shared<const Version>(Version{contents.bytes, contents.bytes});
    return {*std::move(records), {}};
}

void ListSaving::save(Encoding encoding) {
    latest_ = std::move(encoding);
    isDue_ = true;
    if (!underWay_)
        begin();
}

ListSaving::Job ListSaving::nextJob() {
    isDue_ = false;
    return {fileSystem_, path_, identifier_, reading_, latest_, saved_, refused_};
}

void ListSaving::begin() {
    retry_.reset();
    underWay_ = std::make_shared<Errand<Outcome>>([job = nextJob()] { return job.run(); });
    completion_ =
        runLoop_.detachSaving([errand = underWay_] { errand->run(); }, [this] { adoptOutcome(); });
}

void ListSaving::adoptOutcome() {
    completion_.reset();
    auto outcome = std::exchange(underWay_, nullptr)->take();
    const bool isOvertaken = isDue_;
    if (conclude(outcome)) {
        pause_ = {};
        if (!isDue_)
            unsaved_.clear(path_);
    } else {
        unsaved_.report(path_, *outcome.failure);
    }
    if (isOvertaken)
        begin();
    else if (isDue_)
        retry_ = runLoop_.after(pause_.next(), [this] { begin(); });
    else if (outcome.merged)
        events_.merged(*outcome.merged); // last: it may do anything
}

bool ListSaving::conclude(Outcome& outcome) {
    if (outcome.failure) {
        isDue_ = true;
        refused_ = std::make_shared<const Version>(std::move(outcome.version));
        if (std::exchange(reported_, outcome.reason) != outcome.reason)
            events_.savingFailed(outcome.reason);
        return false;
    }
    reported_.clear();
    if (!isDue_) // or else the newer list, which waits, lacks the changes of others
        outcome.version.own = outcome.version.file;
    saved_ = std::make_shared<const Version>(std::move(outcome.version));
    refused_ = saved_;
    return true;
}

} // namespace orvelle
