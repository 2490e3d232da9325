#include "Features/Weather/WeatherExpandedView.h"

#include "Features/Weather/WeatherCollapsedView.h"
#include "Features/Weather/WeatherManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class WeatherExpandedViewTest : public testing::Test {
protected:
    void save(int count) {
        for (int index = 0; index < count; ++index)
            manager.addSavedLocation({UUID::random(), "Oslo", 60, 10});
    }
    template <class Change>
    void change(Change change) {
        manager.weather.update(change);
    }

    SimulatedPlatform platform;
    WeatherManager manager{platform};
    WeatherExpandedView view{manager};
};

TEST_F(WeatherExpandedViewTest, TheFirstFetchShowsTheSpinnerAndItsFailureTheZeroRecord) {
    EXPECT_FALSE(view.showsLoadingView());
    manager.lastLocation = Coordinate{1, 1};
    manager.refreshWeather();
    EXPECT_TRUE(view.showsLoadingView());
    EXPECT_EQ(view.loadingText().text, "Loading weather...");
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No route"));
    EXPECT_FALSE(view.showsLoadingView());
    EXPECT_EQ(view.temperature().text + view.degreeSign().text, "0°");
    EXPECT_EQ(view.icon().name, "sun.max.fill");
    EXPECT_EQ(view.condition().text, "Clear Sky");
    EXPECT_EQ(view.location()->text, "Current Location");
}

TEST_F(WeatherExpandedViewTest, AReloadOverExistingDataKeepsThemOnTheScreen) {
    change([](auto& data) { data.locationName = "Paris"; });
    manager.isLoading = true;
    EXPECT_FALSE(view.showsLoadingView());
}

TEST_F(WeatherExpandedViewTest, WithNoSavedPlacesThereAreNeitherChevronsNorDots) {
    EXPECT_FALSE(view.locationControl());
    EXPECT_EQ(view.refreshButton().name, "arrow.clockwise");
    EXPECT_EQ(view.updatedAgo().text, "Updated just now");
}

TEST_F(WeatherExpandedViewTest, WithTwoSavedPlacesThereAreThreeDots) {
    save(2);
    manager.currentLocationIndex = 1;
    const auto control = view.locationControl();
    ASSERT_TRUE(control);
    const auto dim = Color::white(1, 0.2);
    EXPECT_EQ(control->dots, (std::vector{dim, Color::white(1, 0.8), dim}));
    const auto button = [](std::string_view name) {
        return StyledSymbol{name, 9, Color::white(1, 0.4), FontWeight::bold};
    };
    EXPECT_EQ(control->previous, button("chevron.left"));
    EXPECT_EQ(control->next, button("chevron.right"));
    EXPECT_EQ(view.refreshButton(), button("arrow.clockwise"));
    view.showNextLocation();
    EXPECT_EQ(manager.currentLocationIndex, 2u);
    view.showPreviousLocation();
    EXPECT_EQ(manager.currentLocationIndex, 1u);
}

TEST_F(WeatherExpandedViewTest, ACodeOutsideTheTableDrawsTheGreyGradientAndTheQuestionMark) {
    change([](auto& data) { data.weatherCode = 56; });
    EXPECT_EQ(view.gradient(), (std::array<Color, 2>{{{0.2, 0.2, 0.25}, {0.15, 0.15, 0.2}}}));
    EXPECT_EQ(view.icon().name, "questionmark.circle");
    EXPECT_EQ(view.watermark(), (StyledSymbol{"questionmark.circle", 64, Color::white(1, 0.08),
                                              FontWeight::regular, SymbolMode::hierarchical}));
}

TEST_F(WeatherExpandedViewTest, ACachedRecordReadsItsStoredAgeAndAFailureLeavesItGrowing) {
    platform.userDefaultsPort.set("weather_temperature", 50.0);
    platform.userDefaultsPort.set("weather_lastUpdated", platform.runLoopPort.now() + -600);
    WeatherManager cached(platform);
    const WeatherExpandedView shown(cached);
    EXPECT_EQ(shown.updatedAgoString(), "Updated 10 min ago");
    cached.lastLocation = Coordinate{1, 1};
    cached.refreshWeather();
    platform.runLoopPort.advance(120);
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No route"));
    EXPECT_EQ(shown.updatedAgoString(), "Updated 12 min ago");
}

