#include "Features/SystemMonitor/SystemMonitorPanelView.h"

#include "Extensions/ColorTheme.h"
#include "Features/SystemMonitor/MetricColors.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class SystemMonitorPanelViewTest : public testing::Test {
protected:
    SimulatedPlatform platform;
    SystemMonitorManager manager{platform};
    SystemMonitorPanelView view{manager, platform};

    /// Switches every module off but these.
    void showOnly(const std::vector<std::string_view>& keys) {
        for (const auto* key : {&Settings::sysMonCPU, &Settings::sysMonMemory,
                                &Settings::sysMonNetwork, &Settings::sysMonTemperature})
            platform.userDefaultsPort.set(key->name, false);
        for (const auto key : keys)
            platform.userDefaultsPort.set(key, true);
    }
    static SystemMonitorPanelView::Metric metric(std::string label, std::string value,
                                                 std::string_view icon, Color accent) {
        return {{icon, 12, accent},
                {std::move(label), {10, FontWeight::regular, notchTertiary}},
                {std::move(value), {13, FontWeight::medium, colors::white}}};
    }
};

TEST_F(SystemMonitorPanelViewTest, WithOnlyTheNetworkOnTheSecondRowStandsAlone) {
    showOnly({"sysMonNetwork"});
    const auto rows = view.rows();
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].label.text, "Upload");
    EXPECT_EQ(rows[0][1].label.text, "Download");
    EXPECT_FALSE(view.placeholder());
}

TEST_F(SystemMonitorPanelViewTest, EveryModuleHasItsCell) {
    manager.metrics.update([](auto& metrics) {
        metrics.cpuUsage = 61.24;
        metrics.memoryUsage = 12.5;
        metrics.networkDownload = 2048;
        metrics.cpuTemperature = 59.6;
    });
    using Row = SystemMonitorPanelView::Row;
    EXPECT_EQ(view.rows(), (std::vector<Row>{
                               {metric("CPU", "61.2%", "cpu", colors::yellow),
                                metric("Memory", "12.5%", "memorychip", colors::green),
                                metric("Temp", "60°C", "thermometer.medium", colors::green)},
                               {metric("Upload", "Zero KB/s", "arrow.up", colors::orange),
                                metric("Download", "2 KB/s", "arrow.down", colors::cyan)},
                           }));
}

TEST_F(SystemMonitorPanelViewTest, AMissingTemperatureReadsAsDashesInGrey) {
    showOnly({"sysMonTemperature"});
    EXPECT_EQ(view.rows().at(0).at(0), metric("Temp", "--", "thermometer.medium", colors::gray));
}

TEST_F(SystemMonitorPanelViewTest, WithEveryModuleOffAPlaceholderStands) {
    showOnly({});
    EXPECT_TRUE(view.rows().empty());
    EXPECT_EQ(view.placeholder(),
              (FilePlaceholder{{"gauge.with.dots.needle.0percent", 24, notchTertiary},
                               {"No modules enabled", {13, FontWeight::regular, notchSecondary}}}));
}

TEST(MetricColorsTest, LoadsWarnAboveTheirThresholdsAndTemperaturesAtThem) {
    EXPECT_EQ(MetricColors::load(60), colors::green);
    EXPECT_EQ(MetricColors::load(60.1), colors::yellow);
    EXPECT_EQ(MetricColors::load(85), colors::yellow);
    EXPECT_EQ(MetricColors::load(85.1), colors::red);
    EXPECT_EQ(MetricColors::temperature(59.9), colors::green);
    EXPECT_EQ(MetricColors::temperature(60), colors::yellow);
    EXPECT_EQ(MetricColors::temperature(79.9), colors::yellow);
    EXPECT_EQ(MetricColors::temperature(80), colors::red);
    EXPECT_EQ(MetricColors::temperature({}), colors::gray);
}

TEST_F(SystemMonitorPanelViewTest, CellsStandOnGlassAtTheirDistances) {
    using Metric = SystemMonitorPanelView::Metric;
    EXPECT_EQ(Metric::spacing, 6);
    EXPECT_EQ(Metric::symbolWidth, 16);
    EXPECT_EQ(Metric::padding, 8);
    EXPECT_EQ(Metric::background.cornerRadius, 8);
    EXPECT_EQ(Metric::background.opacity, 0.15);
    EXPECT_EQ(SystemMonitorPanelView::spacing, 10);
}

} // namespace
} // namespace orvelle
