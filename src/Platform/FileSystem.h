#pragma once

#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// Why a disk does not take a change.
enum class WriteFailure { full, overQuota, readOnly, denied, tooLarge, obstructed, broken };

/// "the disk is full" and the like, for people.
std::string describe(WriteFailure failure);

/// How a change to the disk went; true when it is done.
class [[nodiscard]] WriteOutcome {
public:
    WriteOutcome() = default;
    WriteOutcome(WriteFailure failure) : failure_(failure) {}

    explicit operator bool() const { return !failure_; }
    const std::optional<WriteFailure>& failure() const { return failure_; }

private:
    std::optional<WriteFailure> failure_;
};

/// The user's own files. Paths are absolute UTF-8. Small files only.
///
/// Calls work on the spot and take as long as the disk does, for ever when it hangs. Any thread,
/// one operation at a time on each file.
class FileSystem {
public:
    enum class ReadFailure { missing, unreadable, tooLarge };
    struct Contents {
        std::string bytes;
        std::optional<ReadFailure> failure;
    };

    virtual ~FileSystem() = default;

    /// The folder that holds the "Orvelle" folder of lists and copies.
    virtual std::string applicationSupportDirectory() const = 0;
    /// The folder of settings files; made by the first write.
    virtual std::string configurationDirectory() const = 0;

    /// Files above `limit` bytes are not read.
    virtual Contents read(const std::string& path, std::size_t limit) const = 0;
    /// The names in a folder, ascending; none when it cannot be read.
    virtual std::vector<std::string> names(const std::string& folder) const = 0;
    /// Replaces the file atomically and durably, readable by the user alone, and makes missing
    /// folders. A failure leaves the old file whole, except that it may stand there anew when the
    /// disk broke at the very end.
    virtual WriteOutcome write(const std::string& path, std::string_view bytes) = 0;
    /// Replaces `to`, durably.
    virtual WriteOutcome move(const std::string& from, const std::string& to) = 0;
    /// Removes a file that may be there.
    virtual WriteOutcome remove(const std::string& path) = 0;
    /// Clears what earlier writes of this file left beside it when their processes were killed.
    virtual void clearRests(const std::string& path) = 0;

    /// Keeps every other holder of the same folder's lock waiting, in any process, until the handle
    /// dies; makes a missing folder. Waits for at most `patience`, then gives an empty handle.
    [[nodiscard]] virtual Subscription lock(const std::string& folder, Seconds patience) = 0;
};

} // namespace orvelle
