#include "Settings/KnownSettings.h"

#include "Platform/PlatformSettings.h"
#include "Settings/SettingsKeys.h"

#include <algorithm>

namespace orvelle {

namespace {

struct KnownSetting {
    std::string_view name;
    SettingType type;
};

constexpr KnownSetting known(const SettingKey<bool>& key) {
    return {key.name, SettingType::boolean};
}
constexpr KnownSetting known(const SettingKey<double>& key) {
    return {key.name, SettingType::number};
}
constexpr KnownSetting known(const SettingKey<std::string_view>& key) {
    return {key.name, SettingType::text};
}

using namespace Settings;

constexpr KnownSetting knownSettings[] = {
    known(hasCompletedOnboarding),
    known(launchAtLogin),
    known(showInMenuBar),
    known(requireRealNotch),
    known(clickWidgetNavigatesToPanel),
    known(animationSpeed),
    known(hoverActivationDelay),
    known(scrollSensitivity),
    known(horizontalSwipeSensitivity),
    known(collapseDebounceInterval),
    known(swipeCooldown),
    known(reverseScrollDirection),
    known(todoSwipeActionsEnabled),
    known(mediaEnabled),
    known(fileShelfEnabled),
    known(hudEnabled),
    known(calendarEnabled),
    known(batteryEnabled),
    known(clipboardEnabled),
    known(systemMonitorEnabled),
    known(weatherEnabled),
    known(pomodoroEnabled),
    known(todoEnabled),
    known(notesEnabled),
    known(stockTickerEnabled),
    known(timeEnabled),
    known(mirrorEnabled),
    known(fileShelfRetentionHours),
    known(fileShelfMaxItems),
    known(clipboardMaxItems),
    known(clipboardMaxAgeHours),
    known(temperatureUnit),
    known(weatherUpdateIntervalMinutes),
    known(pomodoroWorkMinutes),
    known(pomodoroShortBreakMinutes),
    known(pomodoroLongBreakMinutes),
    known(pomodoroSessionsBeforeLongBreak),
    known(pomodoroSoundEnabled),
    known(pomodoroTimerStyle),
    known(themeMode),
    known(customAccentHue),
    known(customAccentSaturation),
    known(showMediaInHover),
    known(showBatteryInHover),
    known(showWeatherInHover),
    known(showCalendarInHover),
    known(showPomodoroInHover),
    known(showSystemStatsInHover),
    known(sysMonCPU),
    known(sysMonMemory),
    known(sysMonNetwork),
    known(sysMonTemperature),
    {hoverWidgetPlacements, SettingType::data},
    {panelTabBarOrder, SettingType::data},
    {weatherSavedLocations, SettingType::data},
    {weatherTemperature, SettingType::number},
    {weatherFeelsLike, SettingType::number},
    {weatherHumidity, SettingType::wholeNumber},
    {weatherWindSpeed, SettingType::number},
    {weatherWeatherCode, SettingType::wholeNumber},
    {weatherIsDay, SettingType::boolean},
    {weatherLastUpdated, SettingType::date},
    {weatherLocationName, SettingType::text},
    {weatherCachedLatitude, SettingType::number},
    {weatherCachedLongitude, SettingType::number},
    {PlatformSettings::safeAreaTop, SettingType::number},
    {PlatformSettings::auxiliaryLeftWidth, SettingType::number},
    {PlatformSettings::auxiliaryRightWidth, SettingType::number},
    {PlatformSettings::calendarFolders, SettingType::text},
};

} // namespace

std::optional<SettingType> knownSettingType(std::string_view key) {
    const auto found = std::ranges::find(knownSettings, key, &KnownSetting::name);
    if (found == std::end(knownSettings))
        return std::nullopt;
    return found->type;
}

} // namespace orvelle
