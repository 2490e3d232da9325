#include "Features/StockTicker/StockTickerManager.h"

#include "Features/StockTicker/ChartReply.h"
#include "Foundation/Format.h"
#include "Foundation/Text.h"
#include "Foundation/Url.h"
#include "Models/Symbol.h"
#include "Platform/HttpClient.h"

#include <algorithm>

namespace orvelle {

namespace {

constexpr Seconds quoteTimeout = 10;
constexpr int statusNotFound = 404; ///< the service's answer to a symbol that it does not know
/// The service refuses programs that do not call themselves a browser.
constexpr const char* userAgent = "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7)";

} // namespace

StockTickerManager::StockTickerManager(Platform& platform)
    : FeatureModule("stockTicker", "Stocks", std::string("chart.line.uptrend.xyaxis"_symbol), true,
                    [this](const bool& enabled) {
                        if (enabled)
                            start();
                        else
                            refreshTimer.reset();
                    }),
      platform_(platform), log_(platform.log(), "StockTickerManager"),
      file_(platform, "stock_tickers.json", {&StockTicker::fromJson, &StockTicker::json, "symbol"},
            {[this](std::vector<StockTicker> merged) { tickers = std::move(merged); },
             [this](const std::string& reason) {
                 log_.error("Failed to save stock tickers: " + reason);
             }}) {
    loadTickers();
}

void StockTickerManager::start() {
    if (!isEnabled)
        return;
    refreshQuotes();
    refreshTimer = platform_.runLoop().every(refreshInterval, [this] { refreshQuotes(); });
}

void StockTickerManager::addTicker(std::string_view symbol) {
    const auto wanted = Text::capitals(Text::trimmingBlanks(symbol));
    if (wanted.empty())
        return;
    const auto isWanted = [&](const StockTicker& ticker) { return ticker.symbol == wanted; };
    if (std::ranges::any_of(tickers.get(), isWanted))
        return;
    tickers.update([&](auto& list) {
        list.push_back({UUID::random(), wanted, {}, platform_.runLoop().now()});
    });
    saveTickers();
    failures.update([&](auto& known) { known.erase(wanted); });
    fetchQuote(wanted);
}

void StockTickerManager::removeTicker(const StockTicker& ticker) {
    const auto removed = ticker; // it may be the very entry
    tickers.update([&](auto& list) {
        std::erase_if(list, [&](const StockTicker& each) { return each.id == removed.id; });
    });
    quotes.update([&](auto& known) { known.erase(removed.symbol); });
    saveTickers();
}

void StockTickerManager::refreshQuotes() {
    for (const auto& ticker : tickers.get())
        fetchQuote(ticker.symbol);
}

void StockTickerManager::loadTickers() {
    auto loading = file_.load();
    if (!loading.problem.empty())
        log_.error("Failed to load stock tickers: " + loading.problem);
    else
        tickers = std::move(loading.records);
}

void StockTickerManager::saveTickers() {
    file_.save(tickers.get());
}

void StockTickerManager::fetchQuote(const std::string& symbol) {
    HttpRequest request{.url =
                            roots_.chart + "/v8/finance/chart/" + symbol + "?range=1d&interval=1d",
                        .headers = {{"User-Agent", userAgent}},
                        .timeout = quoteTimeout};
    if (!Url::isValid(request.url)) {
        failed(symbol, QuoteFailure::unknownSymbol);
        return;
    }
    requests_.start([&](auto finished) {
        return platform_.httpClient().get(std::move(request),
                                          [this, symbol, finished](const HttpReply& reply) {
                                              finished();
                                              received(reply, symbol);
                                          });
    });
}

void StockTickerManager::received(const HttpReply& reply, const std::string& symbol) {
    if (reply.error) {
        log_.error("Failed to fetch quote for " + symbol + ": " + *reply.error);
        failed(symbol, QuoteFailure::noAnswer);
        return;
    }
    if (reply.status != HttpReply::statusOK) {
        log_.error(format("HTTP %d for %s", reply.status, symbol.c_str()));
        failed(symbol, reply.status == statusNotFound ? QuoteFailure::unknownSymbol
                                                      : QuoteFailure::noAnswer);
        return;
    }
    const auto quote = parseQuote(reply.body, symbol);
    if (!quote) {
        log_.error("Failed to parse quote for " + symbol);
        failed(symbol, QuoteFailure::noAnswer);
        return;
    }
    quotes.update([&](auto& known) { known.insert_or_assign(symbol, *quote); });
    failures.update([&](auto& known) { known.erase(symbol); });
}

void StockTickerManager::failed(const std::string& symbol, QuoteFailure failure) {
    failures.update([&](auto& known) { known.insert_or_assign(symbol, failure); });
}

} // namespace orvelle
