#include "Foundation/Json.h"
#include "Models/PomodoroState.h"
#include "Models/SavedLocation.h"
#include "Models/StockTicker.h"
#include "Models/SystemMetrics.h"
#include "Models/TemperatureUnit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvelle {
namespace {

/// A record of these fields, and the same without each of them in turn.
template <class Record>
void expectEachFieldIsNeeded(const std::vector<std::string>& fields) {
    const auto parsed = [&](std::size_t without) {
        std::string text;
        for (std::size_t index = 0; index < fields.size(); ++index)
            if (index != without)
                text += (text.empty() ? "{" : ",") + fields[index];
        return Record::fromJson(*Json::parse(text + "}"));
    };
    EXPECT_TRUE(parsed(fields.size()));
    for (std::size_t index = 0; index < fields.size(); ++index)
        EXPECT_FALSE(parsed(index)) << fields[index];
}

const std::string storedIdentifier = R"("id":"0E984725-C51C-4BF4-9960-E1C80E27ABA0")";

TEST(StoredRecords, APlaceNeedsEachOfItsFields) {
    expectEachFieldIsNeeded<SavedLocation>(
        {storedIdentifier, R"("name":"Oslo")", R"("latitude":59.9)", R"("longitude":10.7)"});
}

TEST(StoredRecords, ATickerNeedsEachOfItsFields) {
    expectEachFieldIsNeeded<StockTicker>(
        {storedIdentifier, R"("symbol":"AAPL")", R"("name":"")", R"("addedAt":1)"});
}

TEST(StoredRecords, AQuoteNeedsEachOfItsFields) {
    expectEachFieldIsNeeded<StockQuote>({R"("symbol":"AAPL")", R"("price":1)", R"("change":2)",
                                         R"("changePercent":3)", R"("previousClose":4)"});
}

TEST(PomodoroProgress, IsTheShareOfTheTimeThatHasGone) {
    PomodoroState state;
    EXPECT_EQ(state.progress(), 0) << "without a time";
    state.totalTime = 0.5;
    state.timeRemaining = 0.25;
    EXPECT_EQ(state.progress(), 0.5);
    state.timeRemaining = -1;
    EXPECT_EQ(state.progress(), 1);
}

TEST(FreshRecords, AFocusTimerHasNoTimeBeforeItsFirstPhase) {
    const PomodoroState state;
    EXPECT_EQ(state.phase, PomodoroPhase::idle);
    EXPECT_EQ(state.formattedTimeRemaining(), "00:00");
    EXPECT_EQ(state.sessionsCompleted, 0);
    EXPECT_FALSE(state.isRunning);
}

TEST(FreshRecords, ASampleOfTheMachineStartsWithoutLoad) {
    const SystemMetrics metrics;
    EXPECT_EQ(metrics.cpuUsage, 0);
    EXPECT_EQ(metrics.memoryUsage, 0);
    EXPECT_EQ(metrics.memoryTotal, 0u);
    EXPECT_EQ(metrics.memoryUsed, 0u);
    EXPECT_EQ(metrics.networkUpload, 0u);
    EXPECT_EQ(metrics.networkDownload, 0u);
    EXPECT_EQ(metrics.cpuTemperature, std::nullopt);
    EXPECT_EQ(metrics.diskUsage, 0);
}

TEST(TemperatureUnit, IsWrittenWithItsLetter) {
    EXPECT_EQ(rawValue(TemperatureUnit::celsius), "°C");
    EXPECT_EQ(rawValue(TemperatureUnit::fahrenheit), "°F");
}

} // namespace
} // namespace orvelle
