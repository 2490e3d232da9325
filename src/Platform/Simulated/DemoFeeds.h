#pragma once

namespace orvelle {

class SimulatedFileSystem;
class SimulatedGeocoder;
class SimulatedHttpClient;
class SimulatedLocationService;
class UserDefaults;

/// The web as the demonstration's machine sees it: weather at three places, a few stocks, one of
/// which nobody quotes. The same run shows the same figures.
namespace DemoFeeds {

void savePlaces(UserDefaults& defaults);
void saveTickers(SimulatedFileSystem& files);
void script(SimulatedHttpClient& network);
/// The machine stands in New York.
void script(SimulatedLocationService& location, SimulatedGeocoder& geocoder);

} // namespace DemoFeeds

} // namespace orvelle
