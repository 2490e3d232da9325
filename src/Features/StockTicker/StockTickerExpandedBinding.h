#pragma once

#include "Features/StockTicker/StockTickerExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <functional>
#include <optional>

namespace orvelle {

struct StockFiguresValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue price MEMBER price)
    Q_PROPERTY(orvelle::TextValue change MEMBER change)

public:
    TextValue price;
    TextValue change;
    bool operator==(const StockFiguresValue&) const = default;
};

struct StockRowValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(orvelle::TextValue symbol MEMBER symbol)
    Q_PROPERTY(QVariant name MEMBER name)
    Q_PROPERTY(QVariant figures MEMBER figures)
    Q_PROPERTY(QVariant missing MEMBER missing)

public:
    QString id;
    TextValue symbol;
    QVariant name;
    QVariant figures;
    QVariant missing;
    bool operator==(const StockRowValue&) const = default;
};

class StockTickerExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, spacing, StockTickerExpandedView)
    ORVELLE_CONSTANT(double, fieldHorizontalPadding, StockTickerExpandedView)
    ORVELLE_CONSTANT(double, fieldVerticalPadding, StockTickerExpandedView)
    ORVELLE_CONSTANT(QColor, rowBackground, StockTickerExpandedView)
    ORVELLE_CONSTANT(double, rowInset, StockTickerExpandedView)
    ORVELLE_CONSTANT(double, rowSideInset, StockTickerExpandedView)
    ORVELLE_CONSTANT(double, removalDuration, StockTickerExpandedView)
    Q_PROPERTY(double rowSpacing READ rowSpacing CONSTANT FINAL)
    Q_PROPERTY(double rowHorizontalPadding READ rowHorizontalPadding CONSTANT FINAL)
    Q_PROPERTY(double rowVerticalPadding READ rowVerticalPadding CONSTANT FINAL)
    Q_PROPERTY(double rowLineSpacing READ rowLineSpacing CONSTANT FINAL)
    Q_PROPERTY(orvelle::StockFiguresValue blankFigures READ blankFigures CONSTANT FINAL)
    Q_PROPERTY(orvelle::SpinnerValue rowSpinner READ rowSpinner CONSTANT FINAL)
    ORVELLE_SHOWN(orvelle::TextValue, fieldPlaceholder)
    ORVELLE_SHOWN(orvelle::TextValue, fieldStyle)
    ORVELLE_SHOWN(orvelle::SymbolValue, addButton)
    ORVELLE_SHOWN(orvelle::SwipeActionValue, deleteAction)
    ORVELLE_SHOWN(QVariant, placeholder)
    ORVELLE_LIST(StockRowValue, rows)

public:
    double rowSpacing() const { return StockTickerRowContent::spacing; }
    double rowHorizontalPadding() const { return StockTickerRowContent::horizontalPadding; }
    double rowVerticalPadding() const { return StockTickerRowContent::verticalPadding; }
    double rowLineSpacing() const { return StockTickerRowContent::lineSpacing; }
    StockFiguresValue blankFigures() const;
    SpinnerValue rowSpinner() const { return toQt(StockTickerRowContent::spinner); }

    Q_INVOKABLE bool canAdd(const QString& text) const;
    Q_INVOKABLE void addTicker(const QString& text);
    Q_INVOKABLE void removeTicker(const QString& id);
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;
    /// The field was pressed. This panel leaves the keyboard where it is until then.
    Q_INVOKABLE void takeKeyboard() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<StockTickerExpandedView> view_;
    std::function<void()> takeKeyboard_;
};

} // namespace orvelle
