#include "Platform/Linux/GWeatherGeocoder.h"

#include "Platform/Qt/QtRunLoop.h"
#include "adapters/EventLoopWait.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

namespace orvelle {
namespace {

class GWeatherGeocoderTest : public testing::Test {
protected:
    std::optional<std::string> nameOf(Coordinate place) {
        std::optional<std::optional<std::string>> answer;
        const auto handle = geocoder.reverseGeocode(
            place, [&](const std::optional<std::string>& locality) { answer = locality; });
        EXPECT_FALSE(answer) << "an answer during the call";
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::nullopt);
    }

    QtRunLoop loop;
    GWeatherGeocoder geocoder{loop};
};

TEST_F(GWeatherGeocoderTest, NamesTheNearestCity) {
    EXPECT_EQ(nameOf({59.91, 10.75}), "Oslo");
    EXPECT_EQ(nameOf({-33.45, -70.66}), "Santiago");
}

TEST_F(GWeatherGeocoderTest, FarFromEveryCityThereIsNoName) {
    EXPECT_EQ(nameOf({-48.9, -123.4}), std::nullopt); // the middle of the Pacific
}

TEST_F(GWeatherGeocoderTest, PlacesThatAreNotOnEarthHaveNoName) {
    EXPECT_EQ(nameOf({NAN, NAN}), std::nullopt);
    EXPECT_EQ(nameOf({1e300, -1e300}), std::nullopt);
}

TEST_F(GWeatherGeocoderTest, ManyQuestionsAtOnceAreAllAnswered) {
    constexpr int count = 20;
    int answers = 0;
    std::vector<Subscription> handles;
    for (int index = 0; index < count; ++index)
        handles.push_back(geocoder.reverseGeocode(
            {59.91, 10.75}, [&](const auto& locality) { answers += locality == "Oslo"; }));
    EXPECT_TRUE(waitUntil([&] { return answers == count; }));
}

TEST_F(GWeatherGeocoderTest, NothingIsDeliveredAfterTheHandleDied) {
    int deliveries = 0;
    auto dropped = geocoder.reverseGeocode({59.91, 10.75}, [&](const auto&) { ++deliveries; });
    dropped.reset();
    nameOf({59.91, 10.75});
    EXPECT_EQ(deliveries, 0);
}

} // namespace
} // namespace orvelle
