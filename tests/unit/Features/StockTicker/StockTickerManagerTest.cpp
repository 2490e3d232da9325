#include "Features/StockTicker/StockTickerManager.h"

#include "Foundation/JsonRecord.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

const std::string stocksPath = listFolder + "stock_tickers.json";

class StockTickerManagerTest : public testing::Test {
protected:
    StockTickerManager& manager() {
        if (!manager_)
            manager_ = std::make_unique<StockTickerManager>(platform);
        return *manager_;
    }
    std::vector<std::string> symbols() {
        std::vector<std::string> symbols;
        for (const auto& ticker : manager().tickers.get())
            symbols.push_back(ticker.symbol);
        return symbols;
    }
    using Symbols = std::vector<std::string>;

    std::string file() {
        platform.runLoopPort.runPosted();
        const auto& files = platform.fileSystemPort.files;
        return files.contains(stocksPath) ? files.at(stocksPath) : "<no file>";
    }
    bool answerQuote(const std::string& symbol, double price, double previousClose) {
        return http.answer(Replies::ok(Replies::chart(price, previousClose)), "/" + symbol + "?");
    }
    /// The quote of the one symbol X for this reply.
    std::optional<StockQuote> quoteFor(const HttpReply& reply) {
        manager().addTicker("X");
        manager().quotes = std::map<std::string, StockQuote>{};
        while (http.waitingCount() > 0)
            http.answer(SimulatedHttpClient::failure("Too late"));
        platform.logPort.lines.clear();
        manager().refreshQuotes();
        http.answer(reply);
        const auto& quotes = manager().quotes.get();
        return quotes.contains("X") ? std::optional(quotes.at("X")) : std::nullopt;
    }
    std::string lastMessage() {
        return platform.logPort.lines.empty() ? "" : platform.logPort.lines.back().message;
    }

    SimulatedPlatform platform;
    SimulatedHttpClient& http = platform.httpClientPort;
    std::unique_ptr<StockTickerManager> manager_;
};

TEST_F(StockTickerManagerTest, WhyThereIsNoQuoteIsKnownUntilThereIsOne) {
    using Failures = std::map<std::string, QuoteFailure>;
    for (const auto* symbol : {"A", "B", "C", "D"})
        manager().addTicker(symbol);
    EXPECT_EQ(manager().failures.get(), Failures{});
    http.answer({{}, 404, "{}"}, "/A?");
    http.answer({{}, 500, "{}"}, "/B?");
    http.answer(SimulatedHttpClient::failure("No network"), "/C?");
    http.answer(Replies::ok("[]"), "/D?");
    EXPECT_EQ(manager().failures.get(), (Failures{{"A", QuoteFailure::unknownSymbol},
                                                  {"B", QuoteFailure::noAnswer},
                                                  {"C", QuoteFailure::noAnswer},
                                                  {"D", QuoteFailure::noAnswer}}));
    manager().refreshQuotes();
    answerQuote("A", 12, 10);
    EXPECT_FALSE(manager().failures->contains("A"));
    manager().removeTicker(manager().tickers.get()[1]);
    manager().addTicker("B");
    EXPECT_FALSE(manager().failures->contains("B")) << "it is asked for anew";
    manager().addTicker("NO SUCH");
    EXPECT_EQ(manager().failures->at("NO SUCH"), QuoteFailure::unknownSymbol)
        << "no address can be made of it";
}

// The edge cases of the design

TEST_F(StockTickerManagerTest, ASymbolIsStoredTrimmedAndInCapitalsAndOnlyOnce) {
    manager().addTicker("  aapl\t");
    EXPECT_EQ(symbols(), Symbols{"AAPL"});
    EXPECT_EQ(http.requests.size(), 1u);
    const auto written = file();
    manager().addTicker("AAPL ");
    EXPECT_EQ(symbols(), Symbols{"AAPL"});
    EXPECT_EQ(http.requests.size(), 1u);
    EXPECT_EQ(file(), written);
}

