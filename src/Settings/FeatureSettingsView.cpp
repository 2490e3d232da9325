#include "Settings/FeatureSettingsView.h"

#include "Features/Weather/WeatherCredit.h"
#include "Features/Weather/WeatherManager.h"
#include "Foundation/Format.h"
#include "Models/PermissionStatus.h"
#include "Models/Symbol.h"
#include "Platform/Workspace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvelle {

namespace {

constexpr double parameterLabelWidth = 90;
constexpr double parameterValueWidth = 36;
constexpr double placeSymbolSize = 13;
constexpr Color addColor = colors::green;
constexpr Color removeColor = Color::white(1, 0.58);
constexpr std::string_view privacySettings =
    "x-apple.systempreferences:com.apple.preference.security?";

/// The pane of the desktop's settings where the permission behind a switch is given.
std::string_view pane(std::string_view key) {
    if (key == Settings::mirrorEnabled.name)
        return "Privacy_Camera";
    if (key == Settings::calendarEnabled.name)
        return "Privacy_Calendars";
    return "Privacy_LocationServices";
}

SettingsRow placeRow(SettingsRow::Kind kind, std::string_view prefix, const SavedLocation& place) {
    SettingsRow row;
    row.kind = kind;
    row.id = std::string(prefix) + place.id.text();
    row.label = place.name;
    row.indent = FeatureSettingsView::indent;
    return row;
}

} // namespace

FeatureSettingsView::FeatureSettingsView(WeatherManager& weather, Platform& platform)
    : SettingsPage(platform.userDefaults()), weather_(weather), platform_(platform),
      locationRequester_(platform), locationSearch_(platform) {
    readPermissions();
    observers_.push_back(
        platform.locationService().observeAuthorization([this] { readAnswers(); }));
    const auto follow = [this](const auto& source) {
        observers_.push_back(source.observe([this](const auto&) { refresh(); }));
    };
    follow(weather.savedLocations);
    follow(locationSearch_.locationSearchResults);
    follow(locationSearch_.isSearching);
    follow(locationSearch_.foundNothing);
    follow(locationSearchText);
    observers_.push_back(platform.eventStore().observeAuthorizationStatus([this] { appear(); }));
}

void FeatureSettingsView::appear() {
    platform_.locationService().refreshAuthorization();
    readAnswers();
}

void FeatureSettingsView::readAnswers() {
    readPermissions();
    refresh();
}

void FeatureSettingsView::readPermissions() {
    cameraPermission_ = platform_.camera().authorizationStatus();
    calendarPermission_ = platform_.eventStore().authorizationStatus();
    locationPermission_ = platform_.locationService().authorizationStatus();
}

std::vector<SettingsRow> FeatureSettingsView::makeRows() const {
    Rows list;
    appendMediaAndFiles(list);
    appendSystem(list);
    appendProductivity(list);
    list.push_back(titleRow("Time & Calendar"));
    list.push_back(featureToggle("World Clock", Settings::timeEnabled));
    appendCalendarAndWeather(list);
    return list;
}

void FeatureSettingsView::appendMediaAndFiles(Rows& list) const {
    list.push_back(titleRow("Media & Files"));
    list.push_back(featureToggle("Now Playing", Settings::mediaEnabled));
    list.push_back(featureToggle("File Shelf", Settings::fileShelfEnabled));
    if (list.back().isOn) {
        list.push_back(
            parameterRow("Retention", Settings::fileShelfRetentionHours, {1, 72, 1}, "h"));
        list.push_back(parameterRow("Max Items", Settings::fileShelfMaxItems, {5, 50, 1}));
    }
    list.push_back(featureToggle("Clipboard History", Settings::clipboardEnabled));
    if (list.back().isOn) {
        list.push_back(parameterRow("Max Items", Settings::clipboardMaxItems, {10, 100, 1}));
        list.push_back(parameterRow("Max Age", Settings::clipboardMaxAgeHours, {1, 72, 1}, "h"));
    }
}

void FeatureSettingsView::appendSystem(Rows& list) const {
    list.push_back(titleRow("System"));
    list.push_back(featureToggle("Battery Monitor", Settings::batteryEnabled));
    list.push_back(featureToggle("System Monitor", Settings::systemMonitorEnabled));
    if (list.back().isOn) {
        list.push_back(indented(toggleRow("Show CPU", Settings::sysMonCPU)));
        list.push_back(indented(toggleRow("Show Memory", Settings::sysMonMemory)));
        list.push_back(indented(toggleRow("Show Network", Settings::sysMonNetwork)));
        list.push_back(indented(toggleRow("Show Temperature", Settings::sysMonTemperature)));
    }
    list.push_back(permissionGatedToggle("Mirror", Settings::mirrorEnabled,
                                         isDenied(cameraPermission_), "Camera access denied"));
}

void FeatureSettingsView::appendProductivity(Rows& list) const {
    list.push_back(titleRow("Productivity"));
    list.push_back(featureToggle("Focus Timer", Settings::pomodoroEnabled));
    if (list.back().isOn) {
        list.push_back(parameterRow("Work", Settings::pomodoroWorkMinutes, {5, 60, 5}, "m"));
        list.push_back(parameterRow("Break", Settings::pomodoroShortBreakMinutes, {1, 15, 1}, "m"));
        list.push_back(
            parameterRow("Long Break", Settings::pomodoroLongBreakMinutes, {5, 30, 5}, "m"));
        list.push_back(
            parameterRow("Sessions", Settings::pomodoroSessionsBeforeLongBreak, {2, 8, 1}));
    }
    list.push_back(featureToggle("Todo List", Settings::todoEnabled));
    list.push_back(featureToggle("Quick Notes", Settings::notesEnabled));
    list.push_back(featureToggle("Stock Ticker", Settings::stockTickerEnabled));
}

