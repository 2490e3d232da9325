#include "Platform/FileUserDefaults.h"

namespace orvelle {

namespace {

/// A writer that holds the lock for longer than this many tries has hung, and an editor that has
/// left half a file behind is not going to finish it.
constexpr int patientTries = 20;
constexpr Seconds shutdownPatience = 1;

} // namespace

FileUserDefaults::FileUserDefaults(FileSystem& fileSystem, RunLoop& runLoop, FileWatch& watch,
                                   LogSink& log)
    : runLoop_(runLoop), outsideChanges_(watch.watch(DefaultsFile::path(fileSystem),
                                                     [this] {
                                                         if (file_.reload())
                                                             changed_();
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
    saveTimer_.reset();
    busyCount_ = 0;
    file_.save(shutdownPatience, DefaultsFile::Insist::yes);
}

void FileUserDefaults::scheduleSave() {
    if (!saveTimer_)
        saveTimer_ = runLoop_.after(saveDelay, [this] { save(); });
}

void FileUserDefaults::save() {
    saveTimer_.reset();
    const auto insist =
        busyCount_ < patientTries ? DefaultsFile::Insist::no : DefaultsFile::Insist::yes;
    const auto [result, valuesChanged] = file_.save(0, insist);
    if (result == DefaultsFile::SaveResult::busy) {
        ++busyCount_;
        scheduleSave();
        return;
    }
    busyCount_ = 0;
    if (valuesChanged)
        changed_();
}

} // namespace orvelle