TEST_F(StockTickerManagerTest, AddingOnlyBlanksDoesNothing) {
    manager().addTicker(" \t ");
    manager().addTicker("");
    EXPECT_TRUE(symbols().empty());
    EXPECT_TRUE(http.requests.empty());
    EXPECT_EQ(file(), "<no file>");
}

TEST_F(StockTickerManagerTest, APreviousCloseOf0HasAPercentageOf0AndAChangeEqualToThePrice) {
    EXPECT_EQ(quoteFor(Replies::ok(Replies::chart(12.5, 0))), (StockQuote{"X", 12.5, 12.5, 0, 0}));
}

TEST_F(StockTickerManagerTest, ThePreviousCloseOfTheDayServesWhenTheChartsIsMissing) {
    EXPECT_EQ(quoteFor(Replies::ok(R"({"chart":{"result":[{"meta":
                  {"regularMarketPrice":12,"previousClose":10}}]}})")),
              (StockQuote{"X", 12, 2, 20, 10}));
    EXPECT_EQ(quoteFor(Replies::ok(R"({"chart":{"result":[{"meta":
                  {"regularMarketPrice":12,"chartPreviousClose":"8","previousClose":10}}]}})")),
              (StockQuote{"X", 12, 2, 20, 10}));
}

TEST_F(StockTickerManagerTest, WithNeitherPreviousCloseItFailsWithTheParseMessage) {
    EXPECT_FALSE(
        quoteFor(Replies::ok(R"({"chart":{"result":[{"meta":{"regularMarketPrice":12}}]}})")));
    EXPECT_EQ(lastMessage(), "Failed to parse quote for X");
}

TEST_F(StockTickerManagerTest, RemovingASymbolDropsItsQuote) {
    manager().addTicker("X");
    answerQuote("X", 12, 10);
    ASSERT_EQ(manager().quotes->size(), 1u);
    manager().removeTicker(manager().tickers->front());
    EXPECT_TRUE(manager().quotes->empty());
    manager().addTicker("X");
    EXPECT_TRUE(manager().quotes->empty()) << "until the new fetch returns";
    answerQuote("X", 13, 10);
    EXPECT_EQ(manager().quotes->at("X").price, 13);
}

TEST_F(StockTickerManagerTest, SwitchingOffStopsTheTimerAndRequestsUnderWayStillStore) {
    manager().addTicker("X");
    manager().isEnabled = true;
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    manager().isEnabled = false;
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    EXPECT_TRUE(answerQuote("X", 12, 10));
    EXPECT_EQ(manager().quotes->at("X").price, 12);
    EXPECT_EQ(symbols(), Symbols{"X"});
}

// Requests

TEST_F(StockTickerManagerTest, AQuoteIsAskedForInThisVeryForm) {
    manager().addTicker("brk.b");
    EXPECT_EQ(
        http.requests.at(0),
        (HttpRequest{.url = "https://query1.finance.yahoo.com/v8/finance/chart/BRK.B"
                            "?range=1d&interval=1d",
                     .headers = {{"User-Agent", "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7)"}},
                     .timeout = 10}));
}

