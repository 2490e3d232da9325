#pragma once

#include "Platform/Linux/GeoClueClient.h"

#include <optional>

namespace orvelle {

/// Has a client of GeoClue while a fix is wanted, and none otherwise.
class GeoClueLocationManager : public LocationManager, private GeoClueClient::Owner {
public:
    GeoClueLocationManager(GeoClue& geoclue, LocationManagerDelegate& delegate,
                           LocationAccuracy accuracy);

    LocationAuthorization authorizationStatus() const override { return geoclue_.authorization(); }
    void startUpdatingLocation() override;
    void stopUpdatingLocation() override;
    void requestLocation() override;

private:
    void want();
    void started() override {}
    void located(Coordinate place) override;
    void failed(const std::string& description) override;

    GeoClue& geoclue_;
    LocationManagerDelegate& delegate_;
    const LocationAccuracy accuracy_;
    bool isUpdating_ = false;
    bool isRequested_ = false;
    Subscription authorization_;
    std::optional<GeoClueClient> client_;
};

} // namespace orvelle
