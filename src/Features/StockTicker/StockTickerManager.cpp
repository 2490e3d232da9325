#include "Features/StockTicker/StockTickerManager.h"

#include "Models/Symbol.h"

namespace orvelle {

StockTickerManager::StockTickerManager(Platform&)
    : FeatureModule("stockTicker", "Stocks", std::string("chart.line.uptrend.xyaxis"_symbol), true,
                    [this](const bool& enabled) {
                        if (enabled)
                            start();
                        else
                            refreshTimer.reset();
                    }) {}

} // namespace orvelle
