#pragma once

#include "Foundation/Json.h"
#include "Platform/FileSystem.h"
#include "Platform/Log.h"
#include "Platform/UserDefaults.h"

#include <set>

namespace orvelle {

/// The settings file, "defaults.json" in the configuration folder, as a copy in memory and the
/// changes to it that are not saved yet. Other processes may write the file at any time: saving
/// lays the own changes over what the file holds by then.
///
/// A file that is no JSON object, cannot be read or is larger than `maximumSize` is put aside as
/// "defaults.json.corrupt" at the start, and the settings start empty. A file that becomes so later
/// is put aside when it is in the way of a save. Members that no setting can hold stay in
/// the file as they are and read as unset. Each trouble is logged once until it is over.
class DefaultsFile {
public:
    static constexpr std::size_t maximumSize = 4 << 20;

    enum class SaveResult {
        saved,
        /// Another process is writing; worth another try in a moment.
        busy,
        /// The disk does not take it; the changes stay unsaved.
        refused
    };
    /// Whether to save although another process seems to be writing.
    enum class Insist { no, yes };

    /// Reads the file; this is the only reading until `reload` or `save`.
    DefaultsFile(FileSystem& fileSystem, LogSink& log);

    static std::string path(const FileSystem& fileSystem);

    std::optional<DefaultsValue> value(std::string_view key) const;
    /// Of the settings that can be read, ascending.
    std::vector<std::string> keys() const;
    /// In memory only. A value that cannot be stored, such as an infinite number, unsets the key.
    void set(std::string_view key, const DefaultsValue& value);
    /// In memory only. False for a key that the file does not have.
    bool remove(std::string_view key);
    bool hasUnsavedChanges() const { return !unsaved_.empty(); }

    /// Takes over what others have written; unsaved changes stay. A file that is gone or unreadable
    /// for the moment changes nothing. True when any value differs from before.
    bool reload();

    struct SaveOutcome {
        SaveResult result;
        /// Others had written values that are taken over now.
        bool valuesChanged = false;
    };
    /// `patience` is how long to wait for another process.
    SaveOutcome save(Seconds patience, Insist insist);

private:
    struct Reading {
        /// None when there is no file, or no use in it.
        std::optional<Json::Object> document;
        /// Why the file is of no use; empty otherwise.
        std::string problem;
        bool hasContent = true;
    };

    Reading read() const;
    /// Puts a file without use aside; false when it stays in the way.
    bool makeWay(const Reading& unusable);
    Json::Object withUnsavedChanges(Json::Object document) const;
    void report(const std::string& trouble);
    void reportUnreadableValues();

    FileSystem& fileSystem_;
    Logger logger_;
    std::string path_;
    Json::Object document_;
    std::set<std::string, std::less<>> unsaved_;
    std::string reported_;
};

} // namespace orvelle
