#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/LocationService.h"

namespace orvelle {

class RunLoop;

/// GeoClue, which knows the program by its desktop file's name. The bus is not touched before a fix
/// is wanted; a service that is absent or refuses is a failure, and the next wish asks again.
class GeoClueLocationService : public LocationService {
public:
    GeoClueLocationService(RunLoop& runLoop, BusProvider systemBus);

    std::unique_ptr<LocationManager> makeLocationManager(LocationManagerDelegate& delegate,
                                                         LocationAccuracy accuracy) override;

private:
    RunLoop& runLoop_;
    BusProvider systemBus_;
};

} // namespace orvelle
