#include "Settings/GeneralSettingsView.h"

#include "App/Constants.h"
#include "Features/UpdateChecker/UpdateChecker.h"
#include "Foundation/Format.h"
#include "Models/NotchState.h"
#include "Models/Symbol.h"
#include "Platform/Workspace.h"
#include "Settings/LaunchAtLogin.h"
#include "Settings/SettingsReset.h"

#include <utility>

namespace orvelle {

namespace {

/// A reset chooses a calmer collapse than the first use, on purpose.
constexpr double collapseDebounceAfterReset = 0.4;
constexpr double updateSymbolSize = 14;

std::string seconds(double value) {
    return format("%.2fs", value);
}

std::string wholeNumber(double value) {
    return format("%.0f", value);
}

SettingsRow aboutRow() {
    SettingsRow row;
    row.kind = SettingsRow::Kind::about;
    row.id = "about";
    row.label = "Orvelle";
    row.detail = "Version " + std::string(AppConstants::version);
    return row;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(const SettingsEnvironment& environment, Platform& platform)
    : SettingsPage(platform.userDefaults()), environment_(environment), platform_(platform),
      clickWidgetObserver_(environment.notch.notchState.clickWidgetNavigatesToPanel.observe(
          [this](bool) { refresh(); })) {
    const auto& checker = environment.updateChecker;
    for (const auto* state : {&checker.updateAvailable, &checker.isChecking, &checker.hasChecked})
        updateObservers_.push_back(state->observe([this](bool) { refresh(); }));
}

std::vector<SettingsRow> GeneralSettingsView::makeRows() const {
    return {
        titleRow("Startup"),
        toggleRow("Launch at Login", Settings::launchAtLogin),
        toggleRow("Show Menu Bar Icon", Settings::showInMenuBar),
        footnoteRow("startupNote",
                    "The menu bar icon provides quick access to settings and controls."),
        titleRow("Behavior"),
        clickWidgetRow(),
        toggleRow("Todo Swipe Actions", Settings::todoSwipeActionsEnabled),
        toggleRow("Reverse Scroll Direction", Settings::reverseScrollDirection),
        toggleRow("Require Real Notch", Settings::requireRealNotch),
        footnoteRow("behaviorNote",
                    "Click Widget: expand directly to that panel. Todo Swipe: swipe right to "
                    "complete, left to delete. Reverse Scroll: enable if you don't use natural "
                    "scrolling. Require Real Notch: when enabled, only shows on MacBook screens "
                    "with a physical notch."),
        titleRow("Interaction Tuning"),
        tuningRow("Hover Delay", Settings::hoverActivationDelay, {0, 0.5, 0.05}, seconds, 44),
        tuningRow("Scroll Sensitivity", Settings::scrollSensitivity, {2, 30, 1}, wholeNumber, 28),
        tuningRow("Swipe Sensitivity", Settings::horizontalSwipeSensitivity, {5, 40, 1},
                  wholeNumber, 28),
        tuningRow("Collapse Delay", Settings::collapseDebounceInterval, {0.05, 0.5, 0.05}, seconds,
                  44),
        tuningRow("Swipe Cooldown", Settings::swipeCooldown, {0.1, 1, 0.1}, seconds, 36),
        footnoteRow("tuningNote",
                    "Fine-tune hover timing and gesture sensitivity. Lower scroll/swipe values = "
                    "more sensitive. Lower hover delay = faster activation."),
        titleRow("Updates"),
        updateRow(),
        gapRow("reportGap"),
        buttonRow(std::string(report), "Report a Bug"),
        footnoteRow("reportNote", "Opens your email client with system info pre-filled."),
        gapRow("resetGap"),
        resetRow(std::string(reset), "Reset All Settings to Defaults"),
        footnoteRow("resetNote", "This resets General, Appearance, and Feature settings."),
        aboutRow(),
    };
}

SettingsRow GeneralSettingsView::tuningRow(std::string label, const SettingKey<double>& key,
                                           SettingsRange range, std::string (*valueText)(double),
                                           double valueWidth) const {
    auto row = sliderRow(std::move(label), key, range);
    row.valueText = valueText(row.value);
    row.valueWidth = valueWidth;
    return row;
}

SettingsRow GeneralSettingsView::clickWidgetRow() const {
    auto row = toggleRow("Click Widget Opens Its Panel", Settings::clickWidgetNavigatesToPanel);
    row.isOn = environment_.notch.notchState.clickWidgetNavigatesToPanel;
    return row;
}

SettingsRow GeneralSettingsView::updateRow() const {
    const auto& checker = environment_.updateChecker;
    auto row = buttonRow(std::string(update), "Check Now");
    row.label = "Not checked yet";
    if (checker.isChecking)
        row.detail = "Checking…";
    if (checker.hasChecked) {
        row.label = "Up to date";
        row.symbol = StyledSymbol{"checkmark.circle.fill"_symbol, updateSymbolSize, colors::green};
    }
    if (checker.updateAvailable) {
        row.label = "Update available: v" + checker.latestVersion.get().value_or("");
        row.button = "Download";
        row.symbol = StyledSymbol{"arrow.down.circle.fill"_symbol, updateSymbolSize, colors::blue};
    }
    return row;
}

void GeneralSettingsView::setOn(std::string_view id, bool on) {
    if (id == Settings::launchAtLogin.name)
        updateLaunchAtLogin(on);
    else if (id == Settings::clickWidgetNavigatesToPanel.name)
        environment_.notch.notchState.clickWidgetNavigatesToPanel = on;
    else
        SettingsPage::setOn(id, on);
}

void GeneralSettingsView::updateLaunchAtLogin(bool enabled) {
    setLaunchAtLogin(platform_, enabled);
    refresh(); // also when nothing changed, so that the switch goes back
}

void GeneralSettingsView::pressed(std::string_view id) {
    if (id == update)
        pressUpdate();
    else if (id == report)
        environment_.reportBug();
    else if (id == reset)
        resetWithUndo(
            defaults_, &environment_.undo, "Settings reset", [this] { resetDefaults(); },
            // The page may be gone by then.
            [&platform = platform_] {
                const auto& key = Settings::launchAtLogin.name;
                if (platform.userDefaults().boolean(key) && !setLaunchAtLogin(platform, true))
                    platform.userDefaults().set(key, false);
            });
}

void GeneralSettingsView::pressUpdate() {
    auto& checker = environment_.updateChecker;
    if (!checker.updateAvailable)
        checker.check();
    else if (const auto& url = checker.downloadURL.get())
        platform_.workspace().openFromNetwork(*url);
}

void GeneralSettingsView::resetDefaults() {
    const auto write = [this](const auto& key) { defaults_.set(key.name, key.defaultValue); };
    write(Settings::launchAtLogin);
    write(Settings::showInMenuBar);
    updateLaunchAtLogin(false);
    write(Settings::hoverActivationDelay);
    write(Settings::scrollSensitivity);
    write(Settings::horizontalSwipeSensitivity);
    defaults_.set(Settings::collapseDebounceInterval.name, collapseDebounceAfterReset);
    write(Settings::swipeCooldown);
    write(Settings::reverseScrollDirection);
    write(Settings::requireRealNotch);
}

} // namespace orvelle
