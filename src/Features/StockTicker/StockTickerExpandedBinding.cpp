#include "Features/StockTicker/StockTickerExpandedBinding.h"

#include "Features/StockTicker/StockTickerManager.h"

namespace orvelle {

static StockFiguresValue toQt(const StockTickerRowContent::Figures& figures) {
    return {toQt(figures.price), toQt(figures.change)};
}

static StockRowValue toQt(const StockTickerRowContent& row) {
    StockRowValue value{.id = QString::fromStdString(row.id),
                        .symbol = toQt(row.symbol),
                        .name = toQt(row.name),
                        .figures = {},
                        .missing = toQt(row.missing)};
    if (row.figures)
        value.figures = QVariant::fromValue(toQt(*row.figures));
    return value;
}

void StockTickerExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.stockTickerManager;
    view_.emplace(manager);
    takeKeyboard_ = environment.takeKeyboard;
    follow(manager.tickers, manager.quotes, manager.failures);
}

void StockTickerExpandedBinding::refresh() {
    show_fieldPlaceholder(orvelle::toQt(view_->fieldPlaceholder()));
    show_fieldStyle(orvelle::toQt(view_->fieldStyle()));
    show_addButton(orvelle::toQt(view_->addButton()));
    show_deleteAction(orvelle::toQt(view_->deleteAction()));
    std::vector<StockRowValue> rows;
    for (const auto& row : view_->rows())
        rows.push_back(toQt(row));
    rows_.show(rows);
    show_placeholder(orvelle::toQt(view_->placeholder()));
}

StockFiguresValue StockTickerExpandedBinding::blankFigures() const {
    return toQt(StockTickerRowContent::blankFigures());
}

bool StockTickerExpandedBinding::canAdd(const QString& text) const {
    return view_->canAdd(text.toStdString());
}

void StockTickerExpandedBinding::addTicker(const QString& text) {
    view_->addTicker(text.toStdString());
}

void StockTickerExpandedBinding::removeTicker(const QString& id) {
    view_->remove(id.toStdString());
}

MenuValue StockTickerExpandedBinding::contextMenu() const {
    return {view_->contextMenu()};
}

void StockTickerExpandedBinding::takeKeyboard() const {
    if (takeKeyboard_)
        takeKeyboard_();
}

} // namespace orvelle
