#pragma once

#include "Features/Onboarding/LocationPermissionRequester.h"
#include "Features/Weather/LocationSearch.h"
#include "Platform/CameraService.h"
#include "Platform/EventStore.h"
#include "Platform/Platform.h"
#include "Settings/SettingsPage.h"

namespace orvelle {

class WeatherManager;

/// The features page of the settings. Rows that belong to one feature alone are there while it is
/// on.
class FeatureSettingsView : public SettingsPage {
public:
    explicit FeatureSettingsView(WeatherManager& weather, Platform& platform = Platform::shared());

    static constexpr double indent = 20; ///< of a feature's own rows
    /// The id of the row with the field.
    static constexpr std::string_view search = "locationSearch";
    /// Rows of places are these texts with the place's id behind.
    static constexpr std::string_view savedPrefix = "saved:";
    static constexpr std::string_view foundPrefix = "found:";

    Published<std::string> locationSearchText;

    void appear() override;

protected:
    std::vector<SettingsRow> makeRows() const override;
    void setOn(std::string_view id, bool on) override;
    void pressed(std::string_view id) override;
    void typed(std::string_view text) override;

private:
    using Rows = std::vector<SettingsRow>;

    void appendMediaAndFiles(Rows& list) const;
    void appendSystem(Rows& list) const;
    void appendProductivity(Rows& list) const;
    void appendCalendarAndWeather(Rows& list) const;
    void appendLocations(Rows& list) const;
    SettingsRow featureToggle(std::string label, const SettingKey<bool>& key) const;
    SettingsRow permissionGatedToggle(std::string label, const SettingKey<bool>& key, bool denied,
                                      std::string message) const;
    SettingsRow indented(SettingsRow row) const;
    SettingsRow parameterRow(std::string label, const SettingKey<double>& key, SettingsRange range,
                             std::string_view suffix = "") const;

    void readPermissions();
    void readAnswers();
    void requestPermission(std::string_view id);
    void searchLocation();
    void addFound(std::string_view placeId);
    void removeSaved(std::string_view placeId);

    WeatherManager& weather_;
    Platform& platform_;
    LocationPermissionRequester locationRequester_;
    LocationSearch locationSearch_;
    CameraAuthorizationStatus cameraPermission_ = CameraAuthorizationStatus::notDetermined;
    EventAuthorizationStatus calendarPermission_ = EventAuthorizationStatus::notDetermined;
    LocationAuthorization locationPermission_ = LocationAuthorization::notDetermined;
    Subscription cameraRequest_;
    Subscription calendarRequest_;
    std::vector<Subscription> observers_;
};

} // namespace orvelle
