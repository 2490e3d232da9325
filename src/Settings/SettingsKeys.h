#pragma once

#include <string_view>

namespace orvelle {

/// A setting's key and the value that a view shows while it is unset. Code that reads the store
/// supplies the same default itself; where 0 counts as unset, the reader says so.
template <class T>
struct SettingKey {
    std::string_view name;
    T defaultValue;
};

namespace Settings {

// General behaviour
inline constexpr SettingKey<bool> hasCompletedOnboarding{"hasCompletedOnboarding", false};
inline constexpr SettingKey<bool> launchAtLogin{"launchAtLogin", false};
inline constexpr SettingKey<bool> showInMenuBar{"showInMenuBar", true}; ///< kept, without effect
inline constexpr SettingKey<bool> requireRealNotch{"requireRealNotch", false};
inline constexpr SettingKey<bool> clickWidgetNavigatesToPanel{"clickWidgetNavigatesToPanel", true};
inline constexpr SettingKey<std::string_view> animationSpeed{"animationSpeed", "normal"};
/// Seconds; kept, without effect: hovering begins at once.
inline constexpr SettingKey<double> hoverActivationDelay{"hoverActivationDelay", 0.3};
inline constexpr SettingKey<double> scrollSensitivity{"scrollSensitivity", 5.0};
inline constexpr SettingKey<double> horizontalSwipeSensitivity{"horizontalSwipeSensitivity", 15.0};
inline constexpr SettingKey<double> collapseDebounceInterval{"collapseDebounceInterval", 0.15};
inline constexpr SettingKey<double> swipeCooldown{"swipeCooldown", 0.4};
inline constexpr SettingKey<bool> reverseScrollDirection{"reverseScrollDirection", false};
inline constexpr SettingKey<bool> todoSwipeActionsEnabled{"todoSwipeActionsEnabled", true};

// Feature switches
inline constexpr SettingKey<bool> mediaEnabled{"mediaEnabled", true};
inline constexpr SettingKey<bool> fileShelfEnabled{"fileShelfEnabled", true};
inline constexpr SettingKey<bool> hudEnabled{"hudEnabled", true};
inline constexpr SettingKey<bool> calendarEnabled{"calendarEnabled", true};
inline constexpr SettingKey<bool> batteryEnabled{"batteryEnabled", true};
inline constexpr SettingKey<bool> clipboardEnabled{"clipboardEnabled", false};
inline constexpr SettingKey<bool> systemMonitorEnabled{"systemMonitorEnabled", false};
inline constexpr SettingKey<bool> weatherEnabled{"weatherEnabled", false};
inline constexpr SettingKey<bool> pomodoroEnabled{"pomodoroEnabled", false};
inline constexpr SettingKey<bool> todoEnabled{"todoEnabled", false};
inline constexpr SettingKey<bool> notesEnabled{"notesEnabled", false};
inline constexpr SettingKey<bool> stockTickerEnabled{"stockTickerEnabled", false};
inline constexpr SettingKey<bool> timeEnabled{"timeEnabled", true};
inline constexpr SettingKey<bool> mirrorEnabled{"mirrorEnabled", false};

// Feature parameters
inline constexpr SettingKey<double> fileShelfRetentionHours{"fileShelfRetentionHours", 24};
inline constexpr SettingKey<double> fileShelfMaxItems{"fileShelfMaxItems", 20};
inline constexpr SettingKey<double> clipboardMaxItems{"clipboardMaxItems", 48};
inline constexpr SettingKey<double> clipboardMaxAgeHours{"clipboardMaxAgeHours", 24};
inline constexpr SettingKey<std::string_view> temperatureUnit{"temperatureUnit", "fahrenheit"};
inline constexpr SettingKey<double> weatherUpdateIntervalMinutes{"weatherUpdateIntervalMinutes", 5};
inline constexpr SettingKey<double> pomodoroWorkMinutes{"pomodoroWorkMinutes", 25};
inline constexpr SettingKey<double> pomodoroShortBreakMinutes{"pomodoroShortBreakMinutes", 5};
inline constexpr SettingKey<double> pomodoroLongBreakMinutes{"pomodoroLongBreakMinutes", 15};
inline constexpr SettingKey<double> pomodoroSessionsBeforeLongBreak{
    "pomodoroSessionsBeforeLongBreak", 4};
inline constexpr SettingKey<bool> pomodoroSoundEnabled{"pomodoroSoundEnabled", true};
inline constexpr SettingKey<std::string_view> pomodoroTimerStyle{"pomodoroTimerStyle", "ring"};

// Appearance and hover
inline constexpr SettingKey<std::string_view> themeMode{"themeMode", "system"};
inline constexpr SettingKey<double> customAccentHue{"customAccentHue", 0.6};
inline constexpr SettingKey<double> customAccentSaturation{"customAccentSaturation", 0.8};
// The placements of the hover bar decide what it shows; these six stand without effect.
inline constexpr SettingKey<bool> showMediaInHover{"showMediaInHover", true};
inline constexpr SettingKey<bool> showBatteryInHover{"showBatteryInHover", true};
inline constexpr SettingKey<bool> showWeatherInHover{"showWeatherInHover", true};
inline constexpr SettingKey<bool> showCalendarInHover{"showCalendarInHover", true};
inline constexpr SettingKey<bool> showPomodoroInHover{"showPomodoroInHover", true};
inline constexpr SettingKey<bool> showSystemStatsInHover{"showSystemStatsInHover", false};
inline constexpr SettingKey<bool> sysMonCPU{"sysMonCPU", true};
inline constexpr SettingKey<bool> sysMonMemory{"sysMonMemory", true};
inline constexpr SettingKey<bool> sysMonNetwork{"sysMonNetwork", true};
inline constexpr SettingKey<bool> sysMonTemperature{"sysMonTemperature", true};

// Written by code only, without a view
inline constexpr std::string_view hoverWidgetPlacements = "hoverWidgetPlacements";
inline constexpr std::string_view panelTabBarOrder = "panelTabBarOrder";
inline constexpr std::string_view weatherSavedLocations = "weather_savedLocations";
inline constexpr std::string_view weatherTemperature = "weather_temperature";
inline constexpr std::string_view weatherFeelsLike = "weather_feelsLike";
inline constexpr std::string_view weatherHumidity = "weather_humidity";
inline constexpr std::string_view weatherWindSpeed = "weather_windSpeed";
inline constexpr std::string_view weatherWeatherCode = "weather_weatherCode";
inline constexpr std::string_view weatherIsDay = "weather_isDay";
inline constexpr std::string_view weatherLastUpdated = "weather_lastUpdated";
inline constexpr std::string_view weatherLocationName = "weather_locationName";
inline constexpr std::string_view weatherCachedLatitude = "weather_cachedLatitude";
inline constexpr std::string_view weatherCachedLongitude = "weather_cachedLongitude";

} // namespace Settings

} // namespace orvelle
