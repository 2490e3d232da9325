#include "Features/Battery/BatteryPanelView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Battery/BatteryActions.h"
#include "Features/Battery/BatteryManager.h"

#include <string>

namespace orvelle {

BatteryPanelView::BatteryPanelView(const BatteryManager& manager, Platform& platform)
    : manager_(manager), platform_(platform) {}

StyledSymbol BatteryPanelView::icon() const {
    return {manager_.batteryIcon(), 28, manager_.batteryColor()};
}

StyledText BatteryPanelView::title() const {
    const auto text =
        manager_.hasBattery ? std::to_string(manager_.batteryLevel) + "%" : std::string("AC Power");
    return {text, {22, FontWeight::bold, colors::white}};
}

StyledText BatteryPanelView::subtitle() const {
    const auto text = manager_.hasBattery ? manager_.statusString() : "Desktop — no battery";
    return {std::string(text), {12, FontWeight::regular, notchSecondary}};
}

std::optional<AnimatedSlider> BatteryPanelView::level() const {
    if (!manager_.hasBattery)
        return std::nullopt;
    return AnimatedSlider{.value = static_cast<double>(manager_.batteryLevel),
                          .lowerBound = 0,
                          .upperBound = 100,
                          .tintColor = manager_.batteryColor(),
                          .height = 6,
                          .showThumb = false};
}

std::optional<BatteryPanelView::Estimate> BatteryPanelView::estimate() const {
    if (!manager_.hasBattery || manager_.timeRemaining <= 0)
        return std::nullopt;
    return Estimate{
        {manager_.timeRemainingString(), {13, FontWeight::medium, colors::white}},
        {"remaining", {11, FontWeight::regular, notchTertiary}},
    };
}

std::vector<MenuEntry> BatteryPanelView::contextMenu() const {
    auto& platform = platform_;
    return {
        {"Lock Screen", [&platform] { BatteryActions::lockScreen(platform); }},
        {"Sleep Display", [&platform] { BatteryActions::sleepDisplay(platform); }},
        {"Energy Settings...", [&platform] { BatteryActions::openEnergySettings(platform); }},
    };
}

} // namespace orvelle
