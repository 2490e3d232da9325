#pragma once

#include "Foundation/Date.h"
#include "Foundation/Image.h"
#include "Foundation/UUID.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orvelle {

/// A file on the shelf.
struct ShelfItem {
    UUID id;
    std::string url;  ///< the copy inside the shelf's folder
    std::string name; ///< the last path component, extension included
    std::optional<std::string> fileType;
    Image icon;
    std::int64_t size = 0; ///< bytes; 0 when they cannot be read
    Date addedAt;
    Date expiresAt;
    bool operator==(const ShelfItem&) const = default;
};

} // namespace orvelle
