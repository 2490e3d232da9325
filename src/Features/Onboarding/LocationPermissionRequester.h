#pragma once

#include "Platform/LocationService.h"
#include "Platform/Platform.h"

#include <memory>

namespace orvelle {

/// Asks for the machine's place, so that the desktop asks its user. The service tells its observers
/// of the answer.
class LocationPermissionRequester : public LocationManagerDelegate {
public:
    explicit LocationPermissionRequester(Platform& platform);

    void request();

    // A refusal changes the authorisation too, and any other failure tells nothing of it.
    void didUpdateLocations(LocationManager&, const std::vector<Coordinate>&) override {}
    void didChangeAuthorization(LocationManager&) override {}
    void didFailWithError(LocationManager&, const std::string&) override {}

private:
    std::unique_ptr<LocationManager> manager_;
};

} // namespace orvelle
