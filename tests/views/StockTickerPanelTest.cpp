#include "views/ViewFixture.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace orvelle {

class StockTickerPanelTest : public ViewFixture {
protected:
    void add(const std::string& symbol) { stockTicker.addTicker(symbol); }
    void quote(const std::string& symbol, double price, double previousClose) {
        const double change = price - previousClose;
        stockTicker.quotes.update([&](auto& quotes) {
            quotes[symbol] = {symbol, price, change, 100 * change / previousClose, previousClose};
        });
    }
    std::vector<std::string> symbols() {
        std::vector<std::string> symbols;
        for (const auto& ticker : stockTicker.tickers.get())
            symbols.push_back(ticker.symbol);
        return symbols;
    }
    using Symbols = std::vector<std::string>;

    void key(Qt::Key code, const QString& text = {}) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, code, Qt::NoModifier, text);
            QCoreApplication::sendEvent(&window, &event);
        }
        turn();
    }
    void type(const QString& text) {
        for (const auto letter : text)
            key(static_cast<Qt::Key>(letter.toUpper().unicode()), QString(letter));
    }
    void drag(QPointF from, QPointF to) {
        const auto send = [&](QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
            const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, at, window.mapToGlobal(at), button, buttons, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &event);
            turn();
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        for (int step = 1; step <= 20; ++step)
            send(QEvent::MouseMove, from + (to - from) * step / 20, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    }
    QString partOf(const QString& row, const char* part) {
        std::function<QQuickItem*(QQuickItem*)> find = [&](QQuickItem* at) -> QQuickItem* {
            for (auto* child : at->childItems()) {
                if (child->objectName() == QLatin1String(part))
                    return child;
                if (auto* found = find(child))
                    return found;
            }
            return nullptr;
        };
        auto* at = item(row);
        auto* found = at ? find(at) : nullptr;
        return found ? found->property("text").toString() : QStringLiteral("<none>");
    }
};

TEST_F(StockTickerPanelTest, withoutTickersThePlaceholderStands) {
    show(ActivePanel::stockTicker);
    EXPECT_EQ(textOf("placeholderTitle"), "No stocks added");
    EXPECT_FALSE(item("addButton")->isEnabled());
}

TEST_F(StockTickerPanelTest, rowsShowTheirFigures) {
    add("UP");
    add("DOWN");
    quote("UP", 11, 10);
    quote("DOWN", 9.5, 10);
    show(ActivePanel::stockTicker);
    EXPECT_EQ(partOf("row.0", "symbol"), "UP");
    EXPECT_EQ(partOf("row.0", "price"), "$11.00");
    EXPECT_EQ(partOf("row.0", "change"), "+1.00 (10.00%)");
    EXPECT_EQ(partOf("row.1", "change"), "-0.50 (-5.00%)");
    EXPECT_EQ(item("placeholderTitle"), nullptr);
}

TEST_F(StockTickerPanelTest, aRowWithoutAQuoteTurnsItsWheelUntilThereIsOne) {
    add("X");
    show(ActivePanel::stockTicker);
    EXPECT_EQ(frameOf("spinner").size(), QSizeF(20, 20));
    quote("X", 1, 1);
    turn();
    EXPECT_EQ(item("spinner"), nullptr);
    EXPECT_EQ(partOf("row.0", "price"), "$1.00");
}

TEST_F(StockTickerPanelTest, aSymbolThatTheServiceDoesNotKnowSaysSoInsteadOfWaiting) {
    add("NONE");
    add("CUT");
    show(ActivePanel::stockTicker);
    platform.httpClientPort.answer({{}, 404, "{}"}, "/NONE?");
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No network"), "/CUT?");
    turn();
    EXPECT_EQ(item("spinner"), nullptr);
    EXPECT_EQ(partOf("row.0", "missing"), "Unknown symbol");
    EXPECT_EQ(partOf("row.1", "missing"), "No quote");
    quote("NONE", 1, 1);
    turn();
    EXPECT_EQ(partOf("row.0", "missing"), "<none>");
    EXPECT_EQ(partOf("row.0", "price"), "$1.00");
}

