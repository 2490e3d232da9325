#include "Features/SystemMonitor/SystemMonitorPanelBinding.h"

#include "Features/SystemMonitor/SystemMonitorManager.h"

namespace orvelle {

namespace {

std::vector<MetricValue> cellsOf(const std::vector<SystemMonitorPanelView::Row>& rows) {
    std::vector<MetricValue> cells;
    for (int row = 0; const auto& metrics : rows) {
        for (int column = 0; const auto& metric : metrics)
            cells.push_back({
                .id = toQt(std::string_view(metric.label.text)),
                .row = row,
                .column = column++,
                .columns = static_cast<int>(metrics.size()),
                .symbol = toQt(metric.symbol),
                .label = toQt(metric.label),
                .value = toQt(metric.value),
            });
        ++row;
    }
    return cells;
}

} // namespace

void SystemMonitorPanelBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.systemMonitorManager;
    view_.emplace(manager, environment.platform);
    const auto& modules = view_->modules;
    follow(manager.metrics, manager.hasFigures, modules.showCPU, modules.showMemory,
           modules.showNetwork, modules.showTemperature);
}

void SystemMonitorPanelBinding::refresh() {
    show_figuresOpacity(view_->figuresOpacity());
    show_placeholder(toQt(view_->placeholder()));
    cells_.show(cellsOf(view_->rows()));
}

} // namespace orvelle
