#include "Features/SystemMonitor/SystemMonitorPanelView.h"

#include "Extensions/ColorTheme.h"
#include "Features/SystemMonitor/MetricColors.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Foundation/Format.h"
#include "Models/Symbol.h"

#include <utility>

namespace orvelle {

SystemMonitorPanelView::SystemMonitorPanelView(const SystemMonitorManager& manager,
                                               Platform& platform)
    : modules(platform.userDefaults()), manager_(manager), formatting_(platform.formatting()) {}

std::optional<FilePlaceholder> SystemMonitorPanelView::placeholder() const {
    if (!rows().empty())
        return std::nullopt;
    return filePlaceholder("No modules enabled", "gauge.with.dots.needle.0percent"_symbol);
}

double SystemMonitorPanelView::figuresOpacity() const {
    return manager_.hasFigures ? 1 : dimmedOpacity;
}

std::vector<SystemMonitorPanelView::Row> SystemMonitorPanelView::rows() const {
    std::vector<Row> rows;
    for (auto row : {loadRow(), networkRow()})
        if (!row.empty())
            rows.push_back(std::move(row));
    return rows;
}

SystemMonitorPanelView::Row SystemMonitorPanelView::loadRow() const {
    const auto& metrics = manager_.metrics.get();
    Row row;
    if (modules.showCPU.get())
        row.push_back(metricView("CPU", format("%.1f%%", metrics.cpuUsage), "cpu"_symbol,
                                 MetricColors::load(metrics.cpuUsage)));
    if (modules.showMemory.get())
        row.push_back(metricView("Memory", format("%.1f%%", metrics.memoryUsage),
                                 "memorychip"_symbol, MetricColors::load(metrics.memoryUsage)));
    if (modules.showTemperature.get()) {
        const auto celsius = metrics.cpuTemperature;
        row.push_back(metricView("Temp", celsius ? format("%.0f°C", *celsius) : "--",
                                 "thermometer.medium"_symbol, MetricColors::temperature(celsius)));
    }
    return row;
}

SystemMonitorPanelView::Row SystemMonitorPanelView::networkRow() const {
    if (!modules.showNetwork.get())
        return {};
    const auto& metrics = manager_.metrics.get();
    const auto rate = [this](std::uint64_t bytes) {
        return formatting_.memoryByteCount(bytes) + "/s";
    };
    return {
        metricView("Upload", rate(metrics.networkUpload), "arrow.up"_symbol, colors::orange),
        metricView("Download", rate(metrics.networkDownload), "arrow.down"_symbol, colors::cyan),
    };
}

SystemMonitorPanelView::Metric SystemMonitorPanelView::metricView(std::string label,
                                                                  std::string value,
                                                                  std::string_view icon,
                                                                  Color accentColor) {
    return {{icon, 12, accentColor},
            {std::move(label), {10, FontWeight::regular, notchTertiary}},
            {std::move(value), {13, FontWeight::medium, colors::white}}};
}

} // namespace orvelle
