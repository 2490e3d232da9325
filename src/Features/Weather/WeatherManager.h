#pragma once

#include "Models/SavedLocation.h"
#include "Models/WeatherData.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <vector>

namespace orvelle {

/// The conditions at the machine's own place or at one of the saved ones.
class WeatherManager : public FeatureModule {
public:
    explicit WeatherManager(Platform& platform = Platform::shared());

    Published<WeatherData> weather;
    Published<bool> isLoading{false};
    Published<std::vector<SavedLocation>> savedLocations; ///< in the user's order
    /// 0 is the machine's own place, n above 0 the saved one at n - 1.
    Published<std::size_t> currentLocationIndex{0};
    Timer refreshTimer;

    void cycleToNextLocation();
    void cycleToPreviousLocation();

private:
    void cycle(std::size_t step);
    void applyLocationNameForCurrentIndex();
};

} // namespace orvelle
