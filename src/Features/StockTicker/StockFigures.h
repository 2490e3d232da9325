#pragma once

#include "Foundation/Color.h"
#include "Models/StockTicker.h"

#include <string>

namespace orvelle {

/// A quote's figures as the views write them.
namespace StockFigures {

std::string price(const StockQuote& quote);
/// Green without a loss, red with one.
Color color(const StockQuote& quote);
/// "▲" without a loss, "▼" with one.
std::string arrow(const StockQuote& quote);
/// Without a sign, which the arrow gives.
std::string percent(const StockQuote& quote);
/// Absolute and in percent, with a sign.
std::string change(const StockQuote& quote);

} // namespace StockFigures

} // namespace orvelle
