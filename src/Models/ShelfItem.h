#pragma once

#include "Foundation/Date.h"
#include "Foundation/UUID.h"
#include "Platform/Platform.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orvelle {

/// A file on the shelf.
struct ShelfItem {
    /// Looks at the file for what it tells.
    ShelfItem(std::string fileURL, std::int64_t retentionHours,
              Platform& platform = Platform::shared());

    UUID id;
    std::string url;                     ///< the copy inside the shelf's folder
    std::string name;                    ///< the last path component, extension included
    std::optional<std::string> fileType; ///< a MIME type; none for an unknown extension
    std::string icon;                    ///< for `FileIcons::picture`
    std::int64_t size = 0;               ///< bytes; 0 when they cannot be read
    Date addedAt;
    Date expiresAt;

    bool operator==(const ShelfItem&) const = default;
};

} // namespace orvelle
