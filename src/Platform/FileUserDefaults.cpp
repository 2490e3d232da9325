#include "Platform/FileUserDefaults.h"

namespace orvelle {

namespace {

/// A writer that holds the lock for longer than this many tries has hung, and an editor that has
/// left half a file behind is not going to finish it.
constexpr int patientTries = 20;
constexpr Seconds shutdownPatience = 1;
/// Of a save that insists, in the background; shorter than what the shutdown waits for it.
constexpr Seconds insistentPatience = 0.5;

} // namespace

FileUserDefaults::FileUserDefaults(FileSystem& fileSystem, RunLoop& runLoop, FileWatch& watch,
                                   LogSink& log, UnsavedChanges& unsaved)
    : runLoop_(runLoop), unsaved_(unsaved),
      outsideChanges_(watch.watch(DefaultsStorage::path(fileSystem),
                                  [this] {
                                      isReadingDue_ = true;
                                      proceed();
                                  })),
      file_(fileSystem, log) {}

FileUserDefaults::~FileUserDefaults() {
    flush();
}

std::optional<DefaultsValue> FileUserDefaults::object(std::string_view key) const {
    return file_.value(key);
}

std::vector<std::string> FileUserDefaults::keys() const {
    return file_.keys();
}

void FileUserDefaults::set(std::string_view key, DefaultsValue value) {
    file_.set(key, value);
    scheduleSave();
    changed_();
}

void FileUserDefaults::remove(std::string_view key) {
    if (!file_.remove(key))
        return;
    scheduleSave();
    changed_();
}

Subscription FileUserDefaults::observeChanges(std::function<void()> changed) {
    return changed_.observe(std::move(changed));
}

void FileUserDefaults::flush() {
    if (!file_.hasUnsavedChanges())
        return;
    if (underWay_) {
        if (!underWay_->finish(shutdownPatience)) {
            file_.report(file_.storage().path() +
                         " lies on a disk that does not answer; the latest changes may be lost");
            return;
        }
        adoptOutcome();
    }
    saveTimer_.reset();
    retryTimer_.reset();
    isSavingDue_ = false;
    isReadingDue_ = false; // saving reads
    busyCount_ = 0;
    if (file_.save(shutdownPatience))
        noteSaved();
}

void FileUserDefaults::scheduleSave() {
    if (saveTimer_)
        return;
    saveTimer_ = runLoop_.after(saveDelay, [this] {
        saveTimer_.reset();
        isSavingDue_ = true;
        proceed();
    });
}

void FileUserDefaults::proceed() {
    if (underWay_)
        return;
    if (std::exchange(isReadingDue_, false)) {
        start([storage = file_.storage()] { return storage.read(); });
    } else if (std::exchange(isSavingDue_, false) && file_.hasUnsavedChanges()) {
        using Insist = DefaultsStorage::Insist;
        const auto insist = busyCount_ < patientTries ? Insist::no : Insist::yes;
        start([storage = file_.storage(), own = file_.copy(), insist] {
            return storage.save(own, insist == Insist::yes ? insistentPatience : 0, insist);
        });
    }
}

void FileUserDefaults::start(std::function<Outcome()> work) {
    underWay_ = std::make_shared<Errand<Outcome>>(std::move(work));
    completion_ =
        runLoop_.detachSaving([errand = underWay_] { errand->run(); }, [this] { finish(); });
}

void FileUserDefaults::finish() {
    const bool isDifferent = adoptOutcome();
    proceed();
    if (isDifferent)
        changed_(); // last: an observer may do anything
}

bool FileUserDefaults::adoptOutcome() {
    completion_.reset();
    auto outcome = std::exchange(underWay_, nullptr)->take();
    using Result = DefaultsStorage::Result;
    const auto result = outcome.result;
    const auto failure = outcome.failure.value_or(WriteFailure::broken);
    const bool isDifferent = file_.adopt(std::move(outcome));
    if (result != Result::read)
        busyCount_ = result == Result::busy ? busyCount_ + 1 : 0;
    if (result == Result::busy)
        scheduleSave();
    else if (result == Result::refused)
        noteRefusal(failure);
    else if (result == Result::saved)
        noteSaved();
    return isDifferent;
}

void FileUserDefaults::noteRefusal(WriteFailure failure) {
    unsaved_.report(file_.storage().path(), failure);
    retryTimer_ = runLoop_.after(retryPause_.next(), [this] {
        isSavingDue_ = true;
        proceed();
    });
}

void FileUserDefaults::noteSaved() {
    retryTimer_.reset();
    retryPause_ = {};
    unsaved_.clear(file_.storage().path());
}

} // namespace orvelle
