#pragma once

#include "Core/ListFile.h"
#include "Core/ServiceRoots.h"
#include "Foundation/Tasks.h"
#include "Models/StockTicker.h"
#include "Platform/Log.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

struct HttpReply;

enum class QuoteFailure { unknownSymbol, noAnswer };

/// Quotes of the symbols that the user follows, fetched each minute. The list is kept in the file
/// "stock_tickers.json", the quotes in memory only. A symbol that fails keeps its last quote.
class StockTickerManager : public FeatureModule {
public:
    static constexpr Seconds refreshInterval = 60;

    /// Loads the list. Switching the feature on starts it, switching it off ends the refreshes.
    explicit StockTickerManager(Platform& platform = Platform::shared());

    Published<std::vector<StockTicker>> tickers;         ///< new entries last
    Published<std::map<std::string, StockQuote>> quotes; ///< the latest good one per symbol
    /// Why the last answer for a symbol brought no quote.
    Published<std::map<std::string, QuoteFailure>> failures;
    Timer refreshTimer;

    void start() override;
    /// In capitals, without blanks at its ends; nothing for a symbol that is in the list. Whether
    /// the service knows it is not asked.
    void addTicker(std::string_view symbol);
    /// The entry with the same identifier, and the symbol's quote.
    void removeTicker(const StockTicker& ticker);
    void refreshQuotes();

    Platform& platform() const { return platform_; }

private:
    void loadTickers();
    void saveTickers();
    void fetchQuote(const std::string& symbol);
    void received(const HttpReply& reply, const std::string& symbol);
    void failed(const std::string& symbol, QuoteFailure failure);

    Platform& platform_;
    Logger log_;
    ListFile<StockTicker> file_;
    const ServiceRoots roots_ = ServiceRoots::fromEnvironment();
    Tasks requests_;
};

} // namespace orvelle
