#include "Support/Replies.h"
#include "Views/Qt/SymbolItem.h"
#include "views/ViewFixture.h"

#include <QImage>

namespace orvelle {

class WeatherPanelTest : public ViewFixture {
protected:
    WeatherPanelTest() {
        WeatherData data;
        data.temperature = 72.4;
        data.feelsLike = 70.6;
        data.humidity = 41;
        data.windSpeed = 8.7;
        data.weatherCode = 2;
        data.lastUpdated = platform.runLoopPort.now();
        data.locationName = "Paris";
        weather.weather = data;
        weather.hasFigures = true;
    }
    void save(int count) {
        for (int index = 0; index < count; ++index)
            weather.addSavedLocation({UUID::random(), "Oslo", 60, 10});
    }
    SymbolItem* symbolIn(const QString& name) {
        auto* part = item(name);
        auto* symbol = qobject_cast<SymbolItem*>(part);
        return symbol ? symbol : part->findChild<SymbolItem*>();
    }
    QString valueOf(const QString& chip) {
        std::function<QQuickItem*(QQuickItem*)> find = [&](QQuickItem* at) -> QQuickItem* {
            for (auto* child : at->childItems()) {
                if (child->objectName() == "value")
                    return child;
                if (auto* found = find(child))
                    return found;
            }
            return nullptr;
        };
        auto* found = item(chip);
        const auto* value = found ? find(found) : nullptr;
        return value ? value->property("text").toString() : QStringLiteral("<no chip>");
    }
};

TEST_F(WeatherPanelTest, showsTheConditions) {
    show(ActivePanel::weather);
    EXPECT_EQ(textOf("temperature"), "72");
    EXPECT_EQ(textOf("condition"), "Partly Cloudy");
    EXPECT_EQ(textOf("location"), "Paris");
    EXPECT_EQ(valueOf("chip.Feels"), QString::fromUtf8("71°"));
    EXPECT_EQ(valueOf("chip.Humid"), "41%");
    EXPECT_EQ(valueOf("chip.Wind"), "9");
    EXPECT_EQ(textOf("updatedAgo"), "Updated just now");
}

TEST_F(WeatherPanelTest, itsButtonsAreBoldAndItsSkyHasTwoTones) {
    save(2);
    show(ActivePanel::weather);
    for (const auto* name : {"previousLocation", "nextLocation", "refreshButton"}) {
        EXPECT_EQ(symbolIn(name)->weight(), QFont::Bold) << name;
        EXPECT_FALSE(symbolIn(name)->isHierarchical()) << name;
    }
    EXPECT_TRUE(symbolIn("conditionIcon")->isHierarchical());
    EXPECT_EQ(symbolIn("conditionIcon")->weight(), QFont::Normal);
}

TEST_F(WeatherPanelTest, everythingStandsOnTheCardInItsOrder) {
    save(2);
    show(ActivePanel::weather);
    const auto chip = frameOf("chip.Feels");
    EXPECT_GE(frameOf("temperature").top(), 61 + 12);
    EXPECT_GE(chip.top(), frameOf("temperature").bottom());
    EXPECT_GE(frameOf("refreshButton").top(), chip.bottom());
    EXPECT_LE(frameOf("refreshButton").bottom(), 220 - 12 - 10);
    EXPECT_EQ(frameOf("chip.Humid").left() - chip.right(), 8);
    EXPECT_NEAR(frameOf("condition").right(), 566 - 12 - 10, 9);
}

TEST_F(WeatherPanelTest, theCardIsAColumnWithSixPointsBetweenItsRowsAndItsTopRowIsAlignedAtTheTop) {
    save(2);
    show(ActivePanel::weather);
    const auto conditions = frameOf("conditions"), chips = frameOf("chips");
    EXPECT_EQ(chips.top() - conditions.bottom(), 6);
    EXPECT_EQ(frameOf("weatherFooter").top() - chips.bottom(), 6);
    EXPECT_EQ(frameOf("conditionIcon").top(), conditions.top());
    EXPECT_EQ(item("temperature")->mapToItem(item("conditions"), QPointF()).y(), 0);
    EXPECT_EQ(frameOf("condition").top(), conditions.top() + 4);
}

TEST_F(WeatherPanelTest, withTwoSavedPlacesThereAreThreeDotsOfFourPoints) {
    save(2);
    show(ActivePanel::weather);
    EXPECT_EQ(frameOf("locationDots").size(), QSizeF(3 * 4 + 2 * 3, 4));
    weather.currentLocationIndex = 1;
    turn();
    ASSERT_NE(item("locationDots"), nullptr);
    const auto dots = item("locationDots")->childItems();
    EXPECT_EQ(dots[1]->property("color").value<QColor>().alpha(), 204);
    EXPECT_EQ(dots[0]->property("color").value<QColor>().alpha(), 51);
}

TEST_F(WeatherPanelTest, withNoSavedPlacesTheRefreshButtonStandsAlone) {
    show(ActivePanel::weather);
    EXPECT_EQ(item("locationDots"), nullptr);
    EXPECT_EQ(item("nextLocation"), nullptr);
    ASSERT_NE(item("refreshButton"), nullptr);
    save(1);
    turn();
    EXPECT_NE(item("nextLocation"), nullptr);
}

TEST_F(WeatherPanelTest, theArrowsLeafThroughThePlaces) {
    save(2);
    show(ActivePanel::weather);
    click("nextLocation");
    EXPECT_EQ(weather.currentLocationIndex, 1u);
    EXPECT_EQ(textOf("location"), "Oslo");
    click("previousLocation");
    click("previousLocation");
    EXPECT_EQ(weather.currentLocationIndex, 2u);
}

TEST_F(WeatherPanelTest, theRefreshButtonFetches) {
    weather.lastLocation = Coordinate{1, 1};
    show(ActivePanel::weather);
    click("refreshButton");
    EXPECT_EQ(platform.httpClientPort.requests.size(), 1u);
}

TEST_F(WeatherPanelTest, theFirstFetchShowsTheSpinner) {
    weather.weather = WeatherData{};
    weather.isLoading = true;
    show(ActivePanel::weather);
    EXPECT_EQ(textOf("loadingText"), "Loading weather...");
    EXPECT_EQ(item("temperature"), nullptr);
    weather.isLoading = false;
    turn();
    EXPECT_EQ(item("loadingText"), nullptr);
    EXPECT_EQ(textOf("location"), "Current Location");
}

TEST_F(WeatherPanelTest, theOldFiguresAreDimUntilThoseOfAnotherPlaceCome) {
    save(1);
    show(ActivePanel::weather);
    EXPECT_EQ(item("figures")->opacity(), 1);
    click("nextLocation");
    EXPECT_TRUE(eventually([&] { return item("figures")->opacity() < 0.5; }));
    EXPECT_LT(item("chips")->opacity(), 0.5);
    EXPECT_EQ(textOf("temperature"), "72") << "they stay until there are others";
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No network"));
    turn();
    EXPECT_LT(item("figures")->opacity(), 0.5) << "still another place's";
    weather.refreshWeather();
    platform.httpClientPort.answer(Replies::ok(Replies::forecast()));
    EXPECT_TRUE(eventually([&] { return item("figures")->opacity() == 1; }));
}

TEST_F(WeatherPanelTest, theRefreshButtonTurnsWhileItFetches) {
    weather.lastLocation = Coordinate{1, 1};
    show(ActivePanel::weather);
    auto* symbol = item(item("refreshButton"), "buttonSymbol");
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(symbol->rotation(), 0);
    click("refreshButton");
    EXPECT_TRUE(eventually([&] { return symbol->rotation() > 10; }));
    platform.httpClientPort.answer(SimulatedHttpClient::failure("No network"));
    EXPECT_TRUE(eventually([&] { return symbol->rotation() == 0; }));
}

TEST_F(WeatherPanelTest, beforeAnythingWasFetchedTheFiguresAreDim) {
    weather.weather = WeatherData{};
    weather.hasFigures = WeatherManager(platform).hasFigures.get();
    show(ActivePanel::weather);
    EXPECT_LT(item("figures")->opacity(), 0.5);
    EXPECT_LT(item("updatedAgo")->opacity(), 0.5);
}

TEST_F(WeatherPanelTest, aNameOfAnyLengthAndFiguresBeyondReasonStayOnTheCard) {
    save(1);
    weather.weather.update([](WeatherData& data) {
        data.temperature = 1e300;
        data.feelsLike = -1e300;
        data.locationName = std::string(500, 'W');
    });
    show(ActivePanel::weather);
    EXPECT_LE(frameOf("temperature").right(), 566 - 22);
    EXPECT_LE(frameOf("location").right(), 566 - 22 + 0.01);
    EXPECT_GE(frameOf("location").left(), frameOf("temperature").right());
    EXPECT_LE(frameOf("chip.Wind").right(), 566 - 22);
}

TEST_F(WeatherPanelTest, theSkyColoursTheCardAndItsCornersAreRound) {
    weather.weather.update([](WeatherData& data) { data.weatherCode = 0; });
    show(ActivePanel::weather);
    const QImage image = window.grabWindow();
    const auto color = [&](double x, double y) {
        return image.pixelColor(static_cast<int>(x * image.width() / 566),
                                static_cast<int>(y * image.height() / 220));
    };
    // The orange of a clear day, darkened on its black ground.
    EXPECT_NEAR(color(20, 80).redF(), 0.95 * 0.35, 0.03);
    EXPECT_NEAR(color(20, 80).blueF(), 0.2 * 0.35, 0.03);
    EXPECT_LT(color(545, 200).greenF(), color(20, 80).greenF());
    EXPECT_EQ(color(13, 74), QColor(Qt::black));
}

} // namespace orvelle
