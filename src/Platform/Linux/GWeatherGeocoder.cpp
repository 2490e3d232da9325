#include "Platform/Linux/GWeatherGeocoder.h"

#include "Platform/RunLoop.h"

#include <dlfcn.h>

#include <cmath>
#include <mutex>
#include <numbers>
#include <utility>

namespace orvelle {

namespace {

double kilometersBetween(Coordinate a, Coordinate b) {
    constexpr double earthRadius = 6371;
    const auto radians = [](double degrees) { return degrees * std::numbers::pi / 180; };
    const double dLatitude = radians(b.latitude - a.latitude);
    const double dLongitude = radians(b.longitude - a.longitude);
    const double haversine = std::pow(std::sin(dLatitude / 2), 2) +
                             std::cos(radians(a.latitude)) * std::cos(radians(b.latitude)) *
                                 std::pow(std::sin(dLongitude / 2), 2);
    return 2 * earthRadius * std::asin(std::sqrt(std::fmin(haversine, 1)));
}

} // namespace

/// libgweather, opened at the first question: linked, it would cost every start of the program the
/// loading of a dozen libraries.
class GWeatherGeocoder::Gazetteer {
public:
    std::optional<std::string> nearestCity(Coordinate coordinate) {
        const std::lock_guard guard(mutex_); // the library counts on one thread
        if (!load())
            return std::nullopt;
        Location* city = findNearestCity_(world_, coordinate.latitude, coordinate.longitude);
        if (!city)
            return std::nullopt;
        Coordinate place;
        getCoords_(city, &place.latitude, &place.longitude);
        const char* name = getName_(city);
        std::optional<std::string> locality;
        if (name && *name && kilometersBetween(coordinate, place) <= farthest)
            locality = name;
        unref_(city);
        return locality;
    }

private:
    using Location = void;

    bool load() {
        if (!std::exchange(wasTried_, true)) {
            void* library = dlopen("libgweather-4.so.0", RTLD_NOW | RTLD_LOCAL);
            if (library && find(library, "gweather_location_get_world", getWorld_) &&
                find(library, "gweather_location_find_nearest_city", findNearestCity_) &&
                find(library, "gweather_location_get_coords", getCoords_) &&
                find(library, "gweather_location_get_name", getName_) &&
                find(library, "g_object_unref", unref_))
                world_ = getWorld_();
        }
        return world_ != nullptr;
    }
    template <class Function>
    static bool find(void* library, const char* name, Function& function) {
        function = reinterpret_cast<Function>(dlsym(library, name));
        return function != nullptr;
    }

    std::mutex mutex_;
    bool wasTried_ = false;
    Location* world_ = nullptr; ///< never let go: the library cannot be unloaded
    Location* (*getWorld_)() = nullptr;
    Location* (*findNearestCity_)(Location*, double latitude, double longitude) = nullptr;
    void (*getCoords_)(Location*, double* latitude, double* longitude) = nullptr;
    const char* (*getName_)(Location*) = nullptr;
    void (*unref_)(void*) = nullptr;
};

GWeatherGeocoder::GWeatherGeocoder(RunLoop& runLoop)
    : runLoop_(runLoop), gazetteer_(std::make_shared<Gazetteer>()) {}

GWeatherGeocoder::~GWeatherGeocoder() = default;

Subscription GWeatherGeocoder::reverseGeocode(Coordinate coordinate, Completion done) {
    auto locality = std::make_shared<std::optional<std::string>>();
    return runLoop_.detach([gazetteer = gazetteer_, locality,
                            coordinate] { *locality = gazetteer->nearestCity(coordinate); },
                           [locality, done = std::move(done)] { done(*locality); });
}

} // namespace orvelle
