#pragma once

#include "Platform/Linux/GeoClueClient.h"

#include <optional>

namespace orvelle {

/// GeoClue, which knows the program by its desktop file's name. The bus is not touched before a fix
/// is wanted; a service that is absent or refuses is a failure, and the next wish asks again.
class GeoClueLocationService : public LocationService, private GeoClueClient::Owner {
public:
    /// `callTimeout`, in milliseconds, is for what waits for the machine alone.
    GeoClueLocationService(RunLoop& runLoop, BusProvider systemBus,
                           int callTimeout = busCallTimeout);

    LocationAuthorization authorizationStatus() const override { return geoclue_.authorization(); }
    Subscription observeAuthorization(std::function<void()> changed) override;
    void refreshAuthorization() override;
    std::unique_ptr<LocationManager> makeLocationManager(LocationManagerDelegate& delegate,
                                                         LocationAccuracy accuracy) override;

private:
    // Of the inquiry: the authorisation is known by now.
    void started() override { inquiry_.reset(); }
    void located(Coordinate) override { inquiry_.reset(); }
    void failed(const std::string&) override { inquiry_.reset(); }

    GeoClue geoclue_;
    std::optional<GeoClueClient> inquiry_;
};

} // namespace orvelle
