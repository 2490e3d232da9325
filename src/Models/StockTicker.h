#pragma once

#include "Foundation/Date.h"
#include "Foundation/Json.h"
#include "Foundation/UUID.h"

#include <optional>
#include <string>

namespace orvelle {

/// A symbol that the user follows.
struct StockTicker {
    UUID id;
    std::string symbol; ///< upper case
    std::string name;   ///< the company's; empty in every ticker that the program adds
    Date addedAt;
    bool operator==(const StockTicker&) const = default;

    /// The stored form.
    Json json() const;
    static std::optional<StockTicker> fromJson(const Json& json);
};

/// What a symbol is worth now.
struct StockQuote {
    std::string symbol;
    double price = 0;
    double change = 0;        ///< absolute
    double changePercent = 0; ///< of the previous close
    double previousClose = 0;
    bool operator==(const StockQuote&) const = default;

    Json json() const;
    static std::optional<StockQuote> fromJson(const Json& json);
};

} // namespace orvelle
