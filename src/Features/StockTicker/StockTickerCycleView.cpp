#include "Features/StockTicker/StockTickerCycleView.h"

#include "Features/StockTicker/StockFigures.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Models/Symbol.h"

#include <algorithm>

namespace orvelle {

namespace {

StyledText monospaced(std::string text, double size, Color color,
                      FontWeight weight = FontWeight::regular) {
    return {std::move(text), {size, weight, color, FontDesign::monospaced}};
}

} // namespace

void StockTickerCycleView::appear() {
    shownCount_ = 0;
    tickers_ =
        manager_.tickers.observe([this](const auto& tickers) { tickersChanged(tickers.size()); });
}

void StockTickerCycleView::disappear() {
    tickers_.reset();
    timer.reset();
}

void StockTickerCycleView::tickersChanged(std::size_t count) {
    const bool lineAppears = shownCount_ == 0 && count > 0;
    shownCount_ = count;
    if (currentIndex >= count && currentIndex != 0)
        currentIndex = 0;
    if (count == 0)
        timer.reset();
    else if (lineAppears)
        startCycling();
}

void StockTickerCycleView::startCycling() {
    if (manager_.tickers->size() < 2)
        return;
    timer = manager_.platform().runLoop().every(cycleInterval, [this] {
        const auto count = std::max<std::size_t>(manager_.tickers->size(), 1);
        currentIndex = (currentIndex + 1) % count;
    });
}

std::optional<StyledSymbol> StockTickerCycleView::emptySymbol() const {
    if (!manager_.tickers->empty())
        return std::nullopt;
    return StyledSymbol{"chart.line.uptrend.xyaxis"_symbol, 10, Color::white(1, 0.7)};
}

std::optional<StockTickerCycleView::Content> StockTickerCycleView::tickerContent() const {
    const auto& tickers = manager_.tickers.get();
    if (currentIndex >= tickers.size())
        return std::nullopt;
    const auto& symbol = tickers[currentIndex].symbol;
    Content content{monospaced(symbol, 10, colors::white, FontWeight::bold), {}, {}};
    if (const auto found = manager_.quotes->find(symbol); found != manager_.quotes->end()) {
        const auto& quote = found->second;
        const auto color = StockFigures::color(quote);
        content.figures = Figures{monospaced(StockFigures::price(quote), 10, Color::white(1, 0.8)),
                                  monospaced(StockFigures::arrow(quote), 7, color),
                                  monospaced(StockFigures::percent(quote), 10, color)};
    } else if (manager_.failures->contains(symbol)) {
        content.missing = monospaced("–", 10, Color::white(1, 0.6));
    }
    return content;
}

} // namespace orvelle
