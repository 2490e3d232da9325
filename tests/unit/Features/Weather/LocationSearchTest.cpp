#include "Features/Weather/LocationSearch.h"

#include "Features/Weather/GeocodingResponse.h"
#include "Features/Weather/WeatherRequests.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"
#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const std::string reply = R"({"results":[
    {"name":"Paris","latitude":48.85,"longitude":2.35,"admin1":"Île-de-France","country":"France"},
    {"name":"Paris","latitude":33.66,"longitude":-95.55,"country":"United States"},
    {"name":"Atlantis","latitude":0,"longitude":-30}],"generationtime_ms":0.5})";

class LocationSearchTest : public testing::Test {
protected:
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& place : search.locationSearchResults.get())
            names.push_back(place.name);
        return names;
    }
    using Names = std::vector<std::string>;

    SimulatedPlatform platform;
    SimulatedHttpClient& http = platform.httpClientPort;
    LocationSearch search{platform};
};

TEST_F(LocationSearchTest, WithNeitherAdmin1NorCountryTheLabelIsJustTheName) {
    EXPECT_EQ((GeocodingResult{.name = "Paris", .country = {}, .admin1 = {}}).label(), "Paris");
}

TEST_F(LocationSearchTest, WithOnlyTheCountryItIsNameCommaBlankCountry) {
    EXPECT_EQ((GeocodingResult{.name = "Paris", .country = "France", .admin1 = {}}).label(),
              "Paris, France");
}

TEST_F(LocationSearchTest, ResultsBecomePlacesWithTheirFullNames) {
    search.searchLocation("Paris");
    EXPECT_TRUE(search.isSearching);
    http.answer(Replies::ok(reply));
    EXPECT_FALSE(search.isSearching);
    EXPECT_EQ(names(), (Names{"Paris, Île-de-France, France", "Paris, United States", "Atlantis"}));
    const auto& places = search.locationSearchResults.get();
    EXPECT_EQ(places[1].latitude, 33.66);
    EXPECT_EQ(places[1].longitude, -95.55);
    EXPECT_NE(places[0].id, places[1].id);
}

TEST_F(LocationSearchTest, TheTextIsTrimmedAndEscaped) {
    search.searchLocation("  São Paulo & co?/#%[]\t");
    ASSERT_EQ(http.requests.size(), 1u);
    EXPECT_EQ(http.requests[0],
              (HttpRequest{.url = "https://geocoding-api.open-meteo.com/v1/search?name="
                                  "S%C3%A3o%20Paulo%20&%20co?/%23%25%5B%5D"
                                  "&count=5&language=en"}));
}

TEST_F(LocationSearchTest, ABlankTextAsksNothingAndEmptiesTheResults) {
    search.searchLocation("Paris");
    http.answer(Replies::ok(reply));
    search.searchLocation(" \t ");
    EXPECT_EQ(names(), Names{});
    EXPECT_FALSE(search.isSearching);
    EXPECT_EQ(http.requests.size(), 1u);
}

TEST_F(LocationSearchTest, ANewSearchEmptiesTheResultsAtOnce) {
    search.searchLocation("Paris");
    http.answer(Replies::ok(reply));
    search.searchLocation("Rome");
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(search.isSearching);
}

TEST_F(LocationSearchTest, OfTwoSearchesUnderWayOnlyTheNewestCounts) {
    search.searchLocation("Paris");
    search.searchLocation("Atlantis");
    http.answer(Replies::ok(R"({"results":[{"name":"Atlantis","latitude":0,"longitude":-30}]})"),
                "Atlantis");
    EXPECT_FALSE(search.isSearching);
    http.answer(Replies::ok(reply), "Paris");
    EXPECT_EQ(names(), Names{"Atlantis"});
}

TEST_F(LocationSearchTest, AnOlderAnswerDoesNotEndTheNewestSearch) {
    search.searchLocation("Paris");
    search.searchLocation("Atlantis");
    http.answer(Replies::ok(reply), "Paris");
    EXPECT_EQ(names(), Names{});
    EXPECT_TRUE(search.isSearching);
}

