#pragma once

#include "Foundation/Errand.h"
#include "Foundation/Published.h"
#include "Platform/DefaultsFile.h"
#include "Platform/FileWatch.h"
#include "Platform/RetryPause.h"
#include "Platform/RunLoop.h"
#include "Platform/UnsavedChanges.h"

namespace orvelle {

/// The settings in a file that other processes and editors may change at any time. Changes of one
/// moment are saved together; what the disk refuses stays due and is tried again.
///
/// The values live on the main thread. The disk is worked on in the background, one operation at a
/// time, with a copy of the settings; what comes out is adopted on the main thread.
class FileUserDefaults : public UserDefaults {
public:
    /// From a change to its saving, when no other process is writing.
    static constexpr Seconds saveDelay = 0.05;

    /// Reads the file on the spot. File system and log must outlive the run loop's background work.
    FileUserDefaults(FileSystem& fileSystem, RunLoop& runLoop, FileWatch& watch, LogSink& log,
                     UnsavedChanges& unsaved);
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;
    ~FileUserDefaults() override;

    std::optional<DefaultsValue> object(std::string_view key) const override;
    std::vector<std::string> keys() const override;
    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;
    Subscription observeChanges(std::function<void()> changed) override;

    /// Saves on the spot what is not saved yet, without telling the observers; for the way out of
    /// the program. Waits for an operation under way and for another process's writing, for a
    /// second at most each. A disk that does not answer by then is logged.
    void flush();

private:
    using Outcome = DefaultsStorage::Outcome;

    void scheduleSave();
    /// Begins the next operation that is due, unless one is under way.
    void proceed();
    void start(std::function<Outcome()> work);
    void finish();
    bool adoptOutcome();

    void noteRefusal(WriteFailure failure);
    void noteSaved();

    RunLoop& runLoop_;
    UnsavedChanges& unsaved_;
    Subscription outsideChanges_; ///< begins before the first reading, so that none is missed
    DefaultsFile file_;
    Event<> changed_;
    Timer saveTimer_;
    Timer retryTimer_; ///< of a save that the disk refused
    RetryPause retryPause_;
    bool isReadingDue_ = false;
    bool isSavingDue_ = false;
    int busyCount_ = 0;
    std::shared_ptr<Errand<Outcome>> underWay_;
    Subscription completion_;
};

} // namespace orvelle
