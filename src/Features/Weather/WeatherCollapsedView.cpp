#include "Features/Weather/WeatherCollapsedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Weather/WeatherManager.h"

namespace orvelle {

StyledSymbol WeatherCollapsedView::icon() const {
    return {manager_.weather->conditionIcon(), captionSize, notchAccent};
}

StyledText WeatherCollapsedView::temperature() const {
    return {manager_.weather->temperatureString(),
            {captionSize, FontWeight::regular, colors::white}};
}

} // namespace orvelle
