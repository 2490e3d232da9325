#include "Platform/Linux/GeoClueLocationService.h"

#include "Platform/Linux/GeoClueLocationManager.h"

#include <utility>

namespace orvelle {

GeoClueLocationService::GeoClueLocationService(RunLoop& runLoop, BusProvider systemBus,
                                               int callTimeout)
    : geoclue_(runLoop, std::move(systemBus), callTimeout) {}

Subscription GeoClueLocationService::observeAuthorization(std::function<void()> changed) {
    return geoclue_.authorizationChanged.observe(std::move(changed));
}

// GeoClue has no question about the permission alone: a client that is started tells.
void GeoClueLocationService::refreshAuthorization() {
    if (authorizationStatus() == LocationAuthorization::notDetermined || geoclue_.isAsking())
        return;
    GeoClueClient::Owner& owner = *this; // which others may not see
    inquiry_.emplace(geoclue_, LocationAccuracy::kilometer, owner);
}

std::unique_ptr<LocationManager>
GeoClueLocationService::makeLocationManager(LocationManagerDelegate& delegate,
                                            LocationAccuracy accuracy) {
    return std::make_unique<GeoClueLocationManager>(geoclue_, delegate, accuracy);
}

} // namespace orvelle
