#include "Platform/Simulated/SimulatedLocation.h"

#include <utility>

namespace orvelle {

SimulatedLocationManager::SimulatedLocationManager(SimulatedLocationService& service,
                                                   LocationManagerDelegate& delegate)
    : service_(service), delegate_(delegate),
      authorization_(
          service.observeAuthorization([this] { delegate_.didChangeAuthorization(*this); })) {}

SimulatedLocationManager::~SimulatedLocationManager() {
    if (service_.last == this)
        service_.last = nullptr;
}

void SimulatedLocationManager::deliver(const std::vector<Coordinate>& fixes) {
    delegate_.didUpdateLocations(*this, fixes);
}

void SimulatedLocationManager::deliverSoon(std::vector<Coordinate> fixes) {
    service_.runLoop.post(lifetime_.guard([this, fixes = std::move(fixes)] { deliver(fixes); }));
}

void SimulatedLocationManager::fail(const std::string& description) {
    delegate_.didFailWithError(*this, description);
}

LocationAuthorization SimulatedLocationManager::authorizationStatus() const {
    return service_.authorization;
}

void SimulatedLocationManager::startUpdatingLocation() {
    isUpdating = true;
    ++startCount;
}

void SimulatedLocationManager::stopUpdatingLocation() {
    isUpdating = false;
    ++stopCount;
}

void SimulatedLocationManager::requestLocation() {
    ++requestCount;
    if (service_.onRequest)
        service_.onRequest(*this);
}

void SimulatedLocationService::changeAuthorization(LocationAuthorization answer) {
    if (std::exchange(authorization, answer) != answer)
        authorizationChanged_();
}

Subscription SimulatedLocationService::observeAuthorization(std::function<void()> changed) {
    return authorizationChanged_.observe(std::move(changed));
}

void SimulatedLocationService::refreshAuthorization() {
    ++refreshCount;
    if (authorization != LocationAuthorization::notDetermined && laterAuthorization)
        runLoop.post(lifetime_.guard([this] { changeAuthorization(*laterAuthorization); }));
}

std::unique_ptr<LocationManager>
SimulatedLocationService::makeLocationManager(LocationManagerDelegate& delegate, LocationAccuracy) {
    auto manager = std::make_unique<SimulatedLocationManager>(*this, delegate);
    last = manager.get();
    ++managerCount;
    return manager;
}

Subscription SimulatedGeocoder::reverseGeocode(Coordinate coordinate, Completion done) {
    requests.push_back(coordinate);
    auto waiting = std::make_shared<Waiting>(Waiting{std::move(done)});
    if (isSlow)
        slow_.push_back(waiting);
    else
        runLoop_.post([this, waiting] { finish(*waiting); });
    return Subscription([waiting] { waiting->isWanted = false; });
}

void SimulatedGeocoder::answerSlowRequests() {
    isSlow = false;
    for (const auto& waiting : std::exchange(slow_, {}))
        finish(*waiting);
}

void SimulatedGeocoder::finish(Waiting& waiting) const {
    if (!waiting.isWanted)
        return;
    const auto done = std::move(waiting.done);
    done(locality);
}

} // namespace orvelle
