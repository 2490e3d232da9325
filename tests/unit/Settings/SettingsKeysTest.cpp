#include "Settings/SettingsKeys.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace orvelle {
namespace {

/// Names are what users' files hold, so that neither they nor the defaults may drift.
template <class T>
void expectTable(const std::vector<std::pair<SettingKey<T>, SettingKey<T>>>& rows) {
    for (const auto& [key, expected] : rows) {
        EXPECT_EQ(key.name, expected.name);
        EXPECT_EQ(key.defaultValue, expected.defaultValue) << expected.name;
    }
}

TEST(SettingsKeys, GeneralBehaviourStandsByTheTable) {
    expectTable<bool>({
        {Settings::hasCompletedOnboarding, {"hasCompletedOnboarding", false}},
        {Settings::launchAtLogin, {"launchAtLogin", false}},
        {Settings::showInMenuBar, {"showInMenuBar", true}},
        {Settings::requireRealNotch, {"requireRealNotch", false}},
        {Settings::clickWidgetNavigatesToPanel, {"clickWidgetNavigatesToPanel", true}},
        {Settings::reverseScrollDirection, {"reverseScrollDirection", false}},
        {Settings::todoSwipeActionsEnabled, {"todoSwipeActionsEnabled", true}},
    });
    expectTable<double>({
        {Settings::hoverActivationDelay, {"hoverActivationDelay", 0.3}},
        {Settings::scrollSensitivity, {"scrollSensitivity", 5.0}},
        {Settings::horizontalSwipeSensitivity, {"horizontalSwipeSensitivity", 15.0}},
        {Settings::collapseDebounceInterval, {"collapseDebounceInterval", 0.15}},
        {Settings::swipeCooldown, {"swipeCooldown", 0.4}},
    });
    expectTable<std::string_view>({{Settings::animationSpeed, {"animationSpeed", "normal"}}});
}

TEST(SettingsKeys, FeatureSwitchesStandByTheTable) {
    expectTable<bool>({
        {Settings::mediaEnabled, {"mediaEnabled", true}},
        {Settings::fileShelfEnabled, {"fileShelfEnabled", true}},
        {Settings::hudEnabled, {"hudEnabled", true}},
        {Settings::calendarEnabled, {"calendarEnabled", true}},
        {Settings::batteryEnabled, {"batteryEnabled", true}},
        {Settings::clipboardEnabled, {"clipboardEnabled", false}},
        {Settings::systemMonitorEnabled, {"systemMonitorEnabled", false}},
        {Settings::weatherEnabled, {"weatherEnabled", false}},
        {Settings::pomodoroEnabled, {"pomodoroEnabled", false}},
        {Settings::todoEnabled, {"todoEnabled", false}},
        {Settings::notesEnabled, {"notesEnabled", false}},
        {Settings::stockTickerEnabled, {"stockTickerEnabled", false}},
        {Settings::timeEnabled, {"timeEnabled", true}},
        {Settings::mirrorEnabled, {"mirrorEnabled", false}},
    });
}

TEST(SettingsKeys, FeatureParametersStandByTheTable) {
    expectTable<double>({
        {Settings::fileShelfRetentionHours, {"fileShelfRetentionHours", 24}},
        {Settings::fileShelfMaxItems, {"fileShelfMaxItems", 20}},
        {Settings::clipboardMaxItems, {"clipboardMaxItems", 48}},
        {Settings::clipboardMaxAgeHours, {"clipboardMaxAgeHours", 24}},
        {Settings::weatherUpdateIntervalMinutes, {"weatherUpdateIntervalMinutes", 5}},
        {Settings::pomodoroWorkMinutes, {"pomodoroWorkMinutes", 25}},
        {Settings::pomodoroShortBreakMinutes, {"pomodoroShortBreakMinutes", 5}},
        {Settings::pomodoroLongBreakMinutes, {"pomodoroLongBreakMinutes", 15}},
        {Settings::pomodoroSessionsBeforeLongBreak, {"pomodoroSessionsBeforeLongBreak", 4}},
    });
    expectTable<bool>({{Settings::pomodoroSoundEnabled, {"pomodoroSoundEnabled", true}}});
    expectTable<std::string_view>({
        {Settings::temperatureUnit, {"temperatureUnit", "fahrenheit"}},
        {Settings::pomodoroTimerStyle, {"pomodoroTimerStyle", "ring"}},
    });
}

TEST(SettingsKeys, AppearanceAndHoverStandByTheTable) {
    expectTable<std::string_view>({{Settings::themeMode, {"themeMode", "system"}}});
    expectTable<double>({
        {Settings::customAccentHue, {"customAccentHue", 0.6}},
        {Settings::customAccentSaturation, {"customAccentSaturation", 0.8}},
    });
    expectTable<bool>({
        {Settings::showMediaInHover, {"showMediaInHover", true}},
        {Settings::showBatteryInHover, {"showBatteryInHover", true}},
        {Settings::showWeatherInHover, {"showWeatherInHover", true}},
        {Settings::showCalendarInHover, {"showCalendarInHover", true}},
        {Settings::showPomodoroInHover, {"showPomodoroInHover", true}},
        {Settings::showSystemStatsInHover, {"showSystemStatsInHover", false}},
        {Settings::sysMonCPU, {"sysMonCPU", true}},
        {Settings::sysMonMemory, {"sysMonMemory", true}},
        {Settings::sysMonNetwork, {"sysMonNetwork", true}},
        {Settings::sysMonTemperature, {"sysMonTemperature", true}},
    });
}

TEST(SettingsKeys, CodesOwnKeysStandByTheTable) {
    EXPECT_EQ(Settings::hoverWidgetPlacements, "hoverWidgetPlacements");
    EXPECT_EQ(Settings::panelTabBarOrder, "panelTabBarOrder");
    EXPECT_EQ(Settings::weatherSavedLocations, "weather_savedLocations");
    EXPECT_EQ(Settings::weatherTemperature, "weather_temperature");
    EXPECT_EQ(Settings::weatherFeelsLike, "weather_feelsLike");
    EXPECT_EQ(Settings::weatherHumidity, "weather_humidity");
    EXPECT_EQ(Settings::weatherWindSpeed, "weather_windSpeed");
    EXPECT_EQ(Settings::weatherWeatherCode, "weather_weatherCode");
    EXPECT_EQ(Settings::weatherIsDay, "weather_isDay");
    EXPECT_EQ(Settings::weatherLastUpdated, "weather_lastUpdated");
    EXPECT_EQ(Settings::weatherLocationName, "weather_locationName");
    EXPECT_EQ(Settings::weatherCachedLatitude, "weather_cachedLatitude");
    EXPECT_EQ(Settings::weatherCachedLongitude, "weather_cachedLongitude");
}

} // namespace
} // namespace orvelle
