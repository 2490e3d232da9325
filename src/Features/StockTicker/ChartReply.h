#pragma once

#include "Models/StockTicker.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// The quote that a reply of the chart service holds, under the symbol that was asked for. None
/// when the price or the previous close is missing.
std::optional<StockQuote> parseQuote(std::string_view body, const std::string& symbol);

} // namespace orvelle