TEST_F(StockTickerManagerTest, ASymbolThatMakesNoAddressIsKeptAndAskedForNowhere) {
    manager().addTicker("two words");
    manager().addTicker("é");
    EXPECT_EQ(symbols(), (Symbols{"TWO WORDS", "É"}));
    EXPECT_TRUE(http.requests.empty());
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(StockTickerManagerTest, ARefreshAsksForAllSymbolsAtTheSameTime) {
    for (const auto* symbol : {"A", "B", "C"})
        manager().addTicker(symbol);
    const auto before = http.requests.size();
    manager().refreshQuotes();
    EXPECT_EQ(http.requests.size(), before + 3);
}

TEST_F(StockTickerManagerTest, WithoutSymbolsARefreshAsksNothing) {
    manager().refreshQuotes();
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(StockTickerManagerTest, ASymbolThatFailsKeepsItsOldQuote) {
    manager().addTicker("A");
    manager().addTicker("B");
    answerQuote("A", 1, 1);
    answerQuote("B", 2, 1);
    manager().refreshQuotes();
    http.answer(SimulatedHttpClient::failure("No route"), "/A?");
    answerQuote("B", 3, 1);
    EXPECT_EQ(manager().quotes->at("A").price, 1);
    EXPECT_EQ(manager().quotes->at("B").price, 3);
}

TEST_F(StockTickerManagerTest, TheQuoteBearsTheTickersOwnSymbol) {
    const auto quote = quoteFor(Replies::ok(Replies::chart(11, 10)));
    ASSERT_TRUE(quote);
    EXPECT_EQ(quote->symbol, "X") << "the service said XYZ";
}

TEST_F(StockTickerManagerTest, EachFailureHasItsMessage) {
    quoteFor(SimulatedHttpClient::failure("No route"));
    EXPECT_EQ(lastMessage(), "Failed to fetch quote for X: No route");
    EXPECT_EQ(platform.logPort.lines.back().level, LogLevel::error);
    EXPECT_EQ(platform.logPort.lines.back().category, "StockTickerManager");
    quoteFor({{}, 429, Replies::chart(1, 1)});
    EXPECT_EQ(lastMessage(), "HTTP 429 for X");
    quoteFor({{}, 204, {}});
    EXPECT_EQ(lastMessage(), "HTTP 204 for X");
    quoteFor(Replies::ok(""));
    EXPECT_EQ(lastMessage(), "Failed to parse quote for X");
    quoteFor(Replies::ok(Replies::chart(2, 1) + std::string(JsonReply::longest, ' ')));
    EXPECT_EQ(lastMessage(), "Failed to parse quote for X") << "nobody says so much of a stock";
}

TEST_F(StockTickerManagerTest, OnlyTheFirstResultCounts) {
    EXPECT_EQ(quoteFor(Replies::ok(R"({"chart":{"result":[
                  {"meta":{"regularMarketPrice":2,"chartPreviousClose":1}},
                  {"meta":{"regularMarketPrice":4,"chartPreviousClose":1}}]}})"))
                  ->price,
              2);
    EXPECT_FALSE(quoteFor(Replies::ok(R"({"chart":{"result":[]}})")));
}

TEST_F(StockTickerManagerTest, FiguresThatNoMarketHasAreNoQuote) {
    EXPECT_FALSE(quoteFor(Replies::ok(Replies::chart(1.5e308, -1.5e308))));
    EXPECT_FALSE(quoteFor(Replies::ok(Replies::chart(1e10, 5e-324))));
}

TEST_F(StockTickerManagerTest, NoMutationOfAReplyCrashesOrChangesTheQuote) {
    const auto good = *Json::parse(Replies::chart(11, 10));
    manager().addTicker("X");
    answerQuote("X", 12, 10);
    const auto shown = manager().quotes.get();
    Replies::forEachMutation(
        good, [&](const Json& mutated, const std::string& where, const Json& value) {
            platform.logPort.lines.clear();
            manager().refreshQuotes();
            http.answer(Replies::ok(mutated.text()));
            const bool isRead = !where.ends_with("/symbol") && !where.ends_with("/error");
            const bool isFigure = where.ends_with("Price") || where.ends_with("Close");
            if (!isRead || (isFigure && value.number())) {
                manager().quotes = shown;
                return;
            }
            EXPECT_EQ(lastMessage(), "Failed to parse quote for X") << where << " " << value.text();
            EXPECT_EQ(manager().quotes.get(), shown) << where << " " << value.text();
        });
}

// The timer

TEST_F(StockTickerManagerTest, TheRefreshComesAtTheStartAndEachMinute) {
    manager().addTicker("X");
    const auto before = http.requests.size();
    manager().start();
    EXPECT_EQ(http.requests.size(), before + 1);
    platform.runLoopPort.advance(59);
    EXPECT_EQ(http.requests.size(), before + 1);
    platform.runLoopPort.advance(61);
    EXPECT_EQ(http.requests.size(), before + 3);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
}

