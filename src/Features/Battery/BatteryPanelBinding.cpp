#include "Features/Battery/BatteryPanelBinding.h"

#include "Features/Battery/BatteryManager.h"

namespace orvelle {

void BatteryPanelBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.batteryManager;
    view_.emplace(manager, environment.platform);
    follow(manager.batteryLevel, manager.isCharging, manager.isPluggedIn, manager.hasBattery,
           manager.timeRemaining);
}

void BatteryPanelBinding::refresh() {
    show_icon(toQt(view_->icon()));
    show_title(toQt(view_->title()));
    show_subtitle(toQt(view_->subtitle()));
    show_level(toQt(view_->level()));
    const auto estimate = view_->estimate();
    show_estimate(estimate ? QVariant::fromValue(BatteryEstimateValue{toQt(estimate->time),
                                                                      toQt(estimate->caption)})
                           : QVariant());
}

MenuValue BatteryPanelBinding::contextMenu() const {
    return {view_->contextMenu()};
}

} // namespace orvelle
