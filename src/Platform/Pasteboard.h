#pragma once

#include "Foundation/Subscription.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// The desktop's clipboard, which all programs share. Main thread only; nothing here waits for
/// another program.
class Pasteboard {
public:
    /// Longer texts are not read.
    static constexpr std::size_t maximumSize = 1 << 20;
    /// None when there is no text to be had: nothing or no text was copied, it is too long, its
    /// owner marks it as secret, or the owner does not answer within seconds. Copied files are no
    /// text, though file managers offer their paths as one beside them.
    using Reading = std::function<void(std::optional<std::string>)>;

    /// None when no files were copied, or their owner does not answer within seconds.
    using FileReading = std::function<void(std::vector<std::string> urls)>;

    virtual ~Pasteboard() = default;

    /// Another number after each change of the content, whoever made it.
    virtual std::int64_t changeCount() = 0;
    /// Reads the text as it stands, in valid UTF-8. `done` may be called before this returns; a
    /// handle that dies calls it off.
    [[nodiscard]] virtual Subscription readString(Reading done) = 0;
    /// Likewise the text that is selected in whichever program, for the middle button to paste.
    /// Where there is no such thing, none.
    [[nodiscard]] virtual Subscription readSelection(Reading done) = 0;
    /// Likewise the addresses of files of this machine, as file managers copy them.
    [[nodiscard]] virtual Subscription readFiles(FileReading done) = 0;
    /// Replaces the content; the change is counted when this returns.
    virtual void setString(const std::string& text) = 0;
    /// Replaces the content by files, for a file manager to paste.
    virtual void writeFiles(const std::vector<std::string>& urls) = 0;
};

} // namespace orvelle
