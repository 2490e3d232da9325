#include "Features/Weather/LocationDelegate.h"

namespace orvelle {

void LocationDelegate::didUpdateLocations(LocationManager& manager,
                                          const std::vector<Coordinate>& locations) {
    if (locations.empty())
        return;
    if (onLocationUpdate)
        onLocationUpdate(locations.back());
    manager.stopUpdatingLocation();
}

void LocationDelegate::didChangeAuthorization(LocationManager& manager) {
    if (manager.authorizationStatus() == LocationAuthorization::authorizedAlways)
        manager.startUpdatingLocation();
}

void LocationDelegate::didFailWithError(LocationManager&, const std::string& description) {
    console_.print("LocationDelegate: " + description);
}

} // namespace orvelle
