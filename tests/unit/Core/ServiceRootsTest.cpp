#include "Core/ServiceRoots.h"

#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class ServiceRootsTest : public testing::Test {
protected:
    TemporaryVariable forecast{"ORVELLE_FORECAST_ROOT", nullptr};
    TemporaryVariable geocoding{"ORVELLE_GEOCODING_ROOT", nullptr};
    TemporaryVariable chart{"ORVELLE_CHART_ROOT", nullptr};
    TemporaryVariable site{"ORVELLE_SITE_ROOT", nullptr};
};

TEST_F(ServiceRootsTest, EachVariableReplacesItsOwnServiceAlone) {
    forecast.set("http://127.0.0.1:1");
    geocoding.set("http://127.0.0.1:2");
    chart.set("http://127.0.0.1:3");
    site.set("http://127.0.0.1:4");
    const auto roots = ServiceRoots::fromEnvironment();
    EXPECT_EQ(roots.forecast, "http://127.0.0.1:1");
    EXPECT_EQ(roots.geocoding, "http://127.0.0.1:2");
    EXPECT_EQ(roots.chart, "http://127.0.0.1:3");
    EXPECT_EQ(roots.site, "http://127.0.0.1:4");
}

TEST_F(ServiceRootsTest, AnUnsetOrEmptyVariableLeavesTheService) {
    forecast.set("");
    const auto roots = ServiceRoots::fromEnvironment();
    EXPECT_EQ(roots.forecast, ServiceRoots{}.forecast);
    EXPECT_EQ(roots.chart, ServiceRoots{}.chart);
}

TEST_F(ServiceRootsTest, SlashesAtTheEndAreDropped) {
    site.set("http://127.0.0.1:4/mirror//");
    EXPECT_EQ(ServiceRoots::fromEnvironment().site, "http://127.0.0.1:4/mirror");
}

} // namespace
} // namespace orvelle
