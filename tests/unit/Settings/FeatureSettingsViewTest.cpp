#include "Settings/FeatureSettingsView.h"

#include "Support/AppFixture.h"
#include "Support/Replies.h"
#include "Support/SettingsRows.h"

#include <optional>

namespace orvelle {
namespace {

using Kind = SettingsRow::Kind;
using Labels = std::vector<std::string>;

const std::string twoPlaces = R"({"results":[
    {"name":"Paris","latitude":48.85,"longitude":2.35,"country":"France"},
    {"name":"Paris","latitude":33.66,"longitude":-95.55,"country":"United States"}]})";

class FeatureSettingsViewTest : public AppFixture {
protected:
    FeatureSettingsViewTest() { page.appear(); }

    SettingsRow row(std::string_view id) { return rowOf(page, id); }
    SettingsRow first(Kind kind) {
        for (const auto& candidate : page.rows.get())
            if (candidate.kind == kind)
                return candidate;
        return {};
    }
    void switchEverythingOn() {
        const auto rows = page.rows.get();
        for (const auto& shown : rows)
            if (shown.kind == Kind::toggle)
                page.flip(shown.id, true);
    }
    void type(std::string_view text) { page.type("locationSearch", text); }
    void find(std::string_view text, const std::string& answer) {
        type(text);
        page.press("locationSearch");
        platform.httpClientPort.answer(Replies::ok(answer));
    }

    FeatureSettingsView page{app.weatherManager, platform};
};

TEST_F(FeatureSettingsViewTest, ACalendarRefusedOrGivenElsewhereShowsAtOnce) {
    platform.eventStorePort.change(EventAuthorizationStatus::denied);
    EXPECT_EQ(row("calendarEnabled").detail, "Calendar access denied");
    platform.eventStorePort.change(EventAuthorizationStatus::fullAccess);
    EXPECT_EQ(row("calendarEnabled").kind, Kind::toggle);
}

TEST_F(FeatureSettingsViewTest, EverySectionAndRowStandsInItsOrder) {
    switchEverythingOn();
    EXPECT_EQ(labelsOf(page, Kind::title), (Labels{"Media & Files", "System", "Productivity",
                                                   "Time & Calendar", "Calendar & Weather"}));
    EXPECT_EQ(labelsOf(page, Kind::toggle),
              (Labels{"Now Playing", "File Shelf", "Clipboard History", "Battery Monitor",
                      "System Monitor", "Show CPU", "Show Memory", "Show Network",
                      "Show Temperature", "Mirror", "Focus Timer", "Todo List", "Quick Notes",
                      "Stock Ticker", "World Clock", "Calendar", "Weather"}));
    EXPECT_EQ(labelsOf(page, Kind::slider),
              (Labels{"Retention", "Max Items", "Max Items", "Max Age", "Work", "Break",
                      "Long Break", "Sessions", "Refresh"}));
    EXPECT_EQ(labelsOf(page, Kind::segments), Labels{"Temperature"});
    EXPECT_EQ(row("weatherCredit").label, "Weather data by Open-Meteo.com, CC BY 4.0");
}

TEST_F(FeatureSettingsViewTest, EachParameterHasItsRangeAndSuffixAndStandsIndented) {
    switchEverythingOn();
    const struct {
        const char* id;
        SettingsRange range;
        const char* text;
    } parameters[] = {{"fileShelfRetentionHours", {1, 72, 1}, "24h"},
                      {"fileShelfMaxItems", {5, 50, 1}, "20"},
                      {"clipboardMaxItems", {10, 100, 1}, "48"},
                      {"clipboardMaxAgeHours", {1, 72, 1}, "24h"},
                      {"pomodoroWorkMinutes", {5, 60, 5}, "25m"},
                      {"pomodoroShortBreakMinutes", {1, 15, 1}, "5m"},
                      {"pomodoroLongBreakMinutes", {5, 30, 5}, "15m"},
                      {"pomodoroSessionsBeforeLongBreak", {2, 8, 1}, "4"},
                      {"weatherUpdateIntervalMinutes", {5, 60, 5}, "5m"}};
    for (const auto& parameter : parameters) {
        EXPECT_EQ(row(parameter.id).range, parameter.range) << parameter.id;
        EXPECT_EQ(row(parameter.id).valueText, parameter.text) << parameter.id;
        EXPECT_EQ(row(parameter.id).indent, 20) << parameter.id;
    }
    for (const auto* id : {"sysMonCPU", "sysMonTemperature", "temperatureUnit", "locationSearch"})
        EXPECT_EQ(row(id).indent, 20) << id;
    EXPECT_EQ(row("mediaEnabled").indent, 0);
}

