#include "Models/StockTicker.h"

#include "Models/JsonFields.h"

namespace orvelle {

Json StockTicker::json() const {
    return Json::Object{
        {"id", id.text()}, {"symbol", symbol}, {"name", name}, {"addedAt", addedAt.sinceReference}};
}

std::optional<StockTicker> StockTicker::fromJson(const Json& json) {
    const auto id = JsonFields::uuid(json, "id");
    auto symbol = JsonFields::text(json, "symbol");
    auto name = JsonFields::text(json, "name");
    const auto addedAt = JsonFields::date(json, "addedAt");
    if (!id || !symbol || !name || !addedAt)
        return std::nullopt;
    return StockTicker{*id, *std::move(symbol), *std::move(name), *addedAt};
}

Json StockQuote::json() const {
    return Json::Object{{"symbol", symbol},
                        {"price", price},
                        {"change", change},
                        {"changePercent", changePercent},
                        {"previousClose", previousClose}};
}

std::optional<StockQuote> StockQuote::fromJson(const Json& json) {
    auto symbol = JsonFields::text(json, "symbol");
    const auto price = JsonFields::number(json, "price");
    const auto change = JsonFields::number(json, "change");
    const auto changePercent = JsonFields::number(json, "changePercent");
    const auto previousClose = JsonFields::number(json, "previousClose");
    if (!symbol || !price || !change || !changePercent || !previousClose)
        return std::nullopt;
    return StockQuote{*std::move(symbol), *price, *change, *changePercent, *previousClose};
}

} // namespace orvelle
