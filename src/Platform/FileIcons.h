#pragma once

#include "Foundation/Image.h"

#include <optional>
#include <string>

namespace orvelle {

/// What the desktop knows of kinds of files. Main thread only.
class FileIcons {
public:
    virtual ~FileIcons() = default;

    /// The type that a file's name tells, as a MIME type; none for an extension that nobody knows.
    /// The file itself is not looked at.
    virtual std::optional<std::string> type(const std::string& name) const = 0;
    /// What the desktop draws for a file of this name, or for a folder: a word that `picture`
    /// understands.
    virtual std::string icon(const std::string& name, bool isFolder) const = 0;
    /// The icon in a square of `side` pixels; without pixels when the desktop has no such picture.
    virtual Image picture(const std::string& icon, int side) const = 0;
};

} // namespace orvelle
