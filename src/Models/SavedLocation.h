#pragma once

#include "Foundation/UUID.h"

#include <string>

namespace orvelle {

/// A place whose weather the user has saved.
struct SavedLocation {
    UUID id;
    std::string name;
    double latitude = 0;
    double longitude = 0;
    bool operator==(const SavedLocation&) const = default;
};

} // namespace orvelle
