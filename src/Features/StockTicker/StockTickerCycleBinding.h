#pragma once

#include "Features/StockTicker/StockTickerCycleView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

struct CycleFiguresValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue price MEMBER price)
    Q_PROPERTY(orvelle::TextValue arrow MEMBER arrow)
    Q_PROPERTY(orvelle::TextValue percent MEMBER percent)

public:
    TextValue price;
    TextValue arrow;
    TextValue percent;
    bool operator==(const CycleFiguresValue&) const = default;
};

struct CycleContentValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue symbol MEMBER symbol)
    Q_PROPERTY(QVariant figures MEMBER figures)
    Q_PROPERTY(QVariant missing MEMBER missing)

public:
    TextValue symbol;
    QVariant figures;
    QVariant missing;
    bool operator==(const CycleContentValue&) const = default;
};

/// What the line shows, at its place among the symbols; each place has a row of its own.
struct CycleLineValue {
    Q_GADGET
    Q_PROPERTY(int index MEMBER index)
    Q_PROPERTY(QVariant content MEMBER content)

public:
    int index = 0;
    QVariant content;
    bool operator==(const CycleLineValue&) const = default;
};

class StockTickerCycleBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, spacing, StockTickerCycleView)
    ORVELLE_CONSTANT(double, stepDuration, StockTickerCycleView)
    ORVELLE_CONSTANT(orvelle::SpinnerValue, spinner, StockTickerCycleView)
    ORVELLE_SHOWN(QVariant, emptySymbol)
    ORVELLE_SHOWN(orvelle::CycleLineValue, line)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<StockTickerCycleView> view_;
};

} // namespace orvelle