TEST_F(WeatherExpandedViewTest, TheAgeCountsWholeMinutes) {
    const std::pair<double, const char*> rows[] = {
        {-500, "Updated just now"},     {0, "Updated just now"},    {59.9, "Updated just now"},
        {60, "Updated 1 min ago"},      {119, "Updated 1 min ago"}, {120, "Updated 2 min ago"},
        {86400, "Updated 1440 min ago"}};
    for (const auto& [age, text] : rows) {
        change([&](auto& data) { data.lastUpdated = platform.runLoopPort.now() + -age; });
        EXPECT_EQ(view.updatedAgoString(), text);
    }
}

TEST_F(WeatherExpandedViewTest, ChipsNameNoUnit) {
    change([](auto& data) {
        data.feelsLike = 70.6;
        data.humidity = 41;
        data.windSpeed = 8.4;
    });
    const auto chips = view.chips();
    EXPECT_EQ(chips[0].icon, (StyledSymbol{"thermometer", 9, Color::white(1, 0.5)}));
    EXPECT_EQ(chips[0].value, (StyledText{"71°", {11, FontWeight::medium, colors::white}}));
    EXPECT_EQ(chips[0].label.text, "Feels");
    EXPECT_EQ(chips[1].icon.name, "humidity");
    EXPECT_EQ(chips[1].value.text, "41%");
    EXPECT_EQ(chips[1].label.text, "Humid");
    EXPECT_EQ(chips[2].icon.name, "wind");
    EXPECT_EQ(chips[2].value.text, "8");
    EXPECT_EQ(chips[2].label.text, "Wind");
    EXPECT_EQ(chips[2].label.style.size, 8);
}

TEST_F(WeatherExpandedViewTest, TheConditionsAreWrittenInTheirSizes) {
    change([](auto& data) {
        data.temperature = 72.4;
        data.weatherCode = 0;
        data.isDay = false;
        data.locationName = "Paris";
    });
    EXPECT_EQ(view.temperature(), (StyledText{"72", {32, FontWeight::thin, colors::white}}));
    EXPECT_EQ(view.degreeSign(), (StyledText{"°", {18, FontWeight::thin, Color::white(1, 0.7)}}));
    EXPECT_EQ(view.icon(), (StyledSymbol{"moon.stars.fill", 26, colors::white, FontWeight::regular,
                                         SymbolMode::hierarchical}));
    EXPECT_EQ(view.condition(),
              (StyledText{"Clear Sky", {12, FontWeight::medium, Color::white(1, 0.9)}}));
    EXPECT_EQ(view.location(),
              (StyledText{"Paris", {10, FontWeight::regular, Color::white(1, 0.5)}}));
    EXPECT_EQ(view.updatedAgo().style, (TextStyle{9, FontWeight::regular, Color::white(1, 0.3)}));
}

TEST_F(WeatherExpandedViewTest, FiguresBeyondReasonAreStillTexts) {
    change([](auto& data) {
        data.temperature = 1e300;
        data.windSpeed = -0.2;
        data.humidity = INT64_MIN;
        data.lastUpdated = Date{-1e300};
    });
    EXPECT_EQ(view.temperature().text.size(), 301u);
    EXPECT_EQ(view.chips()[2].value.text, "0");
    EXPECT_FALSE(view.updatedAgoString().empty());
}

TEST_F(WeatherExpandedViewTest, TheCollapsedFormIsIconAndTemperature) {
    change([](auto& data) {
        data.temperature = 20.6;
        data.weatherCode = 3;
    });
    const auto collapsed = manager.collapsedView();
    EXPECT_EQ(collapsed.icon(), (StyledSymbol{"cloud.fill", 10, colors::white, FontWeight::regular,
                                              SymbolMode::hierarchical}));
    EXPECT_EQ(collapsed.temperature().text, "21°");
    EXPECT_EQ(manager.expandedView().condition().text, "Overcast");
}

TEST_F(WeatherExpandedViewTest, FiguresOfAnotherPlaceStandDimUntilTheirOwnCome) {
    EXPECT_EQ(view.figuresOpacity(), WeatherExpandedView::dimmedOpacity);
    EXPECT_LT(WeatherExpandedView::dimmedOpacity, 1);
    manager.hasFigures = true;
    EXPECT_EQ(view.figuresOpacity(), 1);
}

TEST_F(WeatherExpandedViewTest, TheButtonRefreshesAndTurnsMeanwhile) {
    manager.lastLocation = Coordinate{1, 1};
    EXPECT_FALSE(view.isRefreshing());
    view.refresh();
    EXPECT_EQ(platform.httpClientPort.requests.size(), 1u);
    EXPECT_TRUE(view.isRefreshing());
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No route"));
    EXPECT_FALSE(view.isRefreshing());
    EXPECT_EQ(view.loadingSpinner(), (ProgressSpinner{.scale = 0.7}));
}

} // namespace
} // namespace orvelle
