#include "Features/Weather/WeatherStore.h"

#include "Core/StoredList.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

namespace orvelle::WeatherStore {

std::optional<WeatherData> loadWeather(const UserDefaults& defaults, Date now) {
    if (!defaults.object(Settings::weatherTemperature))
        return std::nullopt;
    return WeatherData{
        .temperature = defaults.number(Settings::weatherTemperature),
        .feelsLike = defaults.number(Settings::weatherFeelsLike),
        .humidity = defaults.integer(Settings::weatherHumidity),
        .windSpeed = defaults.number(Settings::weatherWindSpeed),
        .weatherCode = defaults.integer(Settings::weatherWeatherCode),
        .isDay = defaults.boolean(Settings::weatherIsDay),
        .lastUpdated = defaults.date(Settings::weatherLastUpdated).value_or(now),
        .locationName = defaults.string(Settings::weatherLocationName).value_or(""),
    };
}

void saveWeather(UserDefaults& defaults, const WeatherData& weather) {
    defaults.set(Settings::weatherTemperature, weather.temperature);
    defaults.set(Settings::weatherFeelsLike, weather.feelsLike);
    defaults.set(Settings::weatherHumidity, weather.humidity);
    defaults.set(Settings::weatherWindSpeed, weather.windSpeed);
    defaults.set(Settings::weatherWeatherCode, weather.weatherCode);
    defaults.set(Settings::weatherIsDay, weather.isDay);
    defaults.set(Settings::weatherLastUpdated, weather.lastUpdated);
    defaults.set(Settings::weatherLocationName, weather.locationName);
}

std::optional<Coordinate> loadCoordinate(const UserDefaults& defaults) {
    if (!defaults.object(Settings::weatherCachedLatitude))
        return std::nullopt;
    return Coordinate{defaults.number(Settings::weatherCachedLatitude),
                      defaults.number(Settings::weatherCachedLongitude)};
}

void saveCoordinate(UserDefaults& defaults, Coordinate coordinate) {
    defaults.set(Settings::weatherCachedLatitude, coordinate.latitude);
    defaults.set(Settings::weatherCachedLongitude, coordinate.longitude);
}

std::vector<SavedLocation> loadLocations(const UserDefaults& defaults) {
    return loadStoredList<SavedLocation>(defaults, Settings::weatherSavedLocations,
                                         &SavedLocation::fromJson)
        .value_or(std::vector<SavedLocation>{});
}

void saveLocations(UserDefaults& defaults, const std::vector<SavedLocation>& locations) {
    saveStoredList(defaults, Settings::weatherSavedLocations, locations,
                   [](const SavedLocation& location) { return location.json(); });
}

} // namespace orvelle::WeatherStore