TEST_F(FeatureSettingsViewTest, TurningOffAFeatureHidesItsIndentedRowsAndKeepsTheirValues) {
    page.slide("fileShelfMaxItems", 31);
    page.flip("fileShelfEnabled", false);
    EXPECT_FALSE(shows(page, "fileShelfMaxItems"));
    EXPECT_FALSE(shows(page, "fileShelfRetentionHours"));
    EXPECT_EQ(defaults().number("fileShelfMaxItems"), 31);
    page.flip("fileShelfEnabled", true);
    EXPECT_EQ(row("fileShelfMaxItems").value, 31);
}

TEST_F(FeatureSettingsViewTest, ASwitchStopsAndStartsItsFeature) {
    launchNormally();
    ASSERT_TRUE(app.batteryManager.isEnabled);
    page.flip("batteryEnabled", false);
    runPosted();
    EXPECT_FALSE(app.batteryManager.isEnabled);
    page.flip("batteryEnabled", true);
    runPosted();
    EXPECT_TRUE(app.batteryManager.isEnabled);
}

TEST_F(FeatureSettingsViewTest, NoFeatureThatIsOffHasIndentedRows) {
    switchEverythingOn();
    page.slide("clipboardMaxItems", 31);
    page.slide("pomodoroWorkMinutes", 40);
    page.flip("sysMonCPU", false);
    const auto shown = page.rows.get();
    for (const auto& each : shown)
        if (each.kind == Kind::toggle && each.indent == 0)
            page.flip(each.id, false);
    for (const auto& each : page.rows.get())
        EXPECT_EQ(each.indent, 0) << each.id;
    EXPECT_EQ(defaults().integer("clipboardMaxItems"), 31);
    EXPECT_EQ(defaults().integer("pomodoroWorkMinutes"), 40);
    EXPECT_FALSE(defaults().boolean("sysMonCPU"));
}

TEST_F(FeatureSettingsViewTest, ValuesThatDoNotFitShowTheNearestOrTheDefault) {
    switchEverythingOn();
    defaults().set("clipboardMaxItems", 1000000.0);
    defaults().set("pomodoroWorkMinutes", std::string("long"));
    defaults().set("temperatureUnit", std::string("kelvin"));
    defaults().set("mediaEnabled", Data{1, 2});
    EXPECT_EQ(row("clipboardMaxItems").valueText, "100");
    EXPECT_EQ(row("pomodoroWorkMinutes").valueText, "25m");
    EXPECT_EQ(row("temperatureUnit").choice, "fahrenheit");
    EXPECT_TRUE(row("mediaEnabled").isOn);
    defaults().set("batteryEnabled", std::int64_t{0});
    EXPECT_TRUE(row("batteryEnabled").isOn) << "no boolean, so the feature is on";
}

TEST_F(FeatureSettingsViewTest, TheTemperatureIsChosenBetweenTwo) {
    page.flip("weatherEnabled", true);
    page.choose("temperatureUnit", "celsius");
    EXPECT_EQ(defaults().string("temperatureUnit"), "celsius");
}

TEST_F(FeatureSettingsViewTest, TheRefreshControlRestartsTheTimerAtOnceWithoutARefresh) {
    launchNormally();
    page.flip("weatherEnabled", true);
    runPosted();
    app.weatherManager.lastLocation = Coordinate{48, 2};
    page.slide("weatherUpdateIntervalMinutes", 60);
    const auto requests = platform.httpClientPort.requests.size();
    advance(3599);
    EXPECT_EQ(platform.httpClientPort.requests.size(), requests);
    advance(1);
    EXPECT_EQ(platform.httpClientPort.requests.size(), requests + 1);
    page.slide("weatherUpdateIntervalMinutes", 5);
    EXPECT_EQ(platform.httpClientPort.requests.size(), requests + 1);
    advance(300);
    EXPECT_EQ(platform.httpClientPort.requests.size(), requests + 2);
}

