#include "Foundation/Json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvelle {
namespace {

std::string nested(int depth) {
    return std::string(static_cast<std::size_t>(depth), '[') +
           std::string(static_cast<std::size_t>(depth), ']');
}

TEST(Json, ReadsEveryKindOfValue) {
    const auto json = Json::parse(R"({"a":[1,2.5,"text",true,null],"b":{"c":-3}})");
    ASSERT_TRUE(json);
    const auto& list = *json->find("a")->array();
    ASSERT_EQ(list.size(), 5u);
    EXPECT_EQ(list[0].integer(), 1);
    EXPECT_EQ(list[1].number(), 2.5);
    EXPECT_EQ(list[2].string(), "text");
    EXPECT_EQ(list[3].boolean(), true);
    EXPECT_TRUE(list[4].isNull());
    EXPECT_EQ(json->find("b")->find("c")->integer(), -3);
    EXPECT_EQ(json->find("missing"), nullptr);
    EXPECT_EQ(list[0].find("a"), nullptr);
    EXPECT_EQ(json->member("b"), *json->find("b"));
    EXPECT_EQ(json->member("missing"), Json());
    EXPECT_EQ(list[0].member("a"), Json());
}

TEST(Json, WhatIsWrittenReadsBackEqual) {
    const Json json(Json::Object{
        {"list", Json::Array{1, 2.5, "x", false, nullptr}},
        {"nested", Json::Object{{"empty", Json::Object{}}, {"none", Json::Array{}}}},
        {"escapes", std::string("quote \" slash \\ line \n nul \0 end", 32)},
        {"unicode", "Zürich 東京 🎵"},
        {"smallest", std::numeric_limits<std::int64_t>::min()},
        {"tiny", 5e-324},
        {"third", 1.0 / 3},
    });
    EXPECT_EQ(Json::parse(json.text()), json);
}

TEST(Json, WritesCompactWithAscendingKeysAndUnescapedUnicode) {
    const auto json = Json::parse("{ \"b\" : 1 , \"a\" : \"\\u00fc\" }");
    ASSERT_TRUE(json);
    EXPECT_EQ(json->text(), "{\"a\":\"ü\",\"b\":1}");
}

TEST(Json, WholeDoubleStaysADouble) {
    EXPECT_EQ(Json(5.0).text(), "5.0");
    EXPECT_TRUE(Json::parse("5.0")->isReal());
    EXPECT_FALSE(Json::parse("5")->isReal());
    EXPECT_EQ(Json::parse("5.0")->integer(), 5);
}

TEST(Json, IntegersThatDoNotFitBecomeDoubles) {
    EXPECT_EQ(Json::parse("9223372036854775807")->integer(),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_TRUE(Json::parse("9223372036854775808")->isReal());
    EXPECT_EQ(Json::parse("18446744073709551615")->number(), 18446744073709551615.0);
    EXPECT_EQ(Json::parse("1" + std::string(30, '0'))->number(), 1e30);
    EXPECT_EQ(Json::parse("9223372036854775808")->integer(), std::nullopt);
}

TEST(Json, IntegerOfADoubleOnlyWithoutAFraction) {
    EXPECT_EQ(Json(2.5).integer(), std::nullopt);
    EXPECT_EQ(Json(-9223372036854775808.0).integer(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Json(std::nan("")).integer(), std::nullopt);
    EXPECT_EQ(Json("7").integer(), std::nullopt);
}

TEST(Json, NumbersThatAreNotFiniteAreWrittenAsNull) {
    EXPECT_EQ(Json(Json::Array{std::nan(""), HUGE_VAL}).text(), "[null,null]");
}

TEST(Json, BadBytesInATextAreReplaced) {
    EXPECT_EQ(Json("a\xFF").text(), "\"a\xEF\xBF\xBD\"");
}

TEST(Json, TheLastOfEqualKeysCounts) {
    const auto json = Json::parse(R"({"a":1,"a":2})");
    ASSERT_TRUE(json);
    EXPECT_EQ(json->object()->size(), 1u);
    EXPECT_EQ(json->find("a")->integer(), 2);
}

TEST(Json, RefusesWhatIsNotOneWholeDocument) {
    for (const std::string text :
         {"",     " ",        "{",     "[1,",    "{\"a\":}",    "{\"a\":1,}", "{} {}",
          "[1]x", "nul",      "'a'",   "01",     "+1",          "1.",         ".5",
          "NaN",  "Infinity", "1e999", "\"\t\"", "\"\\ud800\"", "\"open",     "// c\n1"})
        EXPECT_EQ(Json::parse(text), std::nullopt) << text;
}

TEST(Json, RefusesTextThatIsNotUtf8) {
    EXPECT_EQ(Json::parse("\"\xFF\""), std::nullopt);
    EXPECT_EQ(Json::parse("\"\xC0\x80\""), std::nullopt);
    EXPECT_EQ(Json::parse("\"\xED\xA0\x80\""), std::nullopt);
}

TEST(Json, RefusesANulByteAnywhere) {
    EXPECT_EQ(Json::parse(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(Json::parse(std::string_view("{}\0{}", 5)), std::nullopt);
    EXPECT_EQ(Json::parse(std::string_view("\"\0\"", 3)), std::nullopt);
}

TEST(Json, RefusesNestingBeyondTheMaximumDepth) {
    EXPECT_TRUE(Json::parse(nested(Json::maximumDepth)));
    EXPECT_FALSE(Json::parse(nested(Json::maximumDepth + 1)));
    EXPECT_FALSE(Json::parse(std::string(10'000'000, '[')));
}

} // namespace
} // namespace orvelle