TEST_F(StockTickerPanelTest, aRowKeepsItsHeightWhenItsFiguresArrive) {
    add("X");
    add("Y");
    show(ActivePanel::stockTicker);
    window.grabWindow();
    const auto before = frameOf("row.1");
    quote("X", 12, 10);
    turn();
    window.grabWindow();
    EXPECT_EQ(frameOf("row.1"), before);
    for (const auto* figure : {"price", "change"})
        EXPECT_TRUE(frameOf("row.0").contains(frameOf(figure))) << figure;
}

TEST_F(StockTickerPanelTest, aTypedSymbolIsAddedAndTheFieldIsReadyForTheNext) {
    show(ActivePanel::stockTicker);
    click("entryField");
    type("aapl");
    EXPECT_TRUE(item("addButton")->isEnabled());
    key(Qt::Key_Return);
    EXPECT_EQ(symbols(), Symbols{"AAPL"});
    EXPECT_EQ(textOf("entryField"), "");
    type("ko");
    click("addButton");
    EXPECT_EQ(symbols(), (Symbols{"AAPL", "KO"}));
    EXPECT_TRUE(item("entryField")->hasActiveFocus());
}

TEST_F(StockTickerPanelTest, aLongPullToTheLeftRemovesTheRow) {
    add("A");
    add("B");
    show(ActivePanel::stockTicker);
    const auto row = frameOf("row.0");
    drag({row.right() - 40, row.center().y()}, {row.left() + 60, row.center().y()});
    EXPECT_EQ(symbols(), Symbols{"B"});
}

TEST_F(StockTickerPanelTest, aPullToTheRightDoesNothing) {
    add("A");
    show(ActivePanel::stockTicker);
    const auto row = frameOf("row.0");
    drag({row.left() + 40, row.center().y()}, {row.right() - 40, row.center().y()});
    EXPECT_EQ(symbols(), Symbols{"A"});
    EXPECT_EQ(frameOf("rowBody").left(), row.left() + 4);
}

TEST_F(StockTickerPanelTest, aShortPullUncoversTheDeleteButton) {
    add("A");
    show(ActivePanel::stockTicker);
    const auto row = frameOf("row.0");
    drag({row.right() - 40, row.center().y()}, {row.right() - 120, row.center().y()});
    EXPECT_EQ(symbols(), Symbols{"A"});
    EXPECT_TRUE(eventually([&] { return frameOf("trailingAction").width() == 70; }));
    EXPECT_EQ(frameOf("trailingAction").right(), row.right() - 4);
}

TEST_F(StockTickerPanelTest, theDeleteKeyRemovesTheRowThatIsChosen) {
    for (const auto* symbol : {"A", "B", "C"})
        add(symbol);
    show(ActivePanel::stockTicker);
    click("entryField");
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Delete);
    EXPECT_EQ(symbols(), (Symbols{"A", "C"}));
}

TEST_F(StockTickerPanelTest, aQuoteBeyondReasonStaysInItsRow) {
    add("X");
    quote("X", 1e300, 1e299);
    show(ActivePanel::stockTicker);
    EXPECT_LE(frameOf("price").right(), frameOf("row.0").right());
    EXPECT_GE(frameOf("price").left(), frameOf("row.0").left());
}

class StockTickerCycleTest : public ViewFixture {
protected:
    StockTickerCycleTest() {
        hoverLayout.placements.update([](auto& placements) {
            for (auto& placement : placements)
                if (placement.id == "stockTicker")
                    placement.isVisible = true;
        });
    }
    QString summary() {
        auto* widget = item("widget.stockTicker");
        const auto* line = widget ? widget->findChild<QObject*>("stockLine") : nullptr;
        return line ? line->property("summary").toString() : QStringLiteral("<no widget>");
    }
};

