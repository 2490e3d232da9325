#pragma once

#include "Foundation/Date.h"
#include "Foundation/UUID.h"

#include <string>

namespace orvelle {

/// A symbol that the user follows.
struct StockTicker {
    UUID id;
    std::string symbol; ///< upper case
    std::string name;
    Date addedAt;
    bool operator==(const StockTicker&) const = default;
};

struct StockQuote {
    std::string symbol;
    double price = 0;
    double change = 0;        ///< absolute
    double changePercent = 0; ///< of the previous close
    double previousClose = 0;
    bool operator==(const StockQuote&) const = default;
};

} // namespace orvelle
