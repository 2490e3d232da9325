#include "Platform/Linux/GeoClueLocationService.h"

#include "Platform/Linux/GeoClueLocationManager.h"

#include <utility>

namespace orvelle {

GeoClueLocationService::GeoClueLocationService(RunLoop& runLoop, BusProvider systemBus)
    : runLoop_(runLoop), systemBus_(std::move(systemBus)) {}

std::unique_ptr<LocationManager>
GeoClueLocationService::makeLocationManager(LocationManagerDelegate& delegate,
                                            LocationAccuracy accuracy) {
    return std::make_unique<GeoClueLocationManager>(runLoop_, systemBus_, delegate, accuracy);
}

} // namespace orvelle
