#include "Core/ServiceRoots.h"

#include <cstdlib>

namespace orvelle {

namespace {

void replace(std::string& root, const char* variable) {
    const char* value = std::getenv(variable);
    if (!value || !*value)
        return;
    root = value;
    while (root.ends_with('/'))
        root.pop_back();
}

} // namespace

ServiceRoots ServiceRoots::fromEnvironment() {
    ServiceRoots roots;
    replace(roots.forecast, "ORVELLE_FORECAST_ROOT");
    replace(roots.geocoding, "ORVELLE_GEOCODING_ROOT");
    replace(roots.chart, "ORVELLE_CHART_ROOT");
    replace(roots.site, "ORVELLE_SITE_ROOT");
    return roots;
}

} // namespace orvelle
