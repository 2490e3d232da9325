#pragma once

#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

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
    /// Replaces the file atomically and durably, readable by the user alone, and makes missing
    /// folders. False leaves the old file whole.
    virtual bool write(const std::string& path, std::string_view bytes) = 0;
    /// Replaces `to`. False when nothing was moved.
    virtual bool move(const std::string& from, const std::string& to) = 0;

    /// Keeps every other holder of the same folder's lock waiting, in any process, until the handle
    /// dies; makes a missing folder. Waits for at most `patience`, then gives an empty handle.
    [[nodiscard]] virtual Subscription lock(const std::string& folder, Seconds patience) = 0;
};

} // namespace orvelle
