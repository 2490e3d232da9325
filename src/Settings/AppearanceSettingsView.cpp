#include "Settings/AppearanceSettingsView.h"

#include "Models/ThemeMode.h"
#include "Settings/SettingsReset.h"

#include <utility>

namespace orvelle {

namespace {

constexpr double colorLabelWidth = 90;
constexpr double swatchBrightness = 0.9;
constexpr SettingsRange fraction{0, 1, 0.01};

} // namespace

AppearanceSettingsView::AppearanceSettingsView(Platform& platform, UndoOffer* undo)
    : SettingsPage(platform.userDefaults()), undo_(undo) {
    refresh();
}

std::vector<SettingsRow> AppearanceSettingsView::makeRows() const {
    std::vector<SettingsRow> list{
        titleRow("Display"),
        toggleRow("Now Playing", Settings::showMediaInHover),
        toggleRow("Battery", Settings::showBatteryInHover),
        toggleRow("Weather", Settings::showWeatherInHover),
        toggleRow("Calendar", Settings::showCalendarInHover),
        toggleRow("Pomodoro", Settings::showPomodoroInHover),
        toggleRow("System Stats", Settings::showSystemStatsInHover),
        titleRow("Pomodoro Timer Style"),
        pickerRow("Style", Settings::pomodoroTimerStyle,
                  {{"digital", "Digital"},
                   {"ring", "Ring"},
                   {"analog", "Analog"},
                   {"minimal", "Minimal"}}),
        titleRow("Color Theme"),
    };
    auto mode =
        pickerRow("Mode", Settings::themeMode,
                  {{"system", "System"}, {"custom", "Custom"}, {"multicolor", "Multicolor"}});
    const auto chosen = mode.choice;
    list.push_back(std::move(mode));
    appendMode(list, chosen);
    list.push_back(titleRow("Animation"));
    list.push_back(pickerRow("Speed", Settings::animationSpeed,
                             {{"slow", "Slow"}, {"normal", "Normal"}, {"fast", "Fast"}}));
    list.push_back(gapRow("resetGap"));
    list.push_back(resetRow(std::string(reset), "Reset Appearance"));
    return list;
}

void AppearanceSettingsView::appendMode(std::vector<SettingsRow>& list,
                                        std::string_view mode) const {
    switch (themeModeFrom(mode).value_or(ThemeMode::system)) {
    case ThemeMode::system:
        return;
    case ThemeMode::multicolor: {
        SettingsRow row;
        row.id = "multicolorText";
        row.label = "Colors adapt to each feature — artwork for media, phase for pomodoro, and "
                    "more.";
        list.push_back(std::move(row));
        return;
    }
    case ThemeMode::custom:
        break;
    }
    list.push_back(colorRow("Hue", Settings::customAccentHue));
    const double hue = list.back().value;
    list.push_back(colorRow("Saturation", Settings::customAccentSaturation));
    const double saturation = list.back().value;
    SettingsRow swatch;
    swatch.kind = SettingsRow::Kind::swatch;
    swatch.id = "accentPreview";
    swatch.label = "Accent color preview";
    swatch.indent = colorLabelWidth;
    swatch.color = Color::hsb(hue, saturation, swatchBrightness);
    list.push_back(std::move(swatch));
}

SettingsRow AppearanceSettingsView::colorRow(std::string label,
                                             const SettingKey<double>& key) const {
    auto row = sliderRow(std::move(label), key, fraction);
    row.labelWidth = colorLabelWidth;
    return row;
}

void AppearanceSettingsView::pressed(std::string_view id) {
    if (id == reset)
        resetWithUndo(defaults_, undo_, "Appearance reset", [this] { resetDefaults(); });
}

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
