#include "Platform/Linux/GeoClueLocationManager.h"

namespace orvelle {

GeoClueLocationManager::GeoClueLocationManager(GeoClue& geoclue, LocationManagerDelegate& delegate,
                                               LocationAccuracy accuracy)
    : geoclue_(geoclue), delegate_(delegate), accuracy_(accuracy),
      authorization_(geoclue.authorizationChanged.observe(
          [this] { delegate_.didChangeAuthorization(*this); })) {}

void GeoClueLocationManager::startUpdatingLocation() {
    isUpdating_ = true;
    want();
}

void GeoClueLocationManager::requestLocation() {
    isRequested_ = true;
    want();
}

void GeoClueLocationManager::stopUpdatingLocation() {
    isUpdating_ = false;
    isRequested_ = false;
    client_.reset();
}

void GeoClueLocationManager::want() {
    GeoClueClient::Owner& owner = *this; // which others may not see
    if (client_)
        client_->locateAgain();
    else
        client_.emplace(geoclue_, accuracy_, owner);
}

void GeoClueLocationManager::located(Coordinate place) {
    isRequested_ = false;
    if (!isUpdating_)
        client_.reset();
    delegate_.didUpdateLocations(*this, {place});
}

void GeoClueLocationManager::failed(const std::string& description) {
    const auto why = description;
    stopUpdatingLocation();
    delegate_.didFailWithError(*this, why);
}

} // namespace orvelle
