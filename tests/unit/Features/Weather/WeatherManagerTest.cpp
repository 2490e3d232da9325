#include "Features/Weather/WeatherManager.h"

#include "Features/Weather/WeatherExpandedView.h"
#include "Foundation/JsonRecord.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace orvelle {
namespace {

constexpr Coordinate paris{48.0, 2.25};
const std::string fields = "&current=temperature_2m,apparent_temperature,relative_humidity_2m,"
                           "wind_speed_10m,weather_code,is_day"
                           "&temperature_unit=fahrenheit&wind_speed_unit=mph";

SavedLocation place(std::string name, double latitude, double longitude) {
    return {UUID::random(), std::move(name), latitude, longitude};
}

class WeatherManagerTest : public testing::Test {
protected:
    WeatherManager& manager() {
        if (!manager_)
            manager_ = std::make_unique<WeatherManager>(platform);
        return *manager_;
    }
    void save(int count) {
        for (int index = 1; index <= count; ++index)
            manager().addSavedLocation(
                place("Place " + std::to_string(index), 10.0 * index, -20.0 * index));
    }
    SimulatedLocationManager& service() { return *platform.locationServicePort.last; }
    bool answer(const std::string& body) { return http.answer(Replies::ok(body)); }
    void turn() { platform.runLoopPort.runPosted(); }
    /// Both the network and the geocoder have answered.
    void answerFully(const std::string& body) {
        ASSERT_TRUE(answer(body));
        turn();
    }
    std::string outputOf(const std::function<void()>& action) {
        platform.consolePort.lines.clear();
        action();
        std::string output;
        for (const auto& line : platform.consolePort.lines)
            output += line + '\n';
        return output;
    }