TEST_F(LocationSearchTest, AClearedFieldEndsTheSearchUnderWay) {
    search.searchLocation("Paris");
    search.searchLocation("");
    EXPECT_FALSE(search.isSearching);
    http.answer(Replies::ok(reply));
    EXPECT_EQ(names(), Names{});
}

TEST_F(LocationSearchTest, AFailureOfAnyKindYieldsAnEmptyList) {
    for (const auto& failed :
         {SimulatedHttpClient::failure("No route"), Replies::ok("<html>"), Replies::ok("[]"),
          Replies::ok(R"({"results":{}})"), Replies::ok(R"({"results":[{"name":"Paris"}]})")}) {
        search.searchLocation("Paris");
        http.answer(failed);
        EXPECT_EQ(names(), Names{});
        EXPECT_FALSE(search.isSearching);
    }
}

TEST_F(LocationSearchTest, AReplyWithoutResultsIsEmpty) {
    for (const auto* body : {"{}", R"({"results":null})", R"({"results":[]})"}) {
        const auto response = GeocodingResponse::decode(body);
        ASSERT_TRUE(response.record) << body;
        EXPECT_TRUE(response.record->results.empty());
    }
}

TEST_F(LocationSearchTest, NoMutationOfAReplyGivesAPlaceWithoutNameOrCoordinates) {
    Replies::forEachMutation(
        *Json::parse(reply), [&](const Json& mutated, const std::string& path, const Json& value) {
            search.searchLocation("Paris");
            http.answer(Replies::ok(mutated.text()));
            EXPECT_FALSE(search.isSearching);
            const bool isName = path.ends_with("/name");
            const bool isOptional = path.ends_with("/country") || path.ends_with("/admin1");
            const bool isNumber = path.ends_with("/latitude") || path.ends_with("/longitude");
            const bool fits = path == "/generationtime_ms" || (isNumber && value.number()) ||
                              ((isName || isOptional) && value.string()) ||
                              (isOptional && value.isNull());
            EXPECT_EQ(names().size(), fits ? 3u : 0u) << path << " " << value.text();
        });
}

TEST_F(LocationSearchTest, NumbersAreWrittenShortAndWithoutExponent) {
    const std::pair<double, const char*> rows[] = {{48.0, "48.0"},
                                                   {0.1, "0.1"},
                                                   {-0.0, "-0.0"},
                                                   {1e-7, "0.0000001"},
                                                   {180, "180.0"},
                                                   {-122.4194, "-122.4194"},
                                                   {1.0 / 3, "0.3333333333333333"}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(WeatherRequests::shortestDecimal(value), text);
}

TEST(ServiceRoots, TheEnvironmentReplacesEachRoot) {
    const TemporaryVariable forecast("ORVELLE_FORECAST_ROOT", "http://localhost:1/");
    const TemporaryVariable geocoding("ORVELLE_GEOCODING_ROOT", "http://localhost:2/a//");
    const TemporaryVariable chart("ORVELLE_CHART_ROOT", "");
    const TemporaryVariable site("ORVELLE_SITE_ROOT", nullptr);
    const auto roots = ServiceRoots::fromEnvironment();
    EXPECT_EQ(roots.forecast, "http://localhost:1");
    EXPECT_EQ(roots.geocoding, "http://localhost:2/a");
    EXPECT_EQ(roots.chart, ServiceRoots().chart);
    EXPECT_EQ(roots.site, ServiceRoots().site);
}

TEST(LocationSearch, IsAtRestBeforeTheFirstText) {
    SimulatedPlatform platform;
    const LocationSearch search(platform);
    EXPECT_FALSE(search.isSearching);
    EXPECT_TRUE(search.locationSearchResults->empty());
}

TEST(GeocodingResponse, IsAnObjectOrNothing) {
    for (const char* body : {"[]", "7", "nonsense", ""})
        EXPECT_FALSE(GeocodingResponse::decode(body).record) << body;
    ASSERT_TRUE(GeocodingResponse::decode("{}").record);
    EXPECT_TRUE(GeocodingResponse::decode("{}").record->results.empty());
}

} // namespace
} // namespace orvelle
