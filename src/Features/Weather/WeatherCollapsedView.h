#pragma once

#include "Views/Components/TextStyle.h"

namespace orvelle {

class WeatherManager;

/// The conditions in a row: icon and temperature.
class WeatherCollapsedView {
public:
    explicit WeatherCollapsedView(const WeatherManager& manager) : manager_(manager) {}

    StyledSymbol icon() const;
    StyledText temperature() const;

private:
    const WeatherManager& manager_;
};

} // namespace orvelle
