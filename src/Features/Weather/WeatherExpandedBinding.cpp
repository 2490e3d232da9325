#include "Features/Weather/WeatherExpandedBinding.h"

#include "Features/Weather/WeatherManager.h"

namespace orvelle {

static QVariant toQt(const std::optional<WeatherExpandedView::LocationControl>& control) {
    if (!control)
        return {};
    QVariantList dots;
    for (const auto& dot : control->dots)
        dots.append(toQt(dot));
    return QVariant::fromValue(
        LocationControlValue{toQt(control->previous), dots, toQt(control->next)});
}

void WeatherExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.weatherManager;
    view_.emplace(manager);
    follow(manager.weather, manager.hasFigures, manager.isLoading, manager.savedLocations,
           manager.currentLocationIndex);
}

void WeatherExpandedBinding::refresh() {
    show_loadingSpinner(orvelle::toQt(view_->loadingSpinner()));
    show_loadingText(orvelle::toQt(view_->loadingText()));
    show_showsLoadingView(view_->showsLoadingView());
    const auto sky = view_->gradient();
    show_skyStart(orvelle::toQt(sky[0]));
    show_skyEnd(orvelle::toQt(sky[1]));
    show_watermark(orvelle::toQt(view_->watermark()));
    show_icon(orvelle::toQt(view_->icon()));
    show_temperature(orvelle::toQt(view_->temperature()));
    show_degreeSign(orvelle::toQt(view_->degreeSign()));
    show_condition(orvelle::toQt(view_->condition()));
    show_location(orvelle::toQt(view_->location()));
    std::vector<WeatherChipValue> chips;
    for (const auto& chip : view_->chips())
        chips.push_back({orvelle::toQt(std::string_view(chip.label.text)), orvelle::toQt(chip.icon),
                         orvelle::toQt(chip.value), orvelle::toQt(chip.label)});
    chips_.show(chips);
    show_locationControl(toQt(view_->locationControl()));
    show_updatedAgo(orvelle::toQt(view_->updatedAgo()));
    show_isRefreshing(view_->isRefreshing());
    show_figuresOpacity(view_->figuresOpacity());
    show_refreshButton(orvelle::toQt(view_->refreshButton()));
}

void WeatherExpandedBinding::showPreviousLocation() {
    view_->showPreviousLocation();
}

void WeatherExpandedBinding::showNextLocation() {
    view_->showNextLocation();
}

void WeatherExpandedBinding::reload() {
    view_->refresh();
}

} // namespace orvelle