TEST_F(FeatureSettingsViewTest, AnIntervalThatIsChangedWhileWeatherIsOffStartsNoTimer) {
    launchNormally();
    page.flip("weatherEnabled", true);
    runPosted();
    page.flip("weatherEnabled", false);
    runPosted();
    const auto timers = featureTimers();
    defaults().set("weatherUpdateIntervalMinutes", 30.0);
    EXPECT_EQ(featureTimers(), timers);
}

TEST_F(FeatureSettingsViewTest, ADeniedCameraHasNoSwitchUntilTheStatusIsReadAgain) {
    platform.cameraPort.status = CameraAuthorizationStatus::denied;
    page.appear();
    EXPECT_EQ(row("mirrorEnabled").kind, Kind::action);
    EXPECT_TRUE(row("mirrorEnabled").isDimmed);
    EXPECT_EQ(row("mirrorEnabled").detail, "Camera access denied");
    EXPECT_EQ(row("mirrorEnabled").button, "Open Settings");
    page.flip("mirrorEnabled", true);
    EXPECT_EQ(defaults().object("mirrorEnabled"), std::nullopt);
    page.press("mirrorEnabled");
    EXPECT_EQ(platform.workspacePort.opened,
              Labels{"x-apple.systempreferences:com.apple.preference.security?Privacy_Camera"});
    platform.cameraPort.status = CameraAuthorizationStatus::authorized;
    defaults().set("unrelated", true);
    EXPECT_EQ(row("mirrorEnabled").kind, Kind::action) << "nobody has come back yet";
    page.appear();
    EXPECT_EQ(row("mirrorEnabled").kind, Kind::toggle);
}

TEST_F(FeatureSettingsViewTest, RestrictedCalendarsAndADeniedPlaceSayTheirs) {
    platform.eventStorePort.status = EventAuthorizationStatus::restricted;
    platform.locationServicePort.authorization = LocationAuthorization::denied;
    page.appear();
    EXPECT_EQ(row("calendarEnabled").detail, "Calendar access denied");
    EXPECT_EQ(row("weatherEnabled").detail, "Location access denied");
    page.press("calendarEnabled");
    page.press("weatherEnabled");
    EXPECT_EQ(platform.workspacePort.opened,
              (Labels{"x-apple.systempreferences:com.apple.preference.security?Privacy_Calendars",
                      "x-apple.systempreferences:com.apple.preference.security?"
                      "Privacy_LocationServices"}));
}

TEST_F(FeatureSettingsViewTest, TurningTheMirrorOnAsksOnceAndReadsTheAnswer) {
    platform.cameraPort.status = CameraAuthorizationStatus::notDetermined;
    platform.cameraPort.statusAfterRequest = CameraAuthorizationStatus::denied;
    page.appear();
    EXPECT_EQ(row("mirrorEnabled").kind, Kind::toggle);
    page.flip("mirrorEnabled", true);
    EXPECT_EQ(platform.cameraPort.accessRequests, 1);
    advance(0);
    EXPECT_EQ(row("mirrorEnabled").kind, Kind::action);
    EXPECT_EQ(row("mirrorEnabled").detail, "Camera access denied");
}

TEST_F(FeatureSettingsViewTest, NothingIsAskedWhereTheAnswerIsKnownOrTheSwitchGoesOff) {
    page.flip("mirrorEnabled", true);
    EXPECT_EQ(platform.cameraPort.accessRequests, 0);
    platform.eventStorePort.status = EventAuthorizationStatus::notDetermined;
    page.appear();
    page.flip("calendarEnabled", false);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 0);
    page.flip("calendarEnabled", true);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 1);
}

