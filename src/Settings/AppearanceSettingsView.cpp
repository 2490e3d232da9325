#include "Settings/AppearanceSettingsView.h"

#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <string>

namespace orvelle {

void AppearanceSettingsView::resetDefaults() {
    const auto write = [this](const auto& key) { defaults_.set(key.name, key.defaultValue); };
    const auto writeText = [this](const SettingKey<std::string_view>& key) {
        defaults_.set(key.name, std::string(key.defaultValue));
    };
    writeText(Settings::animationSpeed);
    write(Settings::showMediaInHover);
    write(Settings::showBatteryInHover);
    write(Settings::showWeatherInHover);
    write(Settings::showCalendarInHover);
    write(Settings::showPomodoroInHover);
    write(Settings::showSystemStatsInHover);
    writeText(Settings::themeMode);
    write(Settings::customAccentHue);
    write(Settings::customAccentSaturation);
    writeText(Settings::pomodoroTimerStyle);
}

} // namespace orvelle
