#pragma once

#include "Platform/Console.h"
#include "Platform/LocationService.h"

#include <functional>

namespace orvelle {

/// Takes one fix from the location service at a time.
class LocationDelegate : public LocationManagerDelegate {
public:
    explicit LocationDelegate(Console& console) : console_(console) {}

    std::function<void(Coordinate)> onLocationUpdate;

    void didUpdateLocations(LocationManager& manager,
                            const std::vector<Coordinate>& locations) override;
    void didChangeAuthorization(LocationManager& manager) override;
    void didFailWithError(LocationManager& manager, const std::string& description) override;

private:
    Console& console_;
};

} // namespace orvelle
