#pragma once

#include "Foundation/Subscription.h"
#include "Platform/LocationService.h"

#include <functional>
#include <optional>
#include <string>

namespace orvelle {

/// Finds the name of a place by its coordinates.
class Geocoder {
public:
    /// None when there is no named place near, and when the search fails.
    using Completion = std::function<void(const std::optional<std::string>& locality)>;

    virtual ~Geocoder() = default;

    /// Main thread; `done` arrives there once, never during the call, and not after the handle
    /// died. The handle may be reset from `done`.
    [[nodiscard]] virtual Subscription reverseGeocode(Coordinate coordinate, Completion done) = 0;
};

} // namespace orvelle
