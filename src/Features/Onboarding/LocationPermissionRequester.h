#pragma once

#include "Platform/LocationService.h"
#include "Platform/Platform.h"

#include <functional>
#include <memory>

namespace orvelle {

/// Asks for the machine's place, so that the desktop asks its user, and tells of the answer.
class LocationPermissionRequester : public LocationManagerDelegate {
public:
    LocationPermissionRequester(Platform& platform, std::function<void()> onChange);

    void request();
    LocationAuthorization status() const { return manager_->authorizationStatus(); }

    void didUpdateLocations(LocationManager& manager,
                            const std::vector<Coordinate>& locations) override;
    void didChangeAuthorization(LocationManager& manager) override;
    void didFailWithError(LocationManager& manager, const std::string& description) override;

private:
    const std::function<void()> onChange_;
    std::unique_ptr<LocationManager> manager_;
};

} // namespace orvelle
