#pragma once

#include "Platform/Geocoder.h"

#include <memory>
#include <optional>
#include <string>

namespace orvelle {

class RunLoop;

/// The nearest city of the desktop's own gazetteer, without any network. The library and its file
/// are loaded in the background at the first request; without them no place has a name.
class GWeatherGeocoder : public Geocoder {
public:
    /// A city farther away does not name the place.
    static constexpr double farthest = 100; // kilometres

    explicit GWeatherGeocoder(RunLoop& runLoop);
    ~GWeatherGeocoder() override;

    Subscription reverseGeocode(Coordinate coordinate, Completion done) override;

private:
    class Gazetteer;

    RunLoop& runLoop_;
    std::shared_ptr<Gazetteer> gazetteer_; ///< used in the background only
};

} // namespace orvelle
