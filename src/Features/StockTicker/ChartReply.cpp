#include "Features/StockTicker/ChartReply.h"

#include "Foundation/JsonRecord.h"

#include <cmath>

namespace orvelle {

namespace {

const Json* firstResult(const Json& document) {
    const auto* chart = document.find("chart");
    const auto* result = chart ? chart->find("result") : nullptr;
    const auto* list = result ? result->array() : nullptr;
    return list && !list->empty() ? &list->front() : nullptr;
}

std::optional<double> number(const Json& record, std::string_view key) {
    const auto* member = record.find(key);
    return member ? member->number() : std::nullopt;
}

} // namespace

std::optional<StockQuote> parseQuote(std::string_view body, const std::string& symbol) {
    const auto document = JsonReply::parse(body);
    const auto* result = document ? firstResult(*document) : nullptr;
    const auto* meta = result ? result->find("meta") : nullptr;
    if (!meta)
        return std::nullopt;
    const auto price = number(*meta, "regularMarketPrice");
    auto previousClose = number(*meta, "chartPreviousClose");
    if (!previousClose)
        previousClose = number(*meta, "previousClose");
    if (!price || !previousClose)
        return std::nullopt;

    const double change = *price - *previousClose;
    const double changePercent = *previousClose == 0 ? 0 : change / *previousClose * 100;
    if (!std::isfinite(change) || !std::isfinite(changePercent))
        return std::nullopt; // figures that no market has
    return StockQuote{symbol, *price, change, changePercent, *previousClose};
}

} // namespace orvelle