void FeatureSettingsView::appendCalendarAndWeather(Rows& list) const {
    list.push_back(titleRow("Calendar & Weather"));
    list.push_back(permissionGatedToggle("Calendar", Settings::calendarEnabled,
                                         isDenied(calendarPermission_), "Calendar access denied"));
    list.push_back(permissionGatedToggle("Weather", Settings::weatherEnabled,
                                         isDenied(locationPermission_), "Location access denied"));
    if (!list.back().isOn)
        return;
    auto unit = indented(pickerRow("Temperature", Settings::temperatureUnit,
                                   {{"fahrenheit", "°F"}, {"celsius", "°C"}}));
    unit.kind = SettingsRow::Kind::segments;
    list.push_back(std::move(unit));
    list.push_back(
        parameterRow("Refresh", Settings::weatherUpdateIntervalMinutes, {5, 60, 5}, "m"));
    appendLocations(list);
    list.push_back(footnoteRow("weatherCredit", std::string(WeatherCredit::text)));
}

void FeatureSettingsView::appendLocations(Rows& list) const {
    for (const auto& place : weather_.savedLocations.get()) {
        list.push_back(placeRow(SettingsRow::Kind::place, savedPrefix, place));
        list.back().button = "Remove " + place.name;
        list.back().symbol = StyledSymbol{"trash"_symbol, placeSymbolSize, removeColor};
    }
    SettingsRow field;
    field.kind = SettingsRow::Kind::search;
    field.id = search;
    field.indent = indent;
    field.label = "Add city...";
    field.detail = locationSearchText;
    field.button = "Search";
    field.isOn = locationSearch_.isSearching;
    list.push_back(std::move(field));
    if (locationSearch_.foundNothing) {
        SettingsRow nothing;
        nothing.id = "nothingFound";
        nothing.indent = indent;
        nothing.label = "No results";
        list.push_back(std::move(nothing));
    }
    for (const auto& place : locationSearch_.locationSearchResults.get()) {
        list.push_back(placeRow(SettingsRow::Kind::found, foundPrefix, place));
        list.back().button = "Add " + place.name;
        list.back().symbol = StyledSymbol{"plus.circle"_symbol, placeSymbolSize, addColor};
    }
}

SettingsRow FeatureSettingsView::featureToggle(std::string label,
                                               const SettingKey<bool>& key) const {
    auto row = toggleRow(std::move(label), key);
    // Features go by what was stored as a boolean, and the switch says what they do.
    row.isOn = defaults_.storedBoolean(key.name).value_or(key.defaultValue);
    return row;
}

SettingsRow FeatureSettingsView::permissionGatedToggle(std::string label,
                                                       const SettingKey<bool>& key, bool denied,
                                                       std::string message) const {
    auto row = featureToggle(std::move(label), key);
    if (!denied)
        return row;
    row.kind = SettingsRow::Kind::action;
    row.isDimmed = true;
    row.detail = std::move(message);
    row.button = "Open Settings";
    return row;
}

SettingsRow FeatureSettingsView::indented(SettingsRow row) const {
    row.indent = indent;
    return row;
}

SettingsRow FeatureSettingsView::parameterRow(std::string label, const SettingKey<double>& key,
                                              SettingsRange range, std::string_view suffix) const {
    auto row = indented(sliderRow(std::move(label), key, range));
    row.labelWidth = parameterLabelWidth;
    row.valueText = format("%.0f", row.value).append(suffix);
    row.valueWidth = parameterValueWidth;
    return row;
}

void FeatureSettingsView::setOn(std::string_view id, bool on) {
    SettingsPage::setOn(id, on);
    if (on)
        requestPermission(id);
}

void FeatureSettingsView::requestPermission(std::string_view id) {
    const auto readAgain = [this](bool) { readAnswers(); };
    if (id == Settings::mirrorEnabled.name &&
        cameraPermission_ == CameraAuthorizationStatus::notDetermined)
        cameraRequest_ = platform_.camera().requestAccess(readAgain);
    else if (id == Settings::calendarEnabled.name &&
             calendarPermission_ == EventAuthorizationStatus::notDetermined)
        calendarRequest_ = platform_.eventStore().requestFullAccess(readAgain);
    else if (id == Settings::weatherEnabled.name &&
             locationPermission_ == LocationAuthorization::notDetermined)
        locationRequester_.request();
}

void FeatureSettingsView::pressed(std::string_view id) {
    if (id == search)
        searchLocation();
    else if (id.starts_with(savedPrefix))
        removeSaved(id.substr(savedPrefix.size()));
    else if (id.starts_with(foundPrefix))
        addFound(id.substr(foundPrefix.size()));
    else
        platform_.workspace().open(std::string(privacySettings).append(pane(id)));
}

void FeatureSettingsView::typed(std::string_view text) {
    if (text != locationSearchText.get())
        locationSearchText = std::string(text);
}

void FeatureSettingsView::searchLocation() {
    locationSearch_.searchLocation(locationSearchText.get());
}

void FeatureSettingsView::addFound(std::string_view placeId) {
    const auto places = locationSearch_.locationSearchResults.get();
    for (const auto& place : places) {
        if (place.id.text() != placeId)
            continue;
        weather_.addSavedLocation(place);
        locationSearchText = std::string();
        searchLocation(); // of nothing, which clears the results
        return;
    }
}

void FeatureSettingsView::removeSaved(std::string_view placeId) {
    const auto& places = weather_.savedLocations.get();
    const auto found = std::find_if(places.begin(), places.end(), [placeId](const auto& place) {
        return place.id.text() == placeId;
    });
    if (found != places.end())
        weather_.removeLocation(std::distance(places.begin(), found));
}

} // namespace orvelle
