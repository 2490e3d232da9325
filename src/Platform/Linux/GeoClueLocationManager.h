#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/LocationService.h"

#include <QString>

namespace orvelle {

/// One client object of GeoClue, made when a fix is first wanted and started while one is.
class GeoClueLocationManager : public LocationManager {
public:
    GeoClueLocationManager(RunLoop& runLoop, BusProvider systemBus,
                           LocationManagerDelegate& delegate, LocationAccuracy accuracy);
    ~GeoClueLocationManager() override;

    LocationAuthorization authorizationStatus() const override { return authorization_; }
    void startUpdatingLocation() override;
    void stopUpdatingLocation() override;
    void requestLocation() override;

private:
    enum class Stage { idle, preparing, started };

    bool isWanted() const { return isUpdating_ || isRequested_; }
    void want();
    void createClient();
    void startClient();
    void stopClient();
    void forget();
    void hear(const QDBusMessage& signal);
    void read(const QString& location);
    void setAuthorization(LocationAuthorization authorization);
    void fail(const QDBusMessage& error);

    LocationManagerDelegate& delegate_;
    const unsigned accuracyLevel_;
    LocationAuthorization authorization_ = LocationAuthorization::notDetermined;
    bool isUpdating_ = false;
    bool isRequested_ = false;
    bool isConnected_ = false;
    Stage stage_ = Stage::idle;
    QString client_; ///< the object's path; empty until there is one
    BusService geoclue_;
};

} // namespace orvelle
