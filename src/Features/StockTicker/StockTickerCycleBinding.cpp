#include "Features/StockTicker/StockTickerCycleBinding.h"

#include "Features/StockTicker/StockTickerManager.h"

namespace orvelle {

static QVariant toQt(const std::optional<StockTickerCycleView::Content>& content) {
    if (!content)
        return {};
    CycleContentValue value{toQt(content->symbol), {}, toQt(content->missing)};
    if (const auto& figures = content->figures)
        value.figures = QVariant::fromValue(
            CycleFiguresValue{toQt(figures->price), toQt(figures->arrow), toQt(figures->percent)});
    return QVariant::fromValue(value);
}

void StockTickerCycleBinding::attach(const ViewEnvironment& environment) {
    const auto& manager = environment.notch.stockTickerManager;
    view_.emplace(manager);
    // The binding lives exactly as long as the line is on the screen.
    view_->appear();
    follow(manager.tickers, manager.quotes, manager.failures, view_->currentIndex);
}

void StockTickerCycleBinding::refresh() {
    show_emptySymbol(orvelle::toQt(view_->emptySymbol()));
    show_line({static_cast<int>(view_->currentIndex.get()), toQt(view_->tickerContent())});
}

} // namespace orvelle
