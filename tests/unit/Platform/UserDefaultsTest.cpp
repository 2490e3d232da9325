#include "Platform/Simulated/SimulatedUserDefaults.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvelle {
namespace {

TEST(UserDefaults, UnsetKeyReadsAsNothing) {
    const SimulatedUserDefaults defaults;
    EXPECT_FALSE(defaults.boolean("key"));
    EXPECT_EQ(defaults.number("key"), 0);
    EXPECT_EQ(defaults.integer("key"), 0);
    EXPECT_EQ(defaults.string("key"), std::nullopt);
    EXPECT_EQ(defaults.data("key"), std::nullopt);
    EXPECT_EQ(defaults.date("key"), std::nullopt);
    EXPECT_EQ(defaults.storedBoolean("key"), std::nullopt);
}

TEST(UserDefaults, NumbersReadAsBooleansAndBooleansAsNumbers) {
    SimulatedUserDefaults defaults;
    defaults.set("one", std::int64_t{1});
    defaults.set("half", 0.5);
    defaults.set("zero", 0.0);
    defaults.set("yes", true);
    EXPECT_TRUE(defaults.boolean("one"));
    EXPECT_TRUE(defaults.boolean("half"));
    EXPECT_FALSE(defaults.boolean("zero"));
    EXPECT_EQ(defaults.number("yes"), 1);
    EXPECT_EQ(defaults.integer("yes"), 1);
}

TEST(UserDefaults, TextsReadAsWhatTheySay) {
    SimulatedUserDefaults defaults;
    for (const char* text : {"true", "YES", "1", "True"}) {
        defaults.set("key", std::string(text));
        EXPECT_TRUE(defaults.boolean("key")) << text;
    }
    for (const char* text : {"false", "no", "0", "", "perhaps"}) {
        defaults.set("key", std::string(text));
        EXPECT_FALSE(defaults.boolean("key")) << text;
    }
    defaults.set("key", std::string("12.75"));
    EXPECT_EQ(defaults.number("key"), 12.75);
    EXPECT_EQ(defaults.integer("key"), 12);
    for (const char* text : {"12px", " 1", "nan", "inf", "1e999", ""}) {
        defaults.set("key", std::string(text));
        EXPECT_EQ(defaults.number("key"), 0) << text;
    }
}

TEST(UserDefaults, IntegerIsCutTowardsZero) {
    SimulatedUserDefaults defaults;
    defaults.set("key", -2.9);
    EXPECT_EQ(defaults.integer("key"), -2);
    defaults.set("key", std::int64_t{9007199254740993});
    EXPECT_EQ(defaults.integer("key"), 9007199254740993);
}

TEST(UserDefaults, NumbersOutOfRangeReadAsZero) {
    SimulatedUserDefaults defaults;
    defaults.set("key", 1e300);
    EXPECT_EQ(defaults.integer("key"), 0);
    defaults.set("key", std::nan(""));
    EXPECT_EQ(defaults.number("key"), 0);
    EXPECT_FALSE(defaults.boolean("key"));
}

TEST(UserDefaults, TypedReadsTakeNoOtherType) {
    SimulatedUserDefaults defaults;
    defaults.set("text", std::string("true"));
    defaults.set("date", Date{5});
    EXPECT_EQ(defaults.storedBoolean("text"), std::nullopt);
    EXPECT_EQ(defaults.data("text"), std::nullopt);
    EXPECT_EQ(defaults.string("date"), std::nullopt);
    EXPECT_EQ(defaults.number("date"), 0);
    EXPECT_EQ(defaults.date("date"), Date{5});
}

} // namespace
} // namespace orvelle
