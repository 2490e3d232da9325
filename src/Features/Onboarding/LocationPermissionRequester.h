#pragma once

#include "Platform/LocationService.h"
#include "Platform/Platform.h"

#include <functional>
#include <memory>

namespace orvelle {

/// Asks for the machine's place, so that the desktop asks its user. The service tells its observers
/// of the answer.
class LocationPermissionRequester : public LocationManagerDelegate {
public:
    /// `failed` hears when a request has led to no place: nobody is there to answer, or the user
    /// has refused, which changes the authorisation too.
    explicit LocationPermissionRequester(Platform& platform, std::function<void()> failed = {});

    void request();

    void didUpdateLocations(LocationManager&, const std::vector<Coordinate>&) override {}
    void didChangeAuthorization(LocationManager&) override {}
    void didFailWithError(LocationManager&, const std::string&) override;

private:
    std::function<void()> failed_;
    std::unique_ptr<LocationManager> manager_;
};

} // namespace orvelle
