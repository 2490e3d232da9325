#pragma once

#include "Foundation/Json.h"
#include "Platform/FileSystem.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orvelle {

/// The settings as one process has them.
struct DefaultsCopy {
    using Changes = std::map<std::string, std::uint64_t, std::less<>>;

    Json::Object document;
    /// The keys that were set or removed since they were saved, each with the number of its latest
    /// change.
    Changes unsaved;

    /// The settings of others with the unsaved changes laid over them.
    Json::Object over(Json::Object others) const;
};

/// The settings file on the disk, "defaults.json" in the configuration folder. Other processes may
/// write it at any time: saving lays the own changes over what the file holds by then.
///
/// Holds no settings and writes no log: what an operation needs goes in, and what it found comes
/// out. Any thread, one operation at a time; each takes as long as the disk does.
class DefaultsStorage {
public:
    static constexpr std::size_t maximumSize = 4 << 20;

    enum class Result {
        /// Nothing was to be saved.
        read,
        saved,
        /// Another process is writing; worth another try in a moment.
        busy,
        /// The disk does not take it.
        refused
    };
    /// Whether to save although another process seems to be writing.
    enum class Insist { no, yes };

    struct Outcome {
        Result result = Result::read;
        /// What the file holds now; none when there is no file, or no use in it.
        std::optional<Json::Object> document;
        /// The changes that are on the disk now.
        DefaultsCopy::Changes saved;
        /// Why the disk refused; only with `Result::refused`.
        std::optional<WriteFailure> failure;
        /// For the log, each a sentence about the file.
        std::vector<std::string> troubles;
    };

    explicit DefaultsStorage(FileSystem& fileSystem);

    static std::string path(const FileSystem& fileSystem);
    const std::string& path() const { return path_; }

    /// The first reading: a file whose content is of no use is put aside, see `keepAside`, and
    /// what killed writers left is cleared.
    Outcome open() const;
    /// A file that is of no use stays where it is.
    Outcome read() const;
    /// `patience` is how long to wait for another process, and again while others are seen to
    /// write, at most ten times. A file that is of no use counts as
    /// half-written by another process; with `Insist::yes` it is put aside.
    Outcome save(const DefaultsCopy& own, Seconds patience, Insist insist) const;

private:
    struct Reading {
        std::optional<Json::Object> document;
        /// Why the file is of no use; empty otherwise.
        std::string problem;
        enum class Content { some, none, unknown } content = Content::some;
    };

    Reading readFile() const;
    /// Puts a file without use aside.
    WriteOutcome makeWay(const Reading& unusable, std::vector<std::string>& troubles) const;

    FileSystem* fileSystem_;
    std::string path_;
};

} // namespace orvelle
