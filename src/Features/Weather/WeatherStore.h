#pragma once

#include "Models/SavedLocation.h"
#include "Models/WeatherData.h"
#include "Platform/LocationService.h"

#include <optional>
#include <vector>

namespace orvelle {

class UserDefaults;

/// What the weather keeps in the settings from one run to the next.
namespace WeatherStore {

/// None when nothing was ever stored. A record without a date is of `now`.
std::optional<WeatherData> loadWeather(const UserDefaults& defaults, Date now);
void saveWeather(UserDefaults& defaults, const WeatherData& weather);

/// The place that the stored record belongs to.
std::optional<Coordinate> loadCoordinate(const UserDefaults& defaults);
void saveCoordinate(UserDefaults& defaults, Coordinate coordinate);

/// Empty when nothing of use is stored.
std::vector<SavedLocation> loadLocations(const UserDefaults& defaults);
void saveLocations(UserDefaults& defaults, const std::vector<SavedLocation>& locations);

} // namespace WeatherStore

} // namespace orvelle
