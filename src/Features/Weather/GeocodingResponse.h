#pragma once

#include "Foundation/JsonRecord.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// One place that the geocoding service found.
struct GeocodingResult {
    std::string name;
    double latitude = 0;
    double longitude = 0;
    std::optional<std::string> country;
    std::optional<std::string> admin1; ///< the state or region

    /// "Springfield, Illinois, United States".
    std::string label() const;
};

/// What the program reads of a reply of the geocoding service. One without results is empty.
struct GeocodingResponse {
    std::vector<GeocodingResult> results;

    static Decoded<GeocodingResponse> decode(std::string_view body);
};

} // namespace orvelle
