#pragma once

#include "Core/ServiceRoots.h"
#include "Features/Weather/LocationDelegate.h"
#include "Foundation/Tasks.h"
#include "Models/SavedLocation.h"
#include "Models/TemperatureUnit.h"
#include "Models/WeatherData.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

class WeatherCollapsedView;
class WeatherExpandedView;
struct HttpReply;

/// The conditions at the machine's own place or at one of the saved ones. Whatever fails, the last
/// good record stays; the next tick is the retry.
class WeatherManager : public FeatureModule,
                       public CollapsedViewProvider<WeatherCollapsedView>,
                       public ExpandedViewProvider<WeatherExpandedView> {
public:
    /// Between two refreshes when the setting is not above 0.
    static constexpr Seconds fallbackInterval = 300;

    /// Loads what the settings keep; asks neither the network nor the location service.
    explicit WeatherManager(Platform& platform = Platform::shared());

    Published<WeatherData> weather;
    /// Whether `weather` is of the place that is shown: false until something was fetched, and
    /// while a newly chosen place waits for its own.
    Published<bool> hasFigures{false};
    Published<bool> isLoading{false};
    /// What the service is asked for. The setting of the same name has no say in it.
    Published<TemperatureUnit> temperatureUnit{TemperatureUnit::fahrenheit};
    Published<std::vector<SavedLocation>> savedLocations; ///< in the user's order
    /// 0 is the machine's own place, n above 0 the saved one at n - 1.
    Published<std::size_t> currentLocationIndex{0};
    Timer refreshTimer;
    std::unique_ptr<LocationDelegate> locationDelegate; ///< made with the location manager
    std::unique_ptr<LocationManager> locationManager;   ///< made at the first start
    std::optional<Coordinate> lastLocation;             ///< the last fix of this run
    std::optional<Coordinate> cachedCoordinate;         ///< of the last fetch, also of earlier runs

    void start() override;
    void stop() override;
    /// Schedules the refreshes anew with the setting's interval, without one at once. A running
    /// manager does so by itself when the setting changes.
    void restartTimer();
    void refreshWeather();

    void cycleToNextLocation();
    void cycleToPreviousLocation();
    /// Without a refresh, and without a change of the place that is shown.
    void addSavedLocation(const SavedLocation& location);
    /// Nothing for a position that does not exist. Without a refresh.
    void removeLocation(std::ptrdiff_t position);
    std::string currentLocationName() const;

    bool hasCollapsedContent() const override;
    WeatherCollapsedView collapsedView() override;
    WeatherExpandedView expandedView() override;

    Platform& platform() const { return platform_; }

private:
    Seconds refreshInterval() const;
    void setupLocationManager();
    void locationUpdated(Coordinate fix);
    void fetchWeather(Coordinate coordinate);
    void received(const HttpReply& reply, Coordinate coordinate);
    void reverseGeocode(Coordinate coordinate, std::function<void(std::string)> done);
    void cacheWeather(Coordinate coordinate);
    void cycle(std::size_t step);
    void applyLocationNameForCurrentIndex();
    bool isShown(Coordinate coordinate) const;
    /// The saved place that is shown; null for the machine's own and for one that is gone.
    const SavedLocation* currentSavedLocation() const;

    Platform& platform_;
    const ServiceRoots roots_ = ServiceRoots::fromEnvironment();
    Seconds runningInterval_ = fallbackInterval;
    Subscription settingsChanges_; ///< while it runs
    Tasks requests_;
};

} // namespace orvelle
