#pragma once

#include "Platform/DefaultsStorage.h"
#include "Platform/Log.h"
#include "Platform/UserDefaults.h"

namespace orvelle {

/// The settings of the settings file as a copy in memory, with the changes to it that are not saved
/// yet. Members that no setting can hold stay in the file as they are and read as unset. Each
/// trouble with the file is logged once until it is over. One thread only.
///
/// `save` works on the spot. Whoever must not wait for the disk lets another thread work on the
/// storage with a `copy`, and hands what came out to `adopt`.
class DefaultsFile {
public:
    static constexpr std::size_t maximumSize = DefaultsStorage::maximumSize;

    /// Reads the file on the spot.
    DefaultsFile(FileSystem& fileSystem, LogSink& log);

    std::optional<DefaultsValue> value(std::string_view key) const;
    /// Of the settings that can be read, ascending.
    std::vector<std::string> keys() const;
    /// In memory only. A value that cannot be stored, such as an infinite number, unsets the key.
    void set(std::string_view key, const DefaultsValue& value);
    /// In memory only. False for a key that the file does not have.
    bool remove(std::string_view key);

    bool hasUnsavedChanges() const { return !own_.unsaved.empty(); }
    /// Saves what is not saved yet, even when another process is still writing after `patience`.
    /// False when the disk does not take it; the changes stay unsaved.
    bool save(Seconds patience);

    const DefaultsStorage& storage() const { return storage_; }
    const DefaultsCopy& copy() const { return own_; }
    /// Forgets the changes that are saved, except where a later one has come since, and takes over
    /// what others have written, under the changes that are left. True when any value differs from
    /// before.
    bool adopt(DefaultsStorage::Outcome outcome);
    /// Logs a trouble with the file, a sentence, unless it was the last one.
    void report(const std::string& trouble);

private:
    void noteChange(std::string_view key);
    void reportUnreadableValues();

    DefaultsStorage storage_;
    Logger logger_;
    DefaultsCopy own_;
    std::uint64_t changeCount_ = 0;
    std::string reported_;
};

} // namespace orvelle
