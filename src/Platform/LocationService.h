#pragma once

#include "Foundation/Subscription.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Degrees of WGS 84: latitude -90 to 90, longitude -180 to 180.
struct Coordinate {
    double latitude = 0;
    double longitude = 0;
    bool operator==(const Coordinate&) const = default;
};

/// The values are those of the stored and compared status numbers.
enum class LocationAuthorization {
    notDetermined = 0, ///< nobody was asked yet
    restricted = 1,
    denied = 2,
    authorizedAlways = 3,
    authorizedWhenInUse = 4,
};

enum class LocationAccuracy { kilometer };

class LocationManager;

/// Who hears of a location manager. Called on the main thread, never during a call of the manager
/// or its service.
class LocationManagerDelegate {
public:
    virtual ~LocationManagerDelegate() = default;
    /// Oldest first.
    virtual void didUpdateLocations(LocationManager& manager,
                                    const std::vector<Coordinate>& locations) = 0;
    virtual void didChangeAuthorization(LocationManager& manager) = 0;
    /// `description` is for people.
    virtual void didFailWithError(LocationManager& manager, const std::string& description) = 0;
};

/// One client of the location service. Main thread only. Nobody is asked before the first start or
/// request.
class LocationManager {
public:
    virtual ~LocationManager() = default;

    /// The service's.
    virtual LocationAuthorization authorizationStatus() const = 0;
    /// Fixes arrive until the stop. Without a service, or when it refuses, the delegate hears of
    /// the failure once.
    virtual void startUpdatingLocation() = 0;
    virtual void stopUpdatingLocation() = 0;
    /// One fix, or one failure.
    virtual void requestLocation() = 0;
};

/// Where the machine is.
class LocationService {
public:
    virtual ~LocationService() = default;

    /// What the user lets the program know, as it was last answered: the same for all managers.
    virtual LocationAuthorization authorizationStatus() const = 0;
    /// Called after each change of it, as every manager's delegate is.
    [[nodiscard]] virtual Subscription observeAuthorization(std::function<void()> changed) = 0;
    /// Asks again whether the last answer holds; no fix comes of it. Nothing while nobody was asked
    /// yet, and while an answer is outstanding.
    virtual void refreshAuthorization() = 0;

    /// The delegate outlives the manager, and the service both.
    virtual std::unique_ptr<LocationManager> makeLocationManager(LocationManagerDelegate& delegate,
                                                                 LocationAccuracy accuracy) = 0;
};

} // namespace orvelle
