#pragma once

#include "Models/StockTicker.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <map>
#include <string>
#include <vector>

namespace orvelle {

/// Quotes of the symbols that the user follows.
class StockTickerManager : public FeatureModule {
public:
    explicit StockTickerManager(Platform& platform = Platform::shared());

    Published<std::vector<StockTicker>> tickers;         ///< new entries last
    Published<std::map<std::string, StockQuote>> quotes; ///< the latest good one per symbol
    Timer refreshTimer;
};

} // namespace orvelle
