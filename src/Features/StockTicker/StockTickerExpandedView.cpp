#include "Features/StockTicker/StockTickerExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/StockTicker/StockFigures.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Foundation/Text.h"
#include "Models/Symbol.h"

#include <algorithm>

namespace orvelle {

namespace {

StyledText monospaced(std::string text, double size, FontWeight weight, Color color) {
    return {std::move(text), {size, weight, color, FontDesign::monospaced}};
}

} // namespace

StockTickerRowContent::StockTickerRowContent(const StockTicker& ticker,
                                             const std::optional<StockQuote>& quote,
                                             std::optional<QuoteFailure> failure)
    : id(ticker.id.text()), symbol(monospaced(ticker.symbol, 12, FontWeight::bold, colors::white)) {
    if (!ticker.name.empty())
        name = StyledText{ticker.name, {10, FontWeight::regular, notchSecondary}};
    if (quote)
        figures =
            Figures{monospaced(StockFigures::price(*quote), 12, FontWeight::regular, colors::white),
                    monospaced(StockFigures::change(*quote), 10, FontWeight::regular,
                               StockFigures::color(*quote))};
    else if (failure)
        missing =
            StyledText{*failure == QuoteFailure::unknownSymbol ? "Unknown symbol" : "No quote",
                       {10, FontWeight::regular, notchSecondary}};
}

StockTickerRowContent::Figures StockTickerRowContent::blankFigures() {
    return {monospaced({}, 12, FontWeight::regular, colors::white),
            monospaced({}, 10, FontWeight::regular, colors::white)};
}

StyledText StockTickerExpandedView::fieldPlaceholder() const {
    return {"Add symbol (e.g. AAPL)...", {12, FontWeight::regular, notchFaint}};
}

TextStyle StockTickerExpandedView::fieldStyle() const {
    return {12, FontWeight::regular, colors::white};
}

StyledSymbol StockTickerExpandedView::addButton() const {
    return {"plus.circle.fill"_symbol, 16, colors::mint};
}

bool StockTickerExpandedView::canAdd(std::string_view text) const {
    return !Text::trimmingBlanks(text).empty();
}

void StockTickerExpandedView::addTicker(std::string_view text) {
    manager_.addTicker(text);
}

std::optional<FilePlaceholder> StockTickerExpandedView::placeholder() const {
    if (!manager_.tickers->empty())
        return std::nullopt;
    return FilePlaceholder{{"chart.line.uptrend.xyaxis"_symbol, 24, notchTertiary},
                           {"No stocks added", {12, FontWeight::regular, notchSecondary}}};
}

std::vector<StockTickerRowContent> StockTickerExpandedView::rows() const {
    std::vector<StockTickerRowContent> rows;
    const auto& quotes = manager_.quotes.get();
    const auto& failures = manager_.failures.get();
    for (const auto& ticker : manager_.tickers.get()) {
        const auto quote = quotes.find(ticker.symbol);
        const auto failure = failures.find(ticker.symbol);
        rows.emplace_back(
            ticker, quote == quotes.end() ? std::nullopt : std::optional(quote->second),
            failure == failures.end() ? std::nullopt : std::optional(failure->second));
    }
    return rows;
}

SwipeAction StockTickerExpandedView::deleteAction() const {
    return {"Delete", "trash"_symbol, colors::red};
}

void StockTickerExpandedView::remove(std::string_view id) {
    const auto& tickers = manager_.tickers.get();
    const auto found = std::ranges::find_if(
        tickers, [&](const StockTicker& ticker) { return ticker.id.text() == id; });
    if (found != tickers.end())
        manager_.removeTicker(*found);
}

std::vector<MenuEntry> StockTickerExpandedView::contextMenu() const {
    auto& manager = manager_;
    return {{"Refresh Quotes", [&manager] { manager.refreshQuotes(); }}};
}

} // namespace orvelle
