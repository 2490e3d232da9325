#include "Settings/GeneralSettingsView.h"

#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

#include <utility>

namespace orvelle {

namespace {

/// A reset chooses a calmer collapse than the first use, on purpose.
constexpr double collapseDebounceAfterReset = 0.4;

} // namespace

GeneralSettingsView::GeneralSettingsView(UserDefaults& defaults,
                                         std::function<void(bool)> updateLaunchAtLogin)
    : defaults_(defaults), updateLaunchAtLogin_(std::move(updateLaunchAtLogin)) {}

void GeneralSettingsView::resetDefaults() {
    const auto write = [this](const auto& key) { defaults_.set(key.name, key.defaultValue); };
    write(Settings::launchAtLogin);
    write(Settings::showInMenuBar);
    updateLaunchAtLogin_(false);
    write(Settings::hoverActivationDelay);
    write(Settings::scrollSensitivity);
    write(Settings::horizontalSwipeSensitivity);
    defaults_.set(Settings::collapseDebounceInterval.name, collapseDebounceAfterReset);
    write(Settings::swipeCooldown);
    write(Settings::reverseScrollDirection);
    write(Settings::requireRealNotch);
}

} // namespace orvelle
