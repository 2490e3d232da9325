#pragma once

#include "Features/Battery/BatteryPanelView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

struct BatteryEstimateValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue time MEMBER time)
    Q_PROPERTY(orvelle::TextValue caption MEMBER caption)

public:
    TextValue time;
    TextValue caption;
    bool operator==(const BatteryEstimateValue&) const = default;
};

class BatteryPanelBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, padding, BatteryPanelView)
    ORVELLE_SHOWN(orvelle::SymbolValue, icon)
    ORVELLE_SHOWN(orvelle::TextValue, title)
    ORVELLE_SHOWN(orvelle::TextValue, subtitle)
    ORVELLE_SHOWN(QVariant, level)
    ORVELLE_SHOWN(QVariant, estimate)

public:
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<BatteryPanelView> view_;
};

} // namespace orvelle
