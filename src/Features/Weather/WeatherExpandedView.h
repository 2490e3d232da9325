#pragma once

#include "Features/Weather/WeatherGradient.h"
#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Views/Components/ProgressSpinner.h"
#include "Views/Components/TextStyle.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

class WeatherManager;

/// The weather's panel: a card in the colours of the sky with the conditions, three chips below
/// them, and a row to leaf through the places and to refresh. Lengths are points.
class WeatherExpandedView {
public:
    struct Chip {
        StyledSymbol icon;
        StyledText value;
        StyledText label;
        bool operator==(const Chip&) const = default;
    };
    /// Two arrows around one dot for each place, the machine's own first.
    struct LocationControl {
        StyledSymbol previous;
        std::vector<Color> dots;
        StyledSymbol next;
        bool operator==(const LocationControl&) const = default;
    };

    explicit WeatherExpandedView(WeatherManager& manager) : manager_(manager) {}

    static constexpr double loadingSpacing = 8;
    static constexpr double cornerRadius = 10;
    static constexpr double gradientOpacity = 0.35;
    static constexpr double padding = 10;
    static constexpr double spacing = 6;
    static constexpr double trailingTopPadding = 4;
    static constexpr double trailingSpacing = 2;
    static constexpr double chipSpacing = 8;
    static constexpr double chipContentSpacing = 4;
    static constexpr double chipHorizontalPadding = 8;
    static constexpr double chipVerticalPadding = 4;
    static constexpr double chipRadius = 6;
    static constexpr Color chipFill = Color::white(1, 0.08);
    static constexpr double dotSpacing = 3;
    static constexpr double dotSize = 4;
    static constexpr double dimmedOpacity = 0.35;
    static constexpr Seconds dimming = 0.15;

    /// Nothing was ever fetched, and the first fetch is under way.
    bool showsLoadingView() const;
    ProgressSpinner loadingSpinner() const { return {.scale = 0.7}; }
    StyledText loadingText() const;

    /// Stands behind the card, at `gradientOpacity`.
    std::array<Color, 2> gradient() const;
    StyledSymbol watermark() const;
    StyledSymbol icon() const;
    StyledText temperature() const;
    StyledText degreeSign() const;
    StyledText condition() const;
    /// None without a name.
    std::optional<StyledText> location() const;
    std::array<Chip, 3> chips() const;
    /// None without saved places.
    std::optional<LocationControl> locationControl() const;
    /// The age of the record at this moment.
    StyledText updatedAgo() const;
    std::string updatedAgoString() const;
    StyledSymbol refreshButton() const;
    bool isRefreshing() const;
    /// Dim while they are not those of the place that is shown.
    double figuresOpacity() const;

    void showPreviousLocation();
    void showNextLocation();
    void refresh();

private:
    WeatherManager& manager_;
};

} // namespace orvelle
