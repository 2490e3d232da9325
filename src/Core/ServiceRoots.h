#pragma once

#include <string>

namespace orvelle {

/// Where the web services live: addresses without a slash at their end.
struct ServiceRoots {
    std::string forecast = "https://api.open-meteo.com";
    std::string geocoding = "https://geocoding-api.open-meteo.com";
    std::string chart = "https://query1.finance.yahoo.com";
    std::string site = "https://orvelle.example"; ///< the maker's

    /// Mirrors and tests replace each through ORVELLE_FORECAST_ROOT, ORVELLE_GEOCODING_ROOT,
    /// ORVELLE_CHART_ROOT and ORVELLE_SITE_ROOT.
    static ServiceRoots fromEnvironment();
};

} // namespace orvelle
