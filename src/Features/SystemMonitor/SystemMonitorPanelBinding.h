#pragma once

#include "Features/SystemMonitor/SystemMonitorPanelView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

/// A cell with its place in the grid: in row `row` it is number `column` of `columns`.
struct MetricValue {
    Q_GADGET
    Q_PROPERTY(int row MEMBER row)
    Q_PROPERTY(int column MEMBER column)
    Q_PROPERTY(int columns MEMBER columns)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue label MEMBER label)
    Q_PROPERTY(orvelle::TextValue value MEMBER value)
    Q_PROPERTY(orvelle::CardValue card READ card)
    Q_PROPERTY(double spacing READ spacing)
    Q_PROPERTY(double symbolWidth READ symbolWidth)
    Q_PROPERTY(double padding READ padding)

public:
    QString id; ///< its label
    int row = 0;
    int column = 0;
    int columns = 1;
    SymbolValue symbol;
    TextValue label;
    TextValue value;
    CardValue card() const { return toQt(SystemMonitorPanelView::Metric::background); }
    double spacing() const { return SystemMonitorPanelView::Metric::spacing; }
    double symbolWidth() const { return SystemMonitorPanelView::Metric::symbolWidth; }
    double padding() const { return SystemMonitorPanelView::Metric::padding; }
    bool operator==(const MetricValue&) const = default;
};

class SystemMonitorPanelBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, spacing, SystemMonitorPanelView)
    ORVELLE_SHOWN(QVariant, placeholder)
    ORVELLE_SHOWN(double, figuresOpacity)
    ORVELLE_LIST(MetricValue, cells)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<SystemMonitorPanelView> view_;
};

} // namespace orvelle
