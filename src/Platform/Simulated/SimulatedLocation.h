#pragma once

#include "Foundation/Published.h"
#include "Platform/Geocoder.h"
#include "Platform/LocationService.h"
#include "Platform/RunLoop.h"

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

class SimulatedLocationService;

class SimulatedLocationManager : public LocationManager {
public:
    SimulatedLocationManager(SimulatedLocationService& service, LocationManagerDelegate& delegate);
    ~SimulatedLocationManager() override;

    bool isUpdating = false;
    int startCount = 0;
    int stopCount = 0;
    int requestCount = 0;

    /// What the machine's service has to say, whether it was asked or not.
    void deliver(const std::vector<Coordinate>& fixes);
    /// At the next turn of the loop.
    void deliverSoon(std::vector<Coordinate> fixes);
    void fail(const std::string& description);

    LocationAuthorization authorizationStatus() const override;
    void startUpdatingLocation() override;
    void stopUpdatingLocation() override;
    void requestLocation() override;

private:
    SimulatedLocationService& service_;
    LocationManagerDelegate& delegate_;
    Subscription authorization_;
    Lifetime lifetime_;
};

class SimulatedLocationService : public LocationService {
public:
    explicit SimulatedLocationService(RunLoop& loop) : runLoop(loop) {}

    RunLoop& runLoop;
    LocationAuthorization authorization = LocationAuthorization::notDetermined;
    /// What the user has decided since; who asks again hears it at the next turn of the loop.
    std::optional<LocationAuthorization> laterAuthorization;
    int refreshCount = 0;
    /// Called for each request, so that a demonstration can answer it.
    std::function<void(SimulatedLocationManager&)> onRequest;
    SimulatedLocationManager* last = nullptr; ///< none when it has died
    int managerCount = 0;

    /// The answer of a user who was asked.
    void changeAuthorization(LocationAuthorization answer);

    LocationAuthorization authorizationStatus() const override { return authorization; }
    Subscription observeAuthorization(std::function<void()> changed) override;
    void refreshAuthorization() override;
    std::unique_ptr<LocationManager> makeLocationManager(LocationManagerDelegate& delegate,
                                                         LocationAccuracy accuracy) override;

private:
    Event<> authorizationChanged_;
    Lifetime lifetime_;
};

/// Knows one place everywhere, or none. Answers at the next turn of the loop.
class SimulatedGeocoder : public Geocoder {
public:
    explicit SimulatedGeocoder(RunLoop& runLoop) : runLoop_(runLoop) {}

    std::optional<std::string> locality;
    std::vector<Coordinate> requests;
    bool isSlow = false; ///< keeps the answers back until the test wants them
    void answerSlowRequests();

    Subscription reverseGeocode(Coordinate coordinate, Completion done) override;

private:
    struct Waiting {
        Completion done;
        bool isWanted = true;
    };
    void finish(Waiting& waiting) const;

    RunLoop& runLoop_;
    std::vector<std::shared_ptr<Waiting>> slow_;
};

} // namespace orvelle
