#pragma once

#include "Platform/LocationService.h"

#include <functional>

namespace orvelle {

/// Takes one fix from the location service at a time.
class LocationDelegate : public LocationManagerDelegate {
public:
    std::function<void(Coordinate)> onLocationUpdate;

    void didUpdateLocations(LocationManager& manager,
                            const std::vector<Coordinate>& locations) override;
    void didChangeAuthorization(LocationManager& manager) override;
    void didFailWithError(LocationManager& manager, const std::string& description) override;
};

} // namespace orvelle
