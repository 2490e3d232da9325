#include "Features/Weather/WeatherCollapsedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Weather/WeatherManager.h"

namespace orvelle {

StyledSymbol WeatherCollapsedView::icon() const {
    return {.name = manager_.weather->conditionIcon(),
            .size = captionSize,
            .color = notchAccent,
            .mode = SymbolMode::hierarchical};
}

StyledText WeatherCollapsedView::temperature() const {
    return {manager_.weather->temperatureString(),
            {captionSize, FontWeight::regular, colors::white}};
}

} // namespace orvelle
