#pragma once

#include "Foundation/Date.h"
#include "Foundation/Json.h"

#include <optional>
#include <string>

namespace orvelle {

/// An item of the shelf as its list's file holds it.
struct ShelfItemMetadata {
    std::string urlPath; ///< the absolute path of the copy
    Date addedAt;
    Date expiresAt;
    bool operator==(const ShelfItemMetadata&) const = default;
};

/// The element of the list's file, a JSON array; dates are numbers.
Json jsonOf(const ShelfItemMetadata& entry);
/// None for an element of any other form.
std::optional<ShelfItemMetadata> shelfItemMetadataFrom(const Json& element);

} // namespace orvelle
