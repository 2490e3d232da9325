#include "Extensions/ColorTheme.h"
#include "Features/StockTicker/StockTickerCycleView.h"
#include "Features/StockTicker/StockTickerExpandedView.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

StyledText mono(std::string text, double size, Color color,
                FontWeight weight = FontWeight::regular) {
    return {std::move(text), {size, weight, color, FontDesign::monospaced}};
}

class StockTickerViewsTest : public testing::Test {
protected:
    void add(const std::string& symbol) { manager.addTicker(symbol); }
    void quote(const std::string& symbol, double price, double previousClose) {
        ASSERT_TRUE(platform.httpClientPort.answer(
            Replies::ok(Replies::chart(price, previousClose)), "/" + symbol + "?"));
    }
    void removeAt(std::size_t index) { manager.removeTicker(manager.tickers.get()[index]); }
    std::string shownSymbol() const {
        const auto content = cycle.tickerContent();
        return content ? content->symbol.text : "<nothing>";
    }
    bool isCycling() const { return platform.runLoopPort.timerCount() == 1; }

    SimulatedPlatform platform;
    StockTickerManager manager{platform};
    StockTickerExpandedView view{manager};
    StockTickerCycleView cycle{manager};
};

TEST_F(StockTickerViewsTest, TheButtonIsDisabledWhileThereAreOnlyBlanks) {
    EXPECT_FALSE(view.canAdd(""));
    EXPECT_FALSE(view.canAdd(" \t "));
    EXPECT_TRUE(view.canAdd(" a "));
}

TEST_F(StockTickerViewsTest, AChangeOfExactly0ShowsTheUpwardArrowInGreenAndAPlusSign) {
    add("X");
    quote("X", 10, 10);
    const auto figures = cycle.tickerContent()->figures;
    ASSERT_TRUE(figures);
    EXPECT_EQ(figures->arrow, mono("▲", 7, colors::green));
    EXPECT_EQ(view.rows()[0].figures->change, mono("+0.00 (0.00%)", 10, colors::green));
}

TEST_F(StockTickerViewsTest, RemovingTheShownTickerWhenItIsTheLastResetsTheIndex) {
    add("A");
    add("B");
    cycle.appear();
    platform.runLoopPort.advance(3);
    ASSERT_EQ(shownSymbol(), "B");
    removeAt(1);
    EXPECT_EQ(cycle.currentIndex, 0u);
    EXPECT_EQ(shownSymbol(), "A");
}

TEST_F(StockTickerViewsTest, RemovingASymbolAndAddingItAgainShowsTheSpinner) {
    add("X");
    quote("X", 12, 10);
    EXPECT_TRUE(view.rows()[0].figures);
    removeAt(0);
    add("X");
    EXPECT_FALSE(view.rows()[0].figures);
    EXPECT_FALSE(cycle.tickerContent()->figures);
}

TEST_F(StockTickerViewsTest, GainsAndLossesAreColouredAndSigned) {
    add("UP");
    add("DOWN");
    quote("UP", 11, 10);
    quote("DOWN", 9.5, 10);
    const auto rows = view.rows();
    EXPECT_EQ(rows[0].symbol, mono("UP", 12, colors::white, FontWeight::bold));
    EXPECT_EQ(rows[0].figures->price, mono("$11.00", 12, colors::white));
    EXPECT_EQ(rows[0].figures->change, mono("+1.00 (10.00%)", 10, colors::green));
    EXPECT_EQ(rows[1].figures->change, mono("-0.50 (-5.00%)", 10, colors::red));
}

TEST_F(StockTickerViewsTest, ARowNamesTheCompanyWhenItIsKnown) {
    const StockTicker ticker{UUID::random(), "X", "Example Works", {}};
    EXPECT_EQ(StockTickerRowContent(ticker, {}).name->text, "Example Works");
    EXPECT_FALSE(StockTickerRowContent({UUID::random(), "X", "", {}}, {}).name);
}

TEST_F(StockTickerViewsTest, WithoutTickersThePlaceholderStands) {
    EXPECT_EQ(view.placeholder()->title.text, "No stocks added");
    EXPECT_EQ(view.placeholder()->symbol.name, "chart.line.uptrend.xyaxis");
    view.addTicker(" x ");
    EXPECT_FALSE(view.placeholder());
    EXPECT_EQ(view.rows().size(), 1u);
}

TEST_F(StockTickerViewsTest, ARowIsRemovedByItsIdentifier) {
    add("A");
    add("B");
    view.remove(view.rows()[0].id);
    view.remove("unknown");
    ASSERT_EQ(view.rows().size(), 1u);
    EXPECT_EQ(view.rows()[0].symbol.text, "B");
}

TEST_F(StockTickerViewsTest, TheMenuRefreshesTheQuotes) {
    add("A");
    const auto before = platform.httpClientPort.requests.size();
    const auto menu = view.contextMenu();
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].title, "Refresh Quotes");
    menu[0].perform();
    EXPECT_EQ(platform.httpClientPort.requests.size(), before + 1);
}