TEST_F(FeatureSettingsViewTest, TurningWeatherOnAsksForThePlaceAndReadsTheAnswer) {
    ASSERT_EQ(platform.locationServicePort.authorization, LocationAuthorization::notDetermined);
    auto& manager = *platform.locationServicePort.last;
    page.flip("weatherEnabled", true);
    EXPECT_EQ(manager.requestCount, 1);
    platform.locationServicePort.changeAuthorization(LocationAuthorization::denied);
    EXPECT_EQ(row("weatherEnabled").detail, "Location access denied");
    EXPECT_TRUE(shows(page, "locationSearch")) << "the feature is on, so its rows stand";
    FeatureSettingsView next(app.weatherManager, platform);
    EXPECT_EQ(rowOf(next, "weatherEnabled").detail, "Location access denied");
}

TEST_F(FeatureSettingsViewTest, WhoComesBackToThePageSeesWhetherThePlaceMayBeKnownNow) {
    platform.locationServicePort.changeAuthorization(LocationAuthorization::denied);
    platform.locationServicePort.laterAuthorization = LocationAuthorization::authorizedAlways;
    EXPECT_EQ(row("weatherEnabled").kind, Kind::action);
    const int before = platform.locationServicePort.refreshCount;
    page.appear();
    advance(0);
    EXPECT_EQ(row("weatherEnabled").kind, Kind::toggle);
    EXPECT_EQ(platform.locationServicePort.refreshCount, before + 1)
        << "an answer asks no further question";
}

TEST_F(FeatureSettingsViewTest, AnEmptySearchTextMakesNoRequest) {
    page.flip("weatherEnabled", true);
    find("Paris", twoPlaces);
    const auto requests = platform.httpClientPort.requests.size();
    type(" \t ");
    page.press("locationSearch");
    EXPECT_EQ(platform.httpClientPort.requests.size(), requests);
    EXPECT_EQ(first(Kind::found).id, "") << "the results of before are gone";
}

TEST_F(FeatureSettingsViewTest, ASearchShowsThatItIsUnderWayAndThenWhatItFound) {
    page.flip("weatherEnabled", true);
    type("Paris");
    page.press("locationSearch");
    EXPECT_TRUE(row("locationSearch").isOn);
    EXPECT_TRUE(platform.httpClientPort.requests.back().url.ends_with(
        "/v1/search?name=Paris&count=5&language=en"));
    platform.httpClientPort.answer(Replies::ok(twoPlaces));
    EXPECT_FALSE(row("locationSearch").isOn);
    EXPECT_EQ(labelsOf(page, Kind::found), (Labels{"Paris, France", "Paris, United States"}));
    EXPECT_EQ(first(Kind::found).symbol->name, "plus.circle");
}

TEST_F(FeatureSettingsViewTest, AFailedSearchShowsNothing) {
    page.flip("weatherEnabled", true);
    type("Paris");
    page.press("locationSearch");
    platform.httpClientPort.answer({"no network", 0, ""});
    EXPECT_FALSE(row("locationSearch").isOn);
    EXPECT_TRUE(labelsOf(page, Kind::found).empty());
    EXPECT_FALSE(shows(page, "nothingFound")) << "nobody has said that there is none";
}

TEST_F(FeatureSettingsViewTest, ASearchWithoutAMatchSaysSoUntilTheNext) {
    page.flip("weatherEnabled", true);
    find("Nowhere", R"({"generationtime_ms":0.5})");
    ASSERT_TRUE(shows(page, "nothingFound"));
    EXPECT_EQ(row("nothingFound").label, "No results");
    type("Paris");
    page.press("locationSearch");
    EXPECT_FALSE(shows(page, "nothingFound"));
    platform.httpClientPort.answer(Replies::ok(twoPlaces));
    EXPECT_FALSE(shows(page, "nothingFound"));
}

