#include "Platform/Simulated/DemoFeeds.h"

#include "Foundation/Json.h"
#include "Foundation/UUID.h"
#include "Platform/Simulated/SimulatedHttpClient.h"
#include "Platform/Simulated/SimulatedLocation.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/UserDefaults.h"

#include <iterator>
#include <memory>
#include <string>
#include <utility>

namespace orvelle::DemoFeeds {

namespace {

constexpr Coordinate home{40.71, -74.01};

struct Place {
    const char* name;
    Coordinate coordinate;
    const char* queryPart; ///< of its requests
    double temperature;    ///< °F, as the next
    double feelsLike;
    int humidity; ///< percent
    double wind;  ///< miles per hour
    int code;     ///< WMO
    bool isDay;
};

constexpr Place places[] = {
    {"New York", home, "latitude=40.71&", 72.4, 70.1, 48, 8.7, 2, true},
    {"Oslo, Norway", {59.91, 10.75}, "latitude=59.91&", 51.2, 46.8, 87, 11.2, 63, false},
    {"Sydney, Australia", {-33.87, 151.21}, "latitude=-33.87&", 80.6, 83.1, 61, 14.4, 0, true},
};

struct Stock {
    const char* symbol;
    double price;
    double previousClose; ///< 0 for one that nobody quotes
};

constexpr Stock stocks[] = {
    {"AAPL", 231.44, 228.02}, {"MSFT", 417.18, 421.53}, {"BTC-USD", 67214.5, 66830.25},
    {"KO", 62.75, 62.75},     {"NEWCO", 0, 0},
};

HttpReply reply(Json body) {
    return SimulatedHttpClient::success(body.text());
}

Json forecast(const Place& place) {
    return Json::Object{{"current", Json::Object{{"temperature_2m", place.temperature},
                                                 {"apparent_temperature", place.feelsLike},
                                                 {"relative_humidity_2m", place.humidity},
                                                 {"wind_speed_10m", place.wind},
                                                 {"weather_code", place.code},
                                                 {"is_day", place.isDay ? 1 : 0}}}};
}

Json chart(double price, double previousClose) {
    Json::Object meta{{"regularMarketPrice", price}, {"chartPreviousClose", previousClose}};
    Json::Object result{{"meta", std::move(meta)}};
    return Json::Object{{"chart", Json::Object{{"result", Json::Array{std::move(result)}}}}};
}

Json searchResults() {
    Json::Array results;
    for (const auto& place : places)
        results.push_back(Json::Object{{"name", place.name},
                                       {"latitude", place.coordinate.latitude},
                                       {"longitude", place.coordinate.longitude}});
    return Json::Object{{"results", std::move(results)}};
}

Json manifest() {
    return Json::Object{{"version", "1.0.6"}, {"build", "1"}, {"url", "download"}, {"notes", ""}};
}

} // namespace

void savePlaces(UserDefaults& defaults) {
    Json::Array list;
    for (const auto& place : places)
        if (place.coordinate != home)
            list.push_back(Json::Object{{"id", UUID::random().text()},
                                        {"name", place.name},
                                        {"latitude", place.coordinate.latitude},
                                        {"longitude", place.coordinate.longitude}});
    const auto text = Json(std::move(list)).text();
    defaults.set("weather_savedLocations", Data(text.begin(), text.end()));
}

void saveTickers(SimulatedFileSystem& files) {
    Json::Array list;
    for (const auto& stock : stocks)
        list.push_back(Json::Object{{"id", UUID::random().text()},
                                    {"symbol", stock.symbol},
                                    {"name", ""},
                                    {"addedAt", 790171200.0}});
    files.files[files.applicationSupportDirectory() + "/Orvelle/stock_tickers.json"] =
        Json(std::move(list)).text();
}

void script(SimulatedHttpClient& network) {
    // Prices rise by some cents with each answer.
    network.respond = [step = std::make_shared<int>(0)](const HttpRequest& request) {
        const auto asksFor = [&](const std::string& part) {
            return request.url.find(part) != std::string::npos;
        };
        for (const auto& place : places)
            if (asksFor("/v1/forecast") && asksFor(place.queryPart))
                return reply(forecast(place));
        for (const auto& stock : stocks)
            if (stock.previousClose > 0 && asksFor("/chart/" + std::string(stock.symbol) + "?"))
                return reply(
                    chart(stock.price + 0.01 * (++*step / static_cast<int>(std::size(stocks))),
                          stock.previousClose));
        if (asksFor("/v1/search"))
            return reply(searchResults());
        if (asksFor("/orvelle.json"))
            return reply(manifest());
        return HttpReply{{}, 404, {}};
    };
}

void script(SimulatedLocationService& location, SimulatedGeocoder& geocoder) {
    location.authorization = LocationAuthorization::authorizedAlways;
    location.onRequest = [](SimulatedLocationManager& manager) { manager.deliverSoon({home}); };
    geocoder.locality = places[0].name;
}

} // namespace orvelle::DemoFeeds
