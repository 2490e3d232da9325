#pragma once

#include "Foundation/Json.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>

namespace orvelle {

/// A place whose weather the user has saved.
struct SavedLocation {
    UUID id;
    std::string name;
    double latitude = 0;
    double longitude = 0;
    bool operator==(const SavedLocation&) const = default;

    /// The stored form.
    Json json() const;
    static std::optional<SavedLocation> fromJson(const Json& json);
};

} // namespace orvelle
