#include "Foundation/Base64.h"
#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Foundation/UUID.h"

#include <gtest/gtest.h>

#include <set>

namespace orvelle {
namespace {

TEST(UUID, TextReadsBackInEitherCase) {
    const auto id = UUID::random();
    EXPECT_EQ(UUID::parse(id.text()), id);
    const auto parsed = UUID::parse("0f8fad5b-d9cb-469f-a165-70867728950e");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->text(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
}

TEST(UUID, RandomOnesDifferAndAreOfVersionFour) {
    std::set<UUID> seen;
    for (int count = 0; count < 1000; ++count) {
        const auto id = UUID::random();
        EXPECT_EQ(id.text()[14], '4');
        EXPECT_NE(std::string("89AB").find(id.text()[19]), std::string::npos);
        seen.insert(id);
    }
    EXPECT_EQ(seen.size(), 1000u);
}

TEST(UUID, RefusesEveryOtherForm) {
    for (const std::string text :
         {"", "0F8FAD5B", "0F8FAD5BD9CB469FA16570867728950E", "0F8FAD5B-D9CB-469F-A165-70867728950",
          "0F8FAD5B-D9CB-469F-A165-70867728950E0", "0F8FAD5B-D9CB-469F-A165-70867728950G",
          "{0F8FAD5B-D9CB-469F-A165-70867728950E", "0F8FAD5B_D9CB-469F-A165-70867728950E"})
        EXPECT_EQ(UUID::parse(text), std::nullopt) << text;
}

TEST(Date, CountsFromTheReferenceDate) {
    EXPECT_EQ(Date::fromUnix(978307200).sinceReference, 0);
    EXPECT_EQ(Date{0}.sinceUnix(), 978307200);
    EXPECT_EQ(Date{10} + 5, Date{15});
    EXPECT_EQ(Date{10} - Date{4}, 6);
    EXPECT_LT(Date::distantPast(), Date::fromUnix(0));
}

TEST(Base64, AgreesWithThePublishedVectors) {
    const auto encoded = [](std::string_view text) {
        return base64(std::vector<std::uint8_t>(text.begin(), text.end()));
    };
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("f"), "Zg==");
    EXPECT_EQ(encoded("fo"), "Zm8=");
    EXPECT_EQ(encoded("foo"), "Zm9v");
    EXPECT_EQ(encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64, EveryByteReadsBack) {
    std::vector<std::uint8_t> bytes;
    for (int value = 0; value < 256; ++value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        EXPECT_EQ(bytesOfBase64(base64(bytes)), bytes);
    }
}

TEST(Base64, RefusesWhatItWouldNotWrite) {
    for (const std::string text :
         {"Z", "Zg", "Zg=", "Zg===", "Zh==", "Zm9v\n", "Zm 9", "====", "é"})
        EXPECT_EQ(bytesOfBase64(text), std::nullopt) << text;
}

TEST(Color, MixesInProportionAndStaysAtTheEnds) {
    const Color one{0, 0.25, 1, 1};
    const Color other{1, 0.75, 0, 1};
    EXPECT_EQ(one.mixed(other, 0.25), (Color{0.25, 0.375, 0.75, 1}));
    EXPECT_EQ(one.mixed(other, -0.1), one);
    EXPECT_EQ(one.mixed(other, 1.1), other);
}

TEST(Color, WhatIsTransparentLendsNoHueToAMixture) {
    const auto mixed = colors::clear.mixed({1, 0.5, 0, 0.2}, 0.5);
    EXPECT_DOUBLE_EQ(mixed.red, 1);
    EXPECT_DOUBLE_EQ(mixed.green, 0.5);
    EXPECT_DOUBLE_EQ(mixed.alpha, 0.1);
    EXPECT_EQ(colors::clear.mixed(colors::clear, 0.5), colors::clear);
}

} // namespace
} // namespace orvelle
