#pragma once

#include "Foundation/Published.h"
#include "Platform/RunLoop.h"
#include "Views/Components/ProgressSpinner.h"
#include "Views/Components/TextStyle.h"

#include <cstddef>
#include <optional>

namespace orvelle {

class StockTickerManager;
struct StockTicker;

/// One symbol at a time with its quote, in a line. Steps to the next every three seconds while it
/// is on the screen.
class StockTickerCycleView {
public:
    struct Figures {
        StyledText price;
        StyledText arrow;
        StyledText percent;
        bool operator==(const Figures&) const = default;
    };
    struct Content {
        StyledText symbol;
        std::optional<Figures> figures;
        std::optional<StyledText> missing{}; ///< no quote came; a spinner stands without either
        bool operator==(const Content&) const = default;
    };

    static constexpr Seconds cycleInterval = 3;
    /// Of a step, easing in and out: one row leaves downwards while the next comes up from there.
    static constexpr Seconds stepDuration = 0.3;
    static constexpr double spacing = 3; ///< points
    static constexpr ProgressSpinner spinner{.scale = 0.4, .frame = 12};

    explicit StockTickerCycleView(const StockTickerManager& manager) : manager_(manager) {}

    Published<std::size_t> currentIndex{0};
    /// Runs when at least two symbols were there as the line appeared; a second one that arrives
    /// later is shown from the next appearance on.
    Timer timer;

    /// The view comes onto the screen, or leaves it.
    void appear();
    void disappear();

    /// Stands alone while the list is empty.
    std::optional<StyledSymbol> emptySymbol() const;
    /// None when there is nothing at the index.
    std::optional<Content> tickerContent() const;

private:
    void tickersChanged(std::size_t count);
    void startCycling();

    const StockTickerManager& manager_;
    std::size_t shownCount_ = 0;
    Subscription tickers_;
};

} // namespace orvelle
