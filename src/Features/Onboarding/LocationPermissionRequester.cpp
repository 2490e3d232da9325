#include "Features/Onboarding/LocationPermissionRequester.h"

namespace orvelle {

LocationPermissionRequester::LocationPermissionRequester(Platform& platform)
    : manager_(platform.locationService().makeLocationManager(*this, LocationAccuracy::kilometer)) {
}

void LocationPermissionRequester::request() {
    manager_->requestLocation();
}

} // namespace orvelle
