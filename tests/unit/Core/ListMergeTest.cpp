#include "Core/ListMerge.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// Lists as "id" or "id=value" words.
Json::Array list(std::string_view words) {
    Json::Array records;
    while (!words.empty()) {
        const auto word = words.substr(0, words.find(' '));
        words.remove_prefix(std::min(word.size() + 1, words.size()));
        const auto sign = word.find('=');
        records.push_back(
            Json::Object{{"id", std::string(word.substr(0, sign))},
                         {"value", std::string(sign == word.npos ? "" : word.substr(sign + 1))}});
    }
    return records;
}

std::string wordsOf(const Json::Array& records) {
    std::string words;
    for (const auto& record : records) {
        const auto value = *record.member("value").string();
        words += (words.empty() ? "" : " ") + *record.member("id").string() +
                 (value.empty() ? "" : "=" + value);
    }
    return words;
}

std::string merged(std::string_view base, std::string_view own, std::string_view others) {
    return wordsOf(mergedLists(list(base), list(own), list(others), "id"));
}

TEST(ListMerge, KeepsWhatEitherSideAdded) {
    EXPECT_EQ(merged("a b", "a b own", "a b theirs"), "a b theirs own");
    EXPECT_EQ(merged("a b", "own a b", "theirs a b"), "theirs own a b");
    EXPECT_EQ(merged("a b", "a own b", "a theirs b"), "a theirs own b");
    EXPECT_EQ(merged("", "own", "x y"), "x y own");
}

TEST(ListMerge, DropsWhatEitherSideRemoved) {
    EXPECT_EQ(merged("a b c", "a c", "a b"), "a");
    EXPECT_EQ(merged("a", "", ""), "");
}

TEST(ListMerge, TakesTheSideThatChangedARecord) {
    EXPECT_EQ(merged("a=1 b=1", "a=2 b=1", "a=1 b=3"), "a=2 b=3");
}

TEST(ListMerge, OwnCountsWhereBothChangedARecord) {
    EXPECT_EQ(merged("a=1", "a=2", "a=3"), "a=2");
    EXPECT_EQ(merged("", "a=2", "a=3"), "a=2");
}

TEST(ListMerge, AChangedRecordOutlivesItsRemovalByTheOther) {
    EXPECT_EQ(merged("a=1 b", "a=2 b", "b"), "a=2 b");
    EXPECT_EQ(merged("a=1 b", "b", "a=2 b"), "a=2 b");
}

TEST(ListMerge, KeepsTheOwnOrder) {
    EXPECT_EQ(merged("a b c", "c a b", "a b c x"), "c x a b");
}

TEST(ListMerge, RecordsOfOneIdentifierAreToldApartByTheirNumber) {
    EXPECT_EQ(merged("a", "a a=2", "a"), "a a=2");
    EXPECT_EQ(merged("a a=2", "a a=2", "a"), "a");
}

} // namespace
} // namespace orvelle