TEST_F(FeatureSettingsViewTest, AFoundPlaceIsSavedByAPressAndTheFieldCleared) {
    page.flip("weatherEnabled", true);
    find("Paris", twoPlaces);
    page.press(first(Kind::found).id);
    ASSERT_EQ(app.weatherManager.savedLocations->size(), 1u);
    EXPECT_EQ(app.weatherManager.savedLocations->front().name, "Paris, France");
    EXPECT_EQ(labelsOf(page, Kind::place), Labels{"Paris, France"});
    EXPECT_EQ(row("locationSearch").detail, "");
    EXPECT_TRUE(labelsOf(page, Kind::found).empty());
    EXPECT_EQ(first(Kind::place).symbol->name, "trash");
    page.press(first(Kind::place).id);
    EXPECT_TRUE(app.weatherManager.savedLocations->empty());
    EXPECT_TRUE(labelsOf(page, Kind::place).empty());
}

TEST_F(FeatureSettingsViewTest, TheSearchFieldSaysWhatItTakesAndShowsWhatIsTyped) {
    page.flip("weatherEnabled", true);
    EXPECT_EQ(row("locationSearch").label, "Add city...");
    EXPECT_EQ(row("locationSearch").button, "Search");
    type("Par");
    EXPECT_EQ(row("locationSearch").detail, "Par");
}

TEST_F(FeatureSettingsViewTest, APlaceThatIsFoundOrSavedSaysWhatItsButtonDoes) {
    page.flip("weatherEnabled", true);
    find("Paris", twoPlaces);
    const auto found = first(Kind::found);
    EXPECT_EQ(found.button, "Add " + found.label);
    EXPECT_EQ(found.indent, 20);
    ASSERT_TRUE(found.symbol);
    EXPECT_EQ(found.symbol->name, "plus.circle");
    EXPECT_EQ(found.symbol->color, colors::green);
    page.press(found.id);
    const auto saved = first(Kind::place);
    EXPECT_EQ(saved.button, "Remove " + saved.label);
    EXPECT_EQ(saved.indent, 20);
    ASSERT_TRUE(saved.symbol);
    EXPECT_EQ(saved.symbol->name, "trash");
    EXPECT_EQ(first(Kind::found).id, "") << "the results are gone";
}

TEST_F(FeatureSettingsViewTest, AWeatherRowsOrderIsUnitIntervalPlacesAndCredit) {
    page.flip("weatherEnabled", true);
    std::vector<std::string> ids;
    for (const auto& shown : page.rows.get())
        ids.push_back(shown.id);
    ASSERT_GE(ids.size(), 5u);
    EXPECT_EQ((std::vector<std::string>(ids.end() - 5, ids.end())),
              (std::vector<std::string>{"weatherEnabled", "temperatureUnit",
                                        "weatherUpdateIntervalMinutes", "locationSearch",
                                        "weatherCredit"}));
}

TEST_F(FeatureSettingsViewTest, APlaceThatIsSavedElsewhereIsShownAtOnce) {
    page.flip("weatherEnabled", true);
    app.weatherManager.savedLocations =
        std::vector<SavedLocation>{{UUID::random(), "Oslo", 59.9, 10.7}};
    EXPECT_EQ(first(Kind::place).label, "Oslo");
}

TEST_F(FeatureSettingsViewTest, OnlyTheSwitchThatNeedsAPermissionAsksForIt) {
    platform.cameraPort.status = CameraAuthorizationStatus::notDetermined;
    platform.eventStorePort.status = EventAuthorizationStatus::notDetermined;
    page.appear();
    for (const char* id : {"notesEnabled", "clipboardEnabled", "todoEnabled"})
        page.flip(id, true);
    EXPECT_EQ(platform.cameraPort.accessRequests, 0);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 0);
    EXPECT_EQ(platform.locationServicePort.last->requestCount, 0);
    page.flip("calendarEnabled", true);
    EXPECT_EQ(platform.eventStorePort.accessRequests, 1);
    EXPECT_EQ(platform.cameraPort.accessRequests, 0);
}

TEST_F(FeatureSettingsViewTest, ParametersStandInColumns) {
    EXPECT_EQ(row("fileShelfMaxItems").labelWidth, 90);
    EXPECT_EQ(row("fileShelfMaxItems").valueWidth, 36);
}

} // namespace
} // namespace orvelle
