#include "Features/Onboarding/LocationPermissionRequester.h"

#include <utility>

namespace orvelle {

LocationPermissionRequester::LocationPermissionRequester(Platform& platform,
                                                         std::function<void()> failed)
    : failed_(std::move(failed)),
      manager_(platform.locationService().makeLocationManager(*this, LocationAccuracy::kilometer)) {
}

void LocationPermissionRequester::request() {
    manager_->requestLocation();
}

void LocationPermissionRequester::didFailWithError(LocationManager&, const std::string&) {
    if (failed_)
        failed_();
}

} // namespace orvelle