    SimulatedPlatform platform;
    SimulatedHttpClient& http = platform.httpClientPort;
    SimulatedUserDefaults& defaults = platform.userDefaultsPort;
    std::unique_ptr<WeatherManager> manager_;
};

TEST_F(WeatherManagerTest, ThereAreFiguresOnceThoseOfTheShownPlaceHaveCome) {
    save(2);
    EXPECT_FALSE(manager().hasFigures);
    manager().lastLocation = paris;
    manager().refreshWeather();
    answerFully(Replies::forecast());
    EXPECT_TRUE(manager().hasFigures);
    EXPECT_TRUE(WeatherManager(platform).hasFigures) << "kept from one run to the next";

    manager().cycleToNextLocation();
    manager().cycleToNextLocation();
    EXPECT_FALSE(manager().hasFigures);
    ASSERT_TRUE(answer(Replies::forecast()));
    EXPECT_FALSE(manager().hasFigures) << "those of the place that was left";
    ASSERT_TRUE(answer(Replies::forecast()));
    EXPECT_TRUE(manager().hasFigures);
    manager().removeLocation(0);
    EXPECT_FALSE(manager().hasFigures) << "another place stands there now";
}

TEST_F(WeatherManagerTest, RemovingAnotherPlaceLeavesTheFigures) {
    save(2);
    manager().cycleToNextLocation();
    answerFully(Replies::forecast());
    manager().removeLocation(1);
    EXPECT_TRUE(manager().hasFigures);
    manager().refreshWeather();
    http.answer(SimulatedHttpClient::failure("No network"));
    EXPECT_TRUE(manager().hasFigures) << "the last good ones stay";
}

// The edge cases of the design

TEST_F(WeatherManagerTest, WithNoSavedPlacesASwipeDoesNothingAndNoFetchStarts) {
    manager().lastLocation = paris;
    manager().cycleToNextLocation();
    manager().cycleToPreviousLocation();
    EXPECT_EQ(manager().currentLocationIndex, 0u);
    EXPECT_TRUE(http.requests.empty());
    EXPECT_FALSE(manager().isLoading);
}

TEST_F(WeatherManagerTest, WithTwoSavedPlacesAndIndex2NextGives0AndPreviousGives1) {
    save(2);
    manager().currentLocationIndex = 2;
    manager().cycleToNextLocation();
    EXPECT_EQ(manager().currentLocationIndex, 0u);
    manager().currentLocationIndex = 2;
    manager().cycleToPreviousLocation();
    EXPECT_EQ(manager().currentLocationIndex, 1u);
}

TEST_F(WeatherManagerTest, WithTwoSavedPlacesPreviousFrom0Gives2) {
    save(2);
    manager().cycleToPreviousLocation();
    EXPECT_EQ(manager().currentLocationIndex, 2u);
}

TEST_F(WeatherManagerTest, RemovingTheOnlySavedPlaceWhileItIsShownGoesTo0WithoutARefresh) {
    save(1);
    manager().cycleToNextLocation();
    manager().lastLocation = paris; // a refresh would ask for it
    const auto requests = http.requests.size();
    manager().removeLocation(0);
    EXPECT_EQ(manager().currentLocationIndex, 0u);
    EXPECT_EQ(http.requests.size(), requests);
    EXPECT_EQ(manager().currentLocationName(), "Place 1") << "the record still holds it";
}

TEST_F(WeatherManagerTest, RemovingAnEarlierPlaceLeavesTheIndexUnlessItPassesTheCount) {
    save(3);
    manager().currentLocationIndex = 2;
    manager().removeLocation(0);
    EXPECT_EQ(manager().currentLocationIndex, 2u);
    EXPECT_EQ(manager().currentLocationName(), "Place 3");
    manager().removeLocation(0);
    EXPECT_EQ(manager().currentLocationIndex, 0u);
}

TEST_F(WeatherManagerTest, AnIntervalOf0OrBelowYieldsATimerOf300Seconds) {
    for (const double minutes : {0.0, -3.0, std::nan("")}) {
        defaults.set("weatherUpdateIntervalMinutes", minutes);
        manager().start();
        const auto requests = http.requests.size();
        manager().lastLocation = paris;
        platform.runLoopPort.advance(299);
        EXPECT_EQ(http.requests.size(), requests) << minutes;
        platform.runLoopPort.advance(1);
        EXPECT_EQ(http.requests.size(), requests + 1) << minutes;
        manager_.reset();
    }
}

TEST_F(WeatherManagerTest, AStatusOf500WithAnErrorBodyLogsAFailureAndTheOldDataStay) {
    manager().lastLocation = paris;
    platform.geocoderPort.locality = "Paris";
    manager().refreshWeather();
    answerFully(Replies::forecast());
    const auto before = manager().weather.get();
    manager().refreshWeather();
    EXPECT_EQ(outputOf([&] {
                  http.answer({{}, 500, R"({"error":true,"reason":"Out of order"})"});
              }),
              "WeatherManager: Fetch failed: The data couldn’t be read because it is missing.\n");
    EXPECT_EQ(manager().weather.get(), before);
    EXPECT_FALSE(manager().isLoading);
}

TEST_F(WeatherManagerTest, IsDayOf2ReadsAsNight) {
    manager().lastLocation = paris;
    manager().refreshWeather();
    answerFully(Replies::forecast(72, 2));
    EXPECT_FALSE(manager().weather->isDay);
}

TEST_F(WeatherManagerTest, Code56GivesTheQuestionMarkAndUnknown) {
    WeatherData data;
    for (const std::int64_t code : {56, 57, 100, 4, -1}) {
        data.weatherCode = code;
        EXPECT_EQ(data.conditionIcon(), "questionmark.circle") << code;
        EXPECT_EQ(data.conditionDescription(), "Unknown") << code;
    }
}

TEST_F(WeatherManagerTest, StartedWithCachedCoordinatesAndNoFixItFetchesAndAsksForAFixAtOnce) {
    defaults.set("weather_cachedLatitude", 48.0);
    defaults.set("weather_cachedLongitude", 2.25);
    manager().start();
    ASSERT_EQ(http.requests.size(), 1u);
    EXPECT_NE(http.requests[0].url.find("latitude=48.0&longitude=2.25&"), std::string::npos);
    EXPECT_EQ(service().requestCount, 1);
}

// Requests

TEST_F(WeatherManagerTest, TheForecastIsAskedForInThisVeryForm) {
    manager().lastLocation = paris;
    manager().refreshWeather();
    ASSERT_EQ(http.requests.size(), 1u);
    EXPECT_EQ(http.requests[0],
              (HttpRequest{.url = "https://api.open-meteo.com/v1/forecast?latitude=48.0"
                                  "&longitude=2.25" +
                                  fields}));
    manager().temperatureUnit = TemperatureUnit::celsius;
    manager().refreshWeather();
    EXPECT_TRUE(http.requests[1].url.ends_with(",is_day"));
}

TEST_F(WeatherManagerTest, TheSettingOfTheUnitHasNoSay) {
    defaults.set("temperatureUnit", std::string("celsius"));
    manager().lastLocation = paris;
    manager().refreshWeather();
    EXPECT_TRUE(http.requests.at(0).url.ends_with("&wind_speed_unit=mph"));
}

TEST_F(WeatherManagerTest, ACoordinateThatIsNoNumberIsNotAskedFor) {
    manager().lastLocation = Coordinate{INFINITY, 0};
    manager().refreshWeather();
    manager().lastLocation = Coordinate{0, std::nan("")};
    manager().refreshWeather();
    EXPECT_TRUE(http.requests.empty());
    EXPECT_FALSE(manager().isLoading);
}

// The record

TEST_F(WeatherManagerTest, AReplyBecomesTheRecord) {
    platform.geocoderPort.locality = "Paris";
    manager().lastLocation = paris;
    manager().refreshWeather();
    EXPECT_TRUE(manager().isLoading);
    platform.runLoopPort.advance(5);
    answerFully(Replies::forecast(72.4, 1, 2));
    EXPECT_EQ(manager().weather.get(),
              (WeatherData{72.4, 70.6, 41, 8.7, 2, true, platform.runLoopPort.now(), "Paris"}));
    EXPECT_FALSE(manager().isLoading);
    EXPECT_EQ(platform.geocoderPort.requests, std::vector{paris});
}

TEST_F(WeatherManagerTest, TheTemperatureIsRoundedHalfAwayFromZero) {
    WeatherData data;
    const std::pair<double, const char*> rows[] = {
        {72.4, "72°"}, {0.5, "1°"}, {2.5, "3°"}, {-2.5, "-3°"}, {-0.4, "0°"}};
    for (const auto& [temperature, text] : rows) {
        data.temperature = temperature;
        EXPECT_EQ(data.temperatureString(), text);
    }
}

TEST_F(WeatherManagerTest, WithoutALocalityThePresentNameStays) {
    platform.geocoderPort.locality = "Paris";
    manager().lastLocation = paris;
    manager().refreshWeather();
    answerFully(Replies::forecast());
    platform.geocoderPort.locality = std::nullopt;
    manager().refreshWeather();
    answerFully(Replies::forecast(60));
    EXPECT_EQ(manager().weather->temperature, 60);
    EXPECT_EQ(manager().weather->locationName, "Paris");
}

TEST_F(WeatherManagerTest, TheNameIsDecidedWhenTheReplyComes) {
    save(1);
    manager().lastLocation = paris;
    manager().refreshWeather();
    manager().currentLocationIndex = 1;
    answerFully(Replies::forecast(60));
    EXPECT_EQ(manager().weather->locationName, "Place 1");
    EXPECT_TRUE(platform.geocoderPort.requests.empty());
}

TEST_F(WeatherManagerTest, APlaceThatIsGoneWhenTheReplyComesLeavesThePresentName) {
    save(2);
    manager().currentLocationIndex = 2;
    manager().refreshWeather();
    manager().weather.update([](auto& data) { data.locationName = "Before"; });
    manager().savedLocations = std::vector<SavedLocation>{};
    answerFully(Replies::forecast());
    EXPECT_EQ(manager().weather->locationName, "Before");
    EXPECT_EQ(manager().currentLocationName(), "Unknown");
}

TEST_F(WeatherManagerTest, TheLastFetchToFinishWins) {
    manager().lastLocation = paris;
    manager().refreshWeather();
    manager().lastLocation = Coordinate{1.5, 1.5};
    manager().refreshWeather();
    ASSERT_TRUE(http.answer(Replies::ok(Replies::forecast(20)), "latitude=1.5"));
    ASSERT_TRUE(http.answer(Replies::ok(Replies::forecast(10)), "latitude=48.0"));
    turn();
    EXPECT_EQ(manager().weather->temperature, 10);
    EXPECT_EQ(manager().cachedCoordinate, paris);
}

TEST_F(WeatherManagerTest, ARequestThatFailsIsPrintedInOneLine) {
    manager().lastLocation = paris;
    manager().refreshWeather();
    const auto before = manager().weather.get();
    EXPECT_EQ(outputOf([&] { http.answer(SimulatedHttpClient::failure("No route")); }),
              "WeatherManager: Fetch failed: No route\n");
    EXPECT_EQ(manager().weather.get(), before);
    EXPECT_FALSE(manager().isLoading);
    EXPECT_FALSE(defaults.object("weather_temperature"));
}

// From one run to the next

TEST_F(WeatherManagerTest, EachFetchIsKeptForTheNextRun) {
    platform.geocoderPort.locality = "Paris";
    manager().lastLocation = paris;
    manager().refreshWeather();
    answerFully(Replies::forecast(72.4, 0, 3));
    const auto shown = manager().weather.get();
    EXPECT_EQ(std::get<double>(*defaults.object("weather_temperature")), 72.4);
    EXPECT_EQ(std::get<double>(*defaults.object("weather_feelsLike")), 70.6);
    EXPECT_EQ(std::get<std::int64_t>(*defaults.object("weather_humidity")), 41);
    EXPECT_EQ(std::get<double>(*defaults.object("weather_windSpeed")), 8.7);
    EXPECT_EQ(std::get<std::int64_t>(*defaults.object("weather_weatherCode")), 3);
    EXPECT_EQ(std::get<bool>(*defaults.object("weather_isDay")), false);
    EXPECT_EQ(std::get<Date>(*defaults.object("weather_lastUpdated")), shown.lastUpdated);
    EXPECT_EQ(std::get<std::string>(*defaults.object("weather_locationName")), "Paris");
    EXPECT_EQ(std::get<double>(*defaults.object("weather_cachedLatitude")), 48.0);
    EXPECT_EQ(std::get<double>(*defaults.object("weather_cachedLongitude")), 2.25);
    const WeatherManager next(platform);
    EXPECT_EQ(next.weather.get(), shown);
    EXPECT_EQ(next.cachedCoordinate, paris);
    EXPECT_EQ(next.currentLocationIndex, 0u);
}

TEST_F(WeatherManagerTest, ASavedPlacesCoordinatesAreKeptLikeOnesOwn) {
    save(1);
    manager().currentLocationIndex = 1;
    manager().refreshWeather();
    answerFully(Replies::forecast());
    EXPECT_EQ(WeatherManager(platform).cachedCoordinate, (Coordinate{10, -20}));
}

TEST_F(WeatherManagerTest, WithoutAStoredTemperatureNothingIsLoaded) {
    defaults.set("weather_locationName", std::string("Paris"));
    defaults.set("weather_cachedLongitude", 2.25);
    const WeatherData initial{.lastUpdated = platform.runLoopPort.now(), .locationName = {}};
    EXPECT_EQ(manager().weather.get(), initial);
    EXPECT_FALSE(manager().cachedCoordinate);
}

TEST_F(WeatherManagerTest, MissingAndMistypedKeysReadAsNeutralValues) {
    defaults.set("weather_temperature", 50.0);
    defaults.set("weather_lastUpdated", std::string("yesterday"));
    defaults.set("weather_cachedLatitude", 48.0);
    const WeatherData expected{.temperature = 50,
                               .isDay = false,
                               .lastUpdated = platform.runLoopPort.now(),
                               .locationName = {}};
    EXPECT_EQ(manager().weather.get(), expected);
    EXPECT_EQ(manager().cachedCoordinate, (Coordinate{48, 0}));
}

TEST_F(WeatherManagerTest, SavedPlacesAreKeptAsAJSONArray) {
    const auto id = UUID::parse("00112233-4455-6677-8899-aabbccddeeff");
    manager().addSavedLocation({*id, "São Paulo, Brazil", -23.5, -46.625});
    const auto data = *defaults.data("weather_savedLocations");
    const auto document = Json::parse({reinterpret_cast<const char*>(data.data()), data.size()});
    EXPECT_EQ(*document,
              Json(Json::Array{Json::Object{{"id", "00112233-4455-6677-8899-AABBCCDDEEFF"},
                                            {"name", "São Paulo, Brazil"},
                                            {"latitude", -23.5},
                                            {"longitude", -46.625}}}));
    EXPECT_EQ(WeatherManager(platform).savedLocations.get(), manager().savedLocations.get());
    manager().removeLocation(0);
    EXPECT_TRUE(WeatherManager(platform).savedLocations->empty());
}

TEST_F(WeatherManagerTest, SavedPlacesOfNoUseLeaveTheListEmptyAndSayNothing) {
    for (const std::string text : {"", "{", "{}", "[1]", R"([{"id":"x"}])"}) {
        defaults.set("weather_savedLocations", Data(text.begin(), text.end()));
        EXPECT_EQ(outputOf([&] { EXPECT_TRUE(WeatherManager(platform).savedLocations->empty()); }),
                  "");
    }
    EXPECT_TRUE(platform.logPort.lines.empty());
}

// Start, stop and the timer

TEST_F(WeatherManagerTest, BeforeTheStartNobodyIsAsked) {
    defaults.set("weather_cachedLatitude", 48.0);
    manager();
    EXPECT_TRUE(http.requests.empty());
    EXPECT_EQ(platform.locationServicePort.managerCount, 0);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(WeatherManagerTest, SwitchedOffItDoesNotStart) {
    manager().isEnabled = false;
    manager().start();
    EXPECT_EQ(platform.locationServicePort.managerCount, 0);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(WeatherManagerTest, TheIntervalIsTheSettingsMinutes) {
    defaults.set("weatherUpdateIntervalMinutes", 10.0);
    manager().lastLocation = paris;
    manager().start();
    EXPECT_EQ(http.requests.size(), 1u);
    platform.runLoopPort.advance(599);
    EXPECT_EQ(http.requests.size(), 1u);
    platform.runLoopPort.advance(601);
    EXPECT_EQ(http.requests.size(), 3u);
}

TEST_F(WeatherManagerTest, RestartingTheTimerTakesUpTheIntervalWithoutARefresh) {
    manager().lastLocation = paris;
    manager().start();
    defaults.set("weatherUpdateIntervalMinutes", 1.0);
    manager().restartTimer();
    EXPECT_EQ(http.requests.size(), 1u);
    platform.runLoopPort.advance(60);
    EXPECT_EQ(http.requests.size(), 2u);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
}

TEST_F(WeatherManagerTest, AChangeOfAnotherSettingLeavesTheTimerAlone) {
    manager().lastLocation = paris;
    defaults.set("weatherUpdateIntervalMinutes", std::nan(""));
    manager().start();
    platform.runLoopPort.advance(200);
    defaults.set("unrelated", true);
    platform.runLoopPort.advance(100);
    EXPECT_EQ(http.requests.size(), 2u);
}

TEST_F(WeatherManagerTest, AnAbsurdIntervalFloodsNobody) {
    defaults.set("weatherUpdateIntervalMinutes", 1e-9);
    manager().lastLocation = paris;
    manager().start();
    platform.runLoopPort.advance(10);
    EXPECT_LE(http.requests.size(), 11u);
}

TEST_F(WeatherManagerTest, StoppedItAsksNobodyAndKeepsItsData) {
    manager().lastLocation = paris;
    manager().start();
    answerFully(Replies::forecast(60));
    manager().stop();
    EXPECT_EQ(service().stopCount, 1);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    EXPECT_EQ(manager().weather->temperature, 60);
    manager().start();
    EXPECT_EQ(platform.locationServicePort.managerCount, 1) << "the location manager stays";
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
}

TEST_F(WeatherManagerTest, ARequestUnderWayDiesWithTheManager) {
    manager().lastLocation = paris;
    manager().start();
    manager_.reset();
    EXPECT_EQ(http.waitingCount(), 0u);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(WeatherManagerTest, AGeocoderThatAnswersAfterTheManagersEndHarmsNobody) {
    platform.geocoderPort.isSlow = true;
    manager().lastLocation = paris;
    manager().refreshWeather();
    ASSERT_TRUE(answer(Replies::forecast()));
    manager_.reset();
    platform.geocoderPort.answerSlowRequests();
}

// The location

TEST_F(WeatherManagerTest, APermissionGivenBeforehandStartsTheFixes) {
    platform.locationServicePort.authorization = LocationAuthorization::authorizedAlways;
    manager().start();
    EXPECT_EQ(service().startCount, 1);
}

TEST_F(WeatherManagerTest, APermissionGivenLaterStartsThemThen) {
    manager().start();
    platform.locationServicePort.changeAuthorization(LocationAuthorization::denied);
    EXPECT_EQ(service().startCount, 0);
    platform.locationServicePort.changeAuthorization(LocationAuthorization::authorizedAlways);
    EXPECT_EQ(service().startCount, 1);
}

TEST_F(WeatherManagerTest, AFixThatComesWhileItIsSwitchedOffFetchesNothing) {
    manager().start();
    manager().isEnabled = false;
    manager().stop();
    service().deliver({paris});
    EXPECT_EQ(manager().lastLocation, paris);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(WeatherManagerTest, TheLastOfSeveralFixesCountsAndEndsTheUpdates) {
    manager().start();
    service().deliver({});
    EXPECT_EQ(service().stopCount, 0);
    service().deliver({{1, 1}, paris});
    EXPECT_EQ(manager().lastLocation, paris);
    EXPECT_EQ(service().stopCount, 1);
    EXPECT_NE(http.requests.at(0).url.find("latitude=48.0"), std::string::npos);
}

TEST_F(WeatherManagerTest, AFixWhileASavedPlaceIsShownIsOnlyKept) {
    save(1);
    manager().start();
    manager().currentLocationIndex = 1;
    service().deliver({paris});
    EXPECT_EQ(manager().lastLocation, paris);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(WeatherManagerTest, OnceThereIsAFixNoOtherIsAskedFor) {
    manager().start();
    service().deliver({paris});
    platform.runLoopPort.advance(300);
    EXPECT_EQ(service().requestCount, 1);
    EXPECT_EQ(http.requests.size(), 2u);
}

TEST_F(WeatherManagerTest, WithoutAFixEachTickAsksAgain) {
    manager().start();
    platform.runLoopPort.advance(300);
    EXPECT_EQ(service().requestCount, 2);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(WeatherManagerTest, AFailureOfTheLocationServiceIsPrinted) {
    manager().start();
    EXPECT_EQ(outputOf([&] { service().fail("The service is gone."); }),
              "LocationDelegate: The service is gone.\n");
}

// The places

TEST_F(WeatherManagerTest, TheNameChangesBeforeTheDataArrive) {
    save(1);
    manager().weather.update([](auto& data) { data.temperature = 55; });
    manager().cycleToNextLocation();
    EXPECT_EQ(manager().weather->locationName, "Place 1");
    EXPECT_EQ(manager().weather->temperature, 55);
    EXPECT_NE(http.requests.at(0).url.find("latitude=10.0&longitude=-20.0&"), std::string::npos);
}

TEST_F(WeatherManagerTest, AnIndexWithoutItsPlaceFetchesNothing) {
    manager().currentLocationIndex = 3;
    manager().refreshWeather();
    EXPECT_TRUE(http.requests.empty());
    EXPECT_FALSE(manager().isLoading);
}

TEST_F(WeatherManagerTest, AddingAPlaceRefreshesNothingAndShowsNothingElse) {
    manager().lastLocation = paris;
    save(1);
    EXPECT_TRUE(http.requests.empty());
    EXPECT_EQ(manager().currentLocationIndex, 0u);
}

TEST_F(WeatherManagerTest, RemovingAtAPositionThatDoesNotExistDoesNothing) {
    save(2);
    const auto writes = defaults.writeCount();
    manager().removeLocation(-1);
    manager().removeLocation(2);
    EXPECT_EQ(manager().savedLocations->size(), 2u);
    EXPECT_EQ(defaults.writeCount(), writes);
}

TEST_F(WeatherManagerTest, TheOwnPlaceIsCalledCurrentLocationUntilItHasAName) {
    EXPECT_EQ(manager().currentLocationName(), "Current Location");
    EXPECT_FALSE(manager().hasCollapsedContent());
    manager().weather.update([](auto& data) { data.locationName = "Paris"; });
    EXPECT_EQ(manager().currentLocationName(), "Paris");
    EXPECT_TRUE(manager().hasCollapsedContent());
}

// Replies of every shape

TEST_F(WeatherManagerTest, NoMutationOfAReplyCrashesOrChangesWhatIsShown) {
    platform.geocoderPort.locality = "Paris";
    manager().lastLocation = paris;
    manager().refreshWeather();
    answerFully(Replies::forecast());
    const auto shown = manager().weather.get();
    const auto good = *Json::parse(Replies::forecast());
    int refused = 0;
    Replies::forEachMutation(good, [&](const Json& mutated, const std::string& path,
                                       const Json& value) {
        const bool isRead =
            path.empty() || (path.starts_with("/current") && path != "/current/time");
        const bool mustBeWhole =
            path.ends_with("humidity_2m") || path.ends_with("code") || path.ends_with("is_day");
        const bool fits = mustBeWhole ? value.integer().has_value() : value.number().has_value();
        const bool isLeaf = path.starts_with("/current/");
        manager().refreshWeather();
        const auto output = outputOf([&] { answerFully(mutated.text()); });
        if (!isRead || (isLeaf && fits)) {
            EXPECT_EQ(output, "") << path << " " << value.text();
            manager().weather = shown;
            return;
        }
        ++refused;
        EXPECT_TRUE(output.starts_with("WeatherManager: Fetch failed: The data couldn’t be read"))
            << path << " " << value.text();
        EXPECT_EQ(manager().weather.get(), shown) << path << " " << value.text();
        EXPECT_FALSE(manager().isLoading);
    });
    EXPECT_GT(refused, 70);
}

TEST_F(WeatherManagerTest, BodiesThatAreNoDocumentAreRefused) {
    manager().lastLocation = paris;
    const auto shown = manager().weather.get();
    const std::string whole = Replies::forecast();
    for (const auto& body :
         {std::string(), std::string("<html>"), std::string("NaN"), std::string("[1"),
          std::string(100000, '['), whole + std::string(JsonReply::longest, ' '),
          whole.substr(0, whole.size() / 2), whole + "x",
          std::string("{\"current\":{\"temperature_2m\":NaN}}"),
          std::string("{\"current\":{\"temperature_2m\":1e999}}"), std::string("\0", 1) + whole,
          "\xFF\xFE" + whole}) {
        manager().refreshWeather();
        const auto output = outputOf([&] { answerFully(body); });
        EXPECT_EQ(output, "WeatherManager: Fetch failed: The data couldn’t be read because it "
                          "isn’t in the correct format.\n")
            << body.substr(0, 60);
        EXPECT_EQ(manager().weather.get(), shown);
    }
}

TEST_F(WeatherManagerTest, AnIntervalOfNoUseNeitherFloodsTheServiceNorEndsTheRefreshes) {
    manager().start();
    manager().lastLocation = paris;
    defaults.set("weatherUpdateIntervalMinutes", 0.0001);
    auto requests = http.requests.size();
    platform.runLoopPort.advance(10);
    EXPECT_EQ(http.requests.size(), requests + 10) << "once a second at most";
    defaults.set("weatherUpdateIntervalMinutes", 1e9);
    requests = http.requests.size();
    platform.runLoopPort.advance(7 * 86400 - 1);
    EXPECT_EQ(http.requests.size(), requests);
    platform.runLoopPort.advance(1);
    EXPECT_EQ(http.requests.size(), requests + 1) << "once a week at least";
}

TEST_F(WeatherManagerTest, AReplyOfAnotherFormSaysSo) {
    manager().lastLocation = paris;
    for (const char* body : {"[]", "7", "nonsense"}) {
        manager().refreshWeather();
        EXPECT_EQ(outputOf([&] { answer(body); }), std::string("WeatherManager: Fetch failed: ") +
                                                       JsonRecord::isInWrongFormat + "\n")
            << body;
    }
}

} // namespace
} // namespace orvelle
