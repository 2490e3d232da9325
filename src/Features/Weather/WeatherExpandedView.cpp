#include "Features/Weather/WeatherExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Weather/WeatherManager.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"

#include <cmath>

namespace orvelle {

namespace {

StyledText whiteText(std::string text, double size, double opacity,
                     FontWeight weight = FontWeight::regular) {
    return {std::move(text), {size, weight, Color::white(1, opacity)}};
}

/// The small buttons of the bottom row.
StyledSymbol button(std::string_view name) {
    return {name, 9, Color::white(1, 0.4), FontWeight::bold};
}

WeatherExpandedView::Chip weatherChip(std::string_view icon, std::string value, std::string label) {
    return {{icon, 9, Color::white(1, 0.5)},
            whiteText(std::move(value), 11, 1, FontWeight::medium),
            whiteText(std::move(label), 8, 0.5)};
}

/// A whole number without the sign of a negative zero.
std::string rounded(double value) {
    return format("%.0f", std::nearbyint(value) + 0.0);
}

} // namespace

bool WeatherExpandedView::showsLoadingView() const {
    return manager_.isLoading && manager_.weather->locationName.empty();
}

StyledText WeatherExpandedView::loadingText() const {
    return {"Loading weather...", {captionSize, FontWeight::regular, notchSecondary}};
}

std::array<Color, 2> WeatherExpandedView::gradient() const {
    return gradientColors(manager_.weather->weatherCode, manager_.weather->isDay);
}

StyledSymbol WeatherExpandedView::watermark() const {
    return {.name = manager_.weather->conditionIcon(),
            .size = 64,
            .color = Color::white(1, 0.08),
            .mode = SymbolMode::hierarchical};
}

StyledSymbol WeatherExpandedView::icon() const {
    return {
        .name = manager_.weather->conditionIcon(), .size = 26, .mode = SymbolMode::hierarchical};
}

StyledText WeatherExpandedView::temperature() const {
    return whiteText(rounded(manager_.weather->temperature), 32, 1, FontWeight::thin);
}

StyledText WeatherExpandedView::degreeSign() const {
    return whiteText("°", 18, 0.7, FontWeight::thin);
}

StyledText WeatherExpandedView::condition() const {
    return whiteText(std::string(manager_.weather->conditionDescription()), 12, 0.9,
                     FontWeight::medium);
}

std::optional<StyledText> WeatherExpandedView::location() const {
    auto name = manager_.currentLocationName();
    if (name.empty())
        return std::nullopt;
    return whiteText(std::move(name), 10, 0.5);
}

std::array<WeatherExpandedView::Chip, 3> WeatherExpandedView::chips() const {
    const auto& weather = manager_.weather.get();
    return {weatherChip("thermometer"_symbol, rounded(weather.feelsLike) + "°", "Feels"),
            weatherChip("humidity"_symbol, std::to_string(weather.humidity) + "%", "Humid"),
            weatherChip("wind"_symbol, rounded(weather.windSpeed), "Wind")};
}

std::optional<WeatherExpandedView::LocationControl> WeatherExpandedView::locationControl() const {
    if (manager_.savedLocations->empty())
        return std::nullopt;
    std::vector<Color> dots(manager_.savedLocations->size() + 1, Color::white(1, 0.2));
    if (const std::size_t current = manager_.currentLocationIndex; current < dots.size())
        dots[current] = Color::white(1, 0.8);
    return LocationControl{button("chevron.left"_symbol), std::move(dots),
                           button("chevron.right"_symbol)};
}

StyledText WeatherExpandedView::updatedAgo() const {
    return whiteText(updatedAgoString(), 9, 0.3);
}

std::string WeatherExpandedView::updatedAgoString() const {
    const Seconds age = manager_.platform().runLoop().now() - manager_.weather->lastUpdated;
    const double minutes = std::trunc(age / 60);
    if (!(minutes >= 1))
        return "Updated just now";
    return minutes == 1 ? "Updated 1 min ago" : format("Updated %.0f min ago", minutes);
}

StyledSymbol WeatherExpandedView::refreshButton() const {
    return button("arrow.clockwise"_symbol);
}

bool WeatherExpandedView::isRefreshing() const {
    return manager_.isLoading;
}

double WeatherExpandedView::figuresOpacity() const {
    return manager_.hasFigures ? 1 : dimmedOpacity;
}

void WeatherExpandedView::showPreviousLocation() {
    manager_.cycleToPreviousLocation();
}

void WeatherExpandedView::showNextLocation() {
    manager_.cycleToNextLocation();
}

void WeatherExpandedView::refresh() {
    manager_.refreshWeather();
}

} // namespace orvelle
