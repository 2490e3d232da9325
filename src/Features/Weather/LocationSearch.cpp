#include "Features/Weather/LocationSearch.h"

#include "Features/Weather/GeocodingResponse.h"
#include "Features/Weather/WeatherRequests.h"
#include "Foundation/Text.h"
#include "Foundation/Url.h"
#include "Platform/HttpClient.h"

#include <optional>

namespace orvelle {

namespace {

/// None without an answer.
std::optional<std::vector<SavedLocation>> places(const HttpReply& reply) {
    if (reply.error)
        return {};
    const auto response = GeocodingResponse::decode(reply.body).record;
    if (!response)
        return {};
    std::vector<SavedLocation> locations;
    for (const auto& result : response->results)
        locations.push_back({UUID::random(), result.label(), result.latitude, result.longitude});
    return locations;
}

} // namespace

LocationSearch::LocationSearch(Platform& platform) : platform_(platform) {}

void LocationSearch::searchLocation(std::string_view text) {
    request_.reset(); // the newest search alone counts
    locationSearchResults = std::vector<SavedLocation>{};
    foundNothing = false;
    const auto trimmed = Text::trimmingBlanks(text);
    const auto url = WeatherRequests::search(roots_.geocoding, trimmed);
    isSearching = !trimmed.empty() && Url::isValid(url);
    if (isSearching)
        request_ = platform_.httpClient().get({.url = url}, [this](const HttpReply& reply) {
            const auto found = places(reply);
            isSearching = false;
            foundNothing = found && found->empty();
            locationSearchResults = found.value_or(std::vector<SavedLocation>{});
        });
}

} // namespace orvelle
