#include "Features/Weather/WeatherManager.h"

#include "Models/Symbol.h"

namespace orvelle {

WeatherManager::WeatherManager(Platform&)
    : FeatureModule("weather", "Weather", std::string("cloud.sun.fill"_symbol)) {}

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
    applyLocationNameForCurrentIndex();
}

void WeatherManager::applyLocationNameForCurrentIndex() {
    const auto index = currentLocationIndex.get();
    if (index == 0 || index > savedLocations->size())
        return;
    weather.update([&](auto& data) { data.locationName = savedLocations.get()[index - 1].name; });
}

} // namespace orvelle