TEST_F(StockTickerViewsTest, TheLineShowsPriceArrowAndPercentage) {
    add("X");
    quote("X", 9.5, 10);
    EXPECT_EQ(cycle.tickerContent(),
              (StockTickerCycleView::Content{
                  mono("X", 10, colors::white, FontWeight::bold),
                  StockTickerCycleView::Figures{mono("$9.50", 10, Color::white(1, 0.8)),
                                                mono("▼", 7, colors::red),
                                                mono("5.0%", 10, colors::red)}}));
}

TEST_F(StockTickerViewsTest, WithoutTickersTheLineIsTheSymbolAlone) {
    EXPECT_EQ(cycle.emptySymbol(),
              (StyledSymbol{"chart.line.uptrend.xyaxis", 10, Color::white(1, 0.7)}));
    EXPECT_FALSE(cycle.tickerContent());
    add("X");
    EXPECT_FALSE(cycle.emptySymbol());
}

TEST_F(StockTickerViewsTest, TheLineStepsEveryThreeSecondsAndBeginsAgain) {
    for (const auto* symbol : {"A", "B", "C"})
        add(symbol);
    cycle.appear();
    std::string shown;
    for (int step = 0; step < 4; ++step) {
        shown += shownSymbol();
        platform.runLoopPort.advance(3);
    }
    EXPECT_EQ(shown, "ABCA");
}

TEST_F(StockTickerViewsTest, WithFewerThanTwoNothingCyclesUntilTheNextAppearance) {
    add("A");
    cycle.appear();
    add("B");
    EXPECT_FALSE(isCycling());
    cycle.disappear();
    cycle.appear();
    EXPECT_TRUE(isCycling());
}

TEST_F(StockTickerViewsTest, GoneFromTheScreenItStandsStill) {
    add("A");
    add("B");
    cycle.appear();
    cycle.disappear();
    EXPECT_FALSE(isCycling());
}

TEST_F(StockTickerViewsTest, AnEmptiedListEndsTheCycling) {
    add("A");
    add("B");
    cycle.appear();
    removeAt(1);
    EXPECT_TRUE(isCycling());
    removeAt(0);
    EXPECT_FALSE(isCycling());
    EXPECT_TRUE(cycle.emptySymbol());
}

TEST_F(StockTickerViewsTest, ASymbolWithoutAQuoteSaysWhy) {
    add("A");
    add("B");
    EXPECT_FALSE(view.rows()[0].missing) << "a spinner stands there until the answer comes";
    EXPECT_FALSE(cycle.tickerContent()->missing);
    platform.httpClientPort.answer({{}, 404, "{}"}, "/A?");
    platform.httpClientPort.answer({{}, 500, "{}"}, "/B?");
    EXPECT_EQ(view.rows()[0].missing,
              (StyledText{"Unknown symbol", {10, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(view.rows()[1].missing->text, "No quote");
    EXPECT_EQ(cycle.tickerContent()->missing, mono("–", 10, Color::white(1, 0.6)));
    EXPECT_FALSE(cycle.tickerContent()->figures);
    manager.refreshQuotes();
    quote("A", 11, 10);
    EXPECT_FALSE(view.rows()[0].missing) << "figures stand there";
    EXPECT_FALSE(cycle.tickerContent()->missing);
}

TEST_F(StockTickerViewsTest, TheFieldItsButtonAndTheEmptyListHaveTheirLook) {
    EXPECT_EQ(view.fieldPlaceholder(),
              (StyledText{"Add symbol (e.g. AAPL)...", {12, FontWeight::regular, notchFaint}}));
    EXPECT_EQ(view.fieldStyle(), (TextStyle{12, FontWeight::regular, colors::white}));
    EXPECT_EQ(view.addButton(), (StyledSymbol{"plus.circle.fill", 16, colors::mint}));
    EXPECT_EQ(view.placeholder()->symbol.size, 24);
    EXPECT_EQ(view.placeholder()->title.style.size, 12);
    EXPECT_EQ(view.deleteAction(), (SwipeAction{"Delete", "trash", colors::red}));
}

TEST_F(StockTickerViewsTest, TheCompanysNameIsSmallAndARowKeepsItsHeightWithoutAQuote) {
    const StockTicker ticker{UUID::random(), "X", "Example Works", {}};
    EXPECT_EQ(StockTickerRowContent(ticker, {}).name->style.size, 10);
    add("X");
    quote("X", 12, 10);
    const auto figures = *view.rows()[0].figures;
    const auto blank = StockTickerRowContent::blankFigures();
    EXPECT_EQ(blank.price.text + blank.change.text, "");
    EXPECT_EQ(blank.price.style.size, figures.price.style.size);
    EXPECT_EQ(blank.change.style.size, figures.change.style.size);
}

TEST_F(StockTickerViewsTest, SpinnersStandInForAQuoteAtTheirSizes) {
    EXPECT_EQ(StockTickerRowContent::spinner, (ProgressSpinner{0.6, 20}));
    EXPECT_EQ(StockTickerCycleView::spinner, (ProgressSpinner{0.4, 12}));
}

} // namespace
} // namespace orvelle
