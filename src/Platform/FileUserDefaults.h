#pragma once

#include "Foundation/Published.h"
#include "Platform/DefaultsFile.h"
#include "Platform/FileWatch.h"
#include "Platform/RunLoop.h"

namespace orvelle {

/// The settings in a file that other processes and editors may change at any time. Changes of one
/// moment are saved together.
class FileUserDefaults : public UserDefaults {
public:
    /// From a change to its saving, when no other process is writing.
    static constexpr Seconds saveDelay = 0.05;

    FileUserDefaults(FileSystem& fileSystem, RunLoop& runLoop, FileWatch& watch, LogSink& log);
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;
    ~FileUserDefaults() override;

    std::optional<DefaultsValue> object(std::string_view key) const override;
    std::vector<std::string> keys() const override;
    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;
    Subscription observeChanges(std::function<void()> changed) override;

    /// Saves now what is not saved yet; for the way out of the program. Waits for another process's
    /// writing for a second at most.
    void flush();

private:
    void scheduleSave();
    void save();

    RunLoop& runLoop_;
    Subscription outsideChanges_; ///< begins before the first reading, so that none is missed
    DefaultsFile file_;
    Event<> changed_;
    Timer saveTimer_;
    int busyCount_ = 0;
};

} // namespace orvelle
