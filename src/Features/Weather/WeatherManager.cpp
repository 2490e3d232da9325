#include "Features/Weather/WeatherManager.h"

#include "Features/Weather/OpenMeteoResponse.h"
#include "Features/Weather/WeatherCollapsedView.h"
#include "Features/Weather/WeatherExpandedView.h"
#include "Features/Weather/WeatherRequests.h"
#include "Features/Weather/WeatherStore.h"
#include "Foundation/Url.h"
#include "Models/Symbol.h"
#include "Platform/Geocoder.h"
#include "Platform/HttpClient.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>
#include <iterator>

namespace orvelle {

namespace {

// A setting that was written by hand must not flood the service, nor stop the refreshes.
constexpr Seconds shortestInterval = 1;
constexpr Seconds longestInterval = 7 * 86400;

} // namespace

WeatherManager::WeatherManager(Platform& platform)
    : FeatureModule("weather", "Weather", std::string("cloud.sun.fill"_symbol)),
      platform_(platform) {
    const auto& defaults = platform.userDefaults();
    const auto now = platform.runLoop().now();
    WeatherData nothingKnown;
    nothingKnown.lastUpdated = now;
    const auto stored = WeatherStore::loadWeather(defaults, now);
    weather = stored.value_or(nothingKnown);
    hasFigures = stored.has_value();
    cachedCoordinate = WeatherStore::loadCoordinate(defaults);
    savedLocations = WeatherStore::loadLocations(defaults);
}

void WeatherManager::start() {
    if (!isEnabled)
        return;
    setupLocationManager();
    if (locationManager->authorizationStatus() == LocationAuthorization::authorizedAlways)
        locationManager->startUpdatingLocation();
    refreshWeather();
    restartTimer();
    settingsChanges_ = platform_.userDefaults().observeChanges([this] {
        if (refreshInterval() != runningInterval_)
            restartTimer();
    });
}

void WeatherManager::stop() {
    settingsChanges_.reset();
    refreshTimer.reset();
    if (locationManager)
        locationManager->stopUpdatingLocation();
}

Seconds WeatherManager::refreshInterval() const {
    const double minutes =
        platform_.userDefaults().number(Settings::weatherUpdateIntervalMinutes.name);
    const Seconds interval = minutes > 0 ? minutes * 60 : fallbackInterval;
    return std::clamp(interval, shortestInterval, longestInterval);
}

void WeatherManager::restartTimer() {
    runningInterval_ = refreshInterval();
    refreshTimer = platform_.runLoop().every(runningInterval_, [this] { refreshWeather(); });
}

void WeatherManager::setupLocationManager() {
    if (locationManager)
        return;
    locationDelegate = std::make_unique<LocationDelegate>(platform_.console());
    locationDelegate->onLocationUpdate = [this](Coordinate fix) { locationUpdated(fix); };
    locationManager = platform_.locationService().makeLocationManager(*locationDelegate,
                                                                      LocationAccuracy::kilometer);
}

void WeatherManager::locationUpdated(Coordinate fix) {
    lastLocation = fix;
    // The answer to a question of the wizard's may bring a fix to a manager that is switched off.
    if (isEnabled && currentLocationIndex == 0)
        fetchWeather(fix);
}

void WeatherManager::refreshWeather() {
    if (currentLocationIndex != 0) {
        if (const auto* place = currentSavedLocation())
            fetchWeather({place->latitude, place->longitude});
        return;
    }
    if (lastLocation) {
        fetchWeather(*lastLocation);
        return;
    }
    if (cachedCoordinate)
        fetchWeather(*cachedCoordinate);
    if (locationManager)
        locationManager->requestLocation();
}

void WeatherManager::fetchWeather(Coordinate coordinate) {
    isLoading = true;
    const auto url = WeatherRequests::forecast(roots_.forecast, coordinate, temperatureUnit);
    if (!Url::isValid(url)) {
        isLoading = false;
        return;
    }
    requests_.start([&](auto finished) {
        return platform_.httpClient().get({.url = url},
                                          [this, coordinate, finished](const HttpReply& reply) {
                                              finished();
                                              received(reply, coordinate);
                                          });
    });
}

void WeatherManager::received(const HttpReply& reply, Coordinate coordinate) {
    // The status does not matter: what is no forecast is a failure.
    const auto response = reply.error ? Decoded<OpenMeteoResponse>{std::nullopt, *reply.error}
                                      : OpenMeteoResponse::decode(reply.body);
    if (!response.record) {
        platform_.console().print("WeatherManager: Fetch failed: " + response.error);
        isLoading = false;
        return;
    }
    const auto show = [this, coordinate,
                       current = response.record->current](std::string locationName) {
        weather = {.temperature = current.temperature,
                   .feelsLike = current.apparentTemperature,
                   .humidity = current.relativeHumidity,
                   .windSpeed = current.windSpeed,
                   .weatherCode = current.weatherCode,
                   .isDay = current.isDay == 1,
                   .lastUpdated = platform_.runLoop().now(),
                   .locationName = std::move(locationName)};
        hasFigures = isShown(coordinate);
        cacheWeather(coordinate);
        isLoading = false;
    };
    if (currentLocationIndex == 0)
        reverseGeocode(coordinate, show);
    else if (const auto* place = currentSavedLocation())
        show(place->name);
    else
        show(weather->locationName);
}

void WeatherManager::reverseGeocode(Coordinate coordinate, std::function<void(std::string)> done) {
    requests_.start([&](auto finished) {
        return platform_.geocoder().reverseGeocode(
            coordinate,
            [this, done = std::move(done), finished](const std::optional<std::string>& locality) {
                finished();
                done(locality.value_or(weather->locationName));
            });
    });
}

void WeatherManager::cacheWeather(Coordinate coordinate) {
    auto& defaults = platform_.userDefaults();
    WeatherStore::saveWeather(defaults, weather);
    // A saved place's too: the next run shows it until there is a fix.
    WeatherStore::saveCoordinate(defaults, coordinate);
    cachedCoordinate = coordinate;
}

void WeatherManager::cycleToNextLocation() {
    cycle(1);
}

void WeatherManager::cycleToPreviousLocation() {
    cycle(savedLocations->size());
}

void WeatherManager::cycle(std::size_t step) {
    if (savedLocations->empty())
        return;
    currentLocationIndex = (currentLocationIndex.get() + step) % (savedLocations->size() + 1);
    hasFigures = false;
    applyLocationNameForCurrentIndex();
    refreshWeather();
}

bool WeatherManager::isShown(Coordinate coordinate) const {
    const auto* place = currentSavedLocation();
    return !place || coordinate == Coordinate{place->latitude, place->longitude};
}

void WeatherManager::applyLocationNameForCurrentIndex() {
    if (const auto* place = currentSavedLocation())
        weather.update([place](WeatherData& data) { data.locationName = place->name; });
}

void WeatherManager::addSavedLocation(const SavedLocation& location) {
    savedLocations.update([&](auto& locations) { locations.push_back(location); });
    WeatherStore::saveLocations(platform_.userDefaults(), savedLocations);
}

void WeatherManager::removeLocation(std::ptrdiff_t position) {
    if (position < 0 || position >= std::ssize(savedLocations.get()))
        return;
    const auto* before = currentSavedLocation();
    const auto shown = before ? std::optional(before->id) : std::nullopt;
    savedLocations.update(
        [position](auto& locations) { locations.erase(std::next(locations.begin(), position)); });
    if (currentLocationIndex > savedLocations->size())
        currentLocationIndex = 0;
    const auto* after = currentSavedLocation();
    if (shown != (after ? std::optional(after->id) : std::nullopt))
        hasFigures = false;
    WeatherStore::saveLocations(platform_.userDefaults(), savedLocations);
}

const SavedLocation* WeatherManager::currentSavedLocation() const {
    const std::size_t index = currentLocationIndex;
    if (index == 0 || index > savedLocations->size())
        return nullptr;
    return &savedLocations.get()[index - 1];
}

std::string WeatherManager::currentLocationName() const {
    if (currentLocationIndex != 0) {
        const auto* place = currentSavedLocation();
        return place ? place->name : "Unknown";
    }
    return weather->locationName.empty() ? "Current Location" : weather->locationName;
}

bool WeatherManager::hasCollapsedContent() const {
    return !weather->locationName.empty();
}

WeatherCollapsedView WeatherManager::collapsedView() {
    return WeatherCollapsedView(*this);
}

WeatherExpandedView WeatherManager::expandedView() {
    return WeatherExpandedView(*this);
}

} // namespace orvelle