TEST_F(StockTickerCycleTest, stepsThroughTheSymbolsInTheHoverBar) {
    stockTicker.addTicker("A");
    stockTicker.addTicker("B");
    stockTicker.quotes.update([](auto& quotes) { quotes["A"] = {"A", 12, 2, 20, 10}; });
    show(NotchExpandedState::hovering);
    EXPECT_EQ(summary(), QString::fromUtf8("A $12.00 ▲ 20.0%"));
    platform.runLoopPort.advance(3);
    turn();
    EXPECT_EQ(summary(), "B");
    EXPECT_GT(frameOf("widget.stockTicker").width(), 20);
}

TEST_F(StockTickerCycleTest, aStepMovesTheRowThatLeavesToo) {
    stockTicker.addTicker("LEAVING");
    stockTicker.addTicker("B");
    show(NotchExpandedState::hovering);
    auto* widget = item("widget.stockTicker");
    const auto* line = item(widget, "line");
    const auto* leaving = item(widget, "leavingLine");
    ASSERT_TRUE(line && leaving);
    EXPECT_FALSE(leaving->isVisible());
    const double width = line->width();

    double last = 0;
    int between = 0;
    QObject::connect(leaving, &QQuickItem::yChanged, leaving, [&] {
        if (leaving->y() <= 0 || leaving->y() >= leaving->parentItem()->height())
            return;
        EXPECT_EQ(leaving->property("summary").toString(), "LEAVING");
        EXPECT_EQ(leaving->width(), width) << "it keeps its size";
        EXPECT_GT(leaving->y(), last) << "it goes down";
        EXPECT_GT(leaving->opacity(), 0);
        last = leaving->y();
        ++between;
    });
    platform.runLoopPort.advance(3);
    turn();
    window.grabWindow(); // lays it out
    EXPECT_TRUE(leaving->isVisible());
    EXPECT_TRUE(eventually([&] { return !leaving->isVisible(); }));
    EXPECT_GT(between, 2);
    EXPECT_EQ(line->y(), 0);
    EXPECT_EQ(line->opacity(), 1);
    EXPECT_EQ(line->property("summary").toString(), "B");
}

TEST_F(StockTickerCycleTest, aLongSymbolIsCutAndItsFiguresStay) {
    const std::string symbol(200, 'W');
    stockTicker.addTicker(symbol);
    stockTicker.quotes.update([&](auto& quotes) { quotes[symbol] = {symbol, 12, 2, 20, 10}; });
    show(NotchExpandedState::hovering);
    EXPECT_TRUE(summary().endsWith("%"));
    EXPECT_GE(frameOf("widget.stockTicker").left(), frameOf("hoverBar").left());
    EXPECT_LE(frameOf("widget.stockTicker").right(), frameOf("hoverBar").right());
}

TEST_F(StockTickerCycleTest, aSymbolWithoutAQuoteDoesNotWaitForEver) {
    stockTicker.addTicker("NONE");
    show(NotchExpandedState::hovering);
    EXPECT_EQ(summary(), "NONE");
    platform.httpClientPort.answer({{}, 404, "{}"});
    turn();
    EXPECT_EQ(summary(), QString::fromUtf8("NONE –"));
}

TEST_F(StockTickerCycleTest, withoutTickersTheSymbolStandsAlone) {
    show(NotchExpandedState::hovering);
    EXPECT_EQ(summary(), "");
    EXPECT_NEAR(frameOf("widget.stockTicker").width(), 10 + 2 * 4, 8);
}

TEST_F(StockTickerCycleTest, theLineStandsStillWhileNobodySeesIt) {
    stockTicker.addTicker("A");
    stockTicker.addTicker("B");
    show(NotchExpandedState::hovering);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    show(NotchExpandedState::collapsed);
    EXPECT_TRUE(eventually([&] { return platform.runLoopPort.timerCount() == 0; }));
}

} // namespace orvelle
