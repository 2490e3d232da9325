#include "Features/StockTicker/StockFigures.h"

#include "Foundation/Format.h"

#include <cmath>

namespace orvelle::StockFigures {

namespace {

bool isLoss(const StockQuote& quote) {
    return quote.change < 0;
}

} // namespace

std::string price(const StockQuote& quote) {
    return format("$%.2f", quote.price);
}

Color color(const StockQuote& quote) {
    return isLoss(quote) ? colors::red : colors::green;
}

std::string arrow(const StockQuote& quote) {
    return isLoss(quote) ? "▼" : "▲";
}

std::string percent(const StockQuote& quote) {
    return format("%.1f%%", std::abs(quote.changePercent));
}

std::string change(const StockQuote& quote) {
    return format("%s%.2f (%.2f%%)", isLoss(quote) ? "" : "+", quote.change, quote.changePercent);
}

} // namespace orvelle::StockFigures