TEST_F(StockTickerManagerTest, SwitchedOffItDoesNotStart) {
    manager().isEnabled = false;
    manager().start();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(StockTickerManagerTest, MadeItStartsNothing) {
    manager();
    EXPECT_TRUE(manager().isEnabled);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(StockTickerManagerTest, RequestsUnderWayDieWithTheManager) {
    manager().addTicker("X");
    manager_.reset();
    EXPECT_EQ(http.waitingCount(), 0u);
}

// The file

TEST_F(StockTickerManagerTest, TheFileHoldsTheListInItsForm) {
    manager().addTicker("X");
    const auto& ticker = manager().tickers->front();
    EXPECT_EQ(*Json::parse(file()),
              Json(Json::Array{Json::Object{{"id", ticker.id.text()},
                                            {"symbol", "X"},
                                            {"name", ""},
                                            {"addedAt", ticker.addedAt.sinceReference}}}));
    EXPECT_EQ(ticker.addedAt, platform.runLoopPort.now());
    EXPECT_EQ(StockTickerManager(platform).tickers.get(), manager().tickers.get());
    manager().removeTicker(manager().tickers->front());
    EXPECT_EQ(file(), "[]");
}

TEST_F(StockTickerManagerTest, AMissingFileSaysNothing) {
    manager();
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(StockTickerManagerTest, AFileOfNoUseIsLoggedAndKeptAsideBeforeTheNextSave) {
    for (const std::string bytes :
         {"", "[{", "{}", "[1]", R"([{"id":"x","symbol":"A","name":"","addedAt":0}])",
          R"([{"id":"00112233-4455-6677-8899-AABBCCDDEEFF","symbol":"A","name":""}])"}) {
        platform.fileSystemPort.files = {{stocksPath, bytes}};
        platform.logPort.lines.clear();
        manager_.reset();
        EXPECT_TRUE(manager().tickers->empty());
        ASSERT_EQ(platform.logPort.lines.size(), 1u) << bytes;
        EXPECT_TRUE(lastMessage().starts_with("Failed to load stock tickers: ")) << bytes;
        EXPECT_EQ(platform.logPort.lines[0].level, LogLevel::error);
        manager().addTicker("X");
        EXPECT_NE(file().find("\"X\""), std::string::npos);
        EXPECT_EQ(platform.fileSystemPort.files[stocksPath + ".corrupt.1"], bytes);
    }
}

TEST_F(StockTickerManagerTest, NoMutationOfTheFileCrashes) {
    manager().addTicker("X");
    const auto good = *Json::parse(file());
    Replies::forEachMutation(
        good, [&](const Json& mutated, const std::string& where, const Json& value) {
            platform.fileSystemPort.files[stocksPath] = mutated.text();
            const StockTickerManager loaded(platform);
            EXPECT_LE(loaded.tickers->size(), 1u) << where << " " << value.text();
        });
}

TEST_F(StockTickerManagerTest, ASaveThatFailsIsLoggedAndMemoryKeepsTheChange) {
    platform.fileSystemPort.writable = false;
    manager().addTicker("X");
    file();
    EXPECT_TRUE(lastMessage().starts_with("Failed to save stock tickers: "));
    EXPECT_EQ(symbols(), Symbols{"X"});
}

TEST_F(StockTickerManagerTest, AQuoteTravelsAsJSON) {
    const StockQuote quote{"X", 12, 2, 20, 10};
    EXPECT_EQ(StockQuote::fromJson(quote.json()), quote);
    EXPECT_EQ(
        quote.json().text(),
        R"({"change":2.0,"changePercent":20.0,"previousClose":10.0,"price":12.0,"symbol":"X"})");
    EXPECT_FALSE(StockQuote::fromJson(Json::Object{{"symbol", "X"}}));
}

TEST_F(StockTickerManagerTest, SymbolsThatAnotherProgramAddedAreKept) {
    manager();
    StockTickerManager other(platform);
    other.addTicker("THEIRS");
    platform.runLoopPort.runPosted();
    manager().addTicker("OWN");
    platform.runLoopPort.runPosted();
    EXPECT_EQ(symbols(), (Symbols{"THEIRS", "OWN"}));
}

} // namespace
} // namespace orvelle
