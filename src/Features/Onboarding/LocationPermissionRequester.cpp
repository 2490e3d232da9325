#include "Features/Onboarding/LocationPermissionRequester.h"

#include <utility>

namespace orvelle {

LocationPermissionRequester::LocationPermissionRequester(Platform& platform,
                                                         std::function<void()> onChange)
    : onChange_(std::move(onChange)),
      manager_(platform.locationService().makeLocationManager(*this, LocationAccuracy::kilometer)) {
}

void LocationPermissionRequester::request() {
    manager_->requestLocation();
}

void LocationPermissionRequester::didUpdateLocations(LocationManager&,
                                                     const std::vector<Coordinate>&) {}

void LocationPermissionRequester::didChangeAuthorization(LocationManager&) {
    onChange_();
}

// A refusal changes the authorisation too, and any other failure tells nothing of it.
void LocationPermissionRequester::didFailWithError(LocationManager&, const std::string&) {}

} // namespace orvelle
