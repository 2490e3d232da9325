#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

namespace orvelle {

/// Whole files and folders, of any size, into a folder of the program's own. Paths are absolute, in
/// the bytes of the file system.
///
/// Calls work on the spot and take as long as the disk does, for ever when it hangs: copies and
/// removals belong in the background. Any thread; one copy at a time into each folder, beside which
/// other things may be removed from it.
class FileCopier {
public:
    struct Info {
        std::int64_t size = 0; ///< bytes of the file, or of a folder's own entry
        bool isFolder = false;
    };
    /// How a copy went.
    struct Outcome {
        std::optional<std::string> failure; ///< for people; none when the copy is whole
        Info info;                          ///< of the copy
    };

    static constexpr const char* stagingName = ".incoming";

    virtual ~FileCopier() = default;

    /// Makes the folder and its parents, open to the user alone. False when it is not there after.
    virtual bool makeFolder(const std::string& path) = 0;
    /// None when no file and no folder is there; what cannot be looked at has no size.
    virtual std::optional<Info> info(const std::string& path) const = 0;
    /// The one spelling of the path, without links, "." and "..", or doubled and trailing slashes.
    /// None when nothing is there.
    virtual std::optional<std::string> canonicalPath(const std::string& path) const = 0;

    /// Copies `source`, which is only read, to the name `name` in `folder`, in place of what has
    /// that name. The copy is there whole or not at all: until it is whole and on the disk, it
    /// stands in the hidden folder `stagingName`, which every copy clears first. A file that grows
    /// meanwhile is copied to the length that it had.
    ///
    /// Refused are what is no file and no folder, a name that is no single component or is
    /// `stagingName`, a folder that holds `folder`, and what the kernel makes up. A symbolic link
    /// is followed; within a folder links are copied as they are, and what is no file is left out.
    /// Gives up soon after `cancelled` is set.
    virtual Outcome copy(const std::string& source, const std::string& folder,
                         const std::string& name, const std::atomic<bool>& cancelled) = 0;
    /// Removes a file, or a folder with all that is in it, following no link. False when something
    /// is left.
    virtual bool remove(const std::string& path) = 0;
};

} // namespace orvelle
