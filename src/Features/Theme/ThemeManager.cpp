#include "Features/Theme/ThemeManager.h"

#include "Models/ThemeMode.h"
#include "Platform/Appearance.h"
#include "Platform/Screens.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace orvelle {

namespace {
constexpr double customBrightness = 0.9;
}

ThemeManager::ThemeManager(Platform& platform)
    : themeMode(platform.userDefaults(), Settings::themeMode),
      customAccentHue(platform.userDefaults(), Settings::customAccentHue),
      customAccentSaturation(platform.userDefaults(), Settings::customAccentSaturation),
      systemAccentRefresh(UUID::random()), platform_(platform) {
    observeSystemAccentChanges();
}

Color ThemeManager::accentColor() const {
    if (themeModeFrom(themeMode.get()) == ThemeMode::custom)
        return Color::hsb(customAccentHue.get(), std::clamp(customAccentSaturation.get(), 0.0, 1.0),
                          customBrightness);
    return platform_.appearance().controlAccentColor();
}

Subscription ThemeManager::observe(std::function<void(const ThemeManager&)> changed) const {
    const auto tell = [this, changed = std::move(changed)](const auto&) { changed(*this); };
    const auto sources = std::make_shared<std::vector<Subscription>>();
    sources->push_back(themeMode.observe(tell));
    sources->push_back(customAccentHue.observe(tell));
    sources->push_back(customAccentSaturation.observe(tell));
    sources->push_back(systemAccentRefresh.observe(tell));
    return Subscription([sources] { sources->clear(); });
}

void ThemeManager::observeSystemAccentChanges() {
    const auto refresh = [this] { systemAccentRefresh = UUID::random(); };
    screensObserver_ = platform_.screens().observeChanges(refresh);
    appearanceObserver_ = platform_.appearance().observeSystemColorsChanges(refresh);
}

} // namespace orvelle
