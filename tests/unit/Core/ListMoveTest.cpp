#include "Core/ListMove.h"

#include <gtest/gtest.h>

#include <string>

namespace orvelle {
namespace {

std::string moved(std::set<std::size_t> offsets, std::size_t to) {
    const std::string names = "abcde";
    std::vector<char> rows(names.begin(), names.end());
    moveRows(rows, offsets, to);
    return {rows.begin(), rows.end()};
}

TEST(ListMove, ARowGoesInFrontOfTheOneThatStandsThere) {
    EXPECT_EQ(moved({3}, 1), "adbce");
    EXPECT_EQ(moved({1}, 3), "acbde");
    EXPECT_EQ(moved({0}, 5), "bcdea");
    EXPECT_EQ(moved({4}, 0), "eabcd");
}

TEST(ListMove, ARowMovedToItsOwnPlaceOrBehindItselfStays) {
    EXPECT_EQ(moved({2}, 2), "abcde");
    EXPECT_EQ(moved({2}, 3), "abcde");
}

TEST(ListMove, SeveralRowsGoTogetherInTheirOrder) {
    EXPECT_EQ(moved({0, 2, 4}, 2), "baced");
    EXPECT_EQ(moved({0, 1}, 5), "cdeab");
}

TEST(ListMove, RowsThatAreNotThereAreIgnored) {
    EXPECT_EQ(moved({5, 99}, 0), "abcde");
    EXPECT_EQ(moved({}, 3), "abcde");
}

TEST(ListMove, TheDestinationBringsARowToThePositionThatIsAskedFor) {
    for (std::size_t from = 0; from < 5; ++from)
        for (std::size_t to = 0; to < 5; ++to)
            EXPECT_EQ(moved({from}, destination(from, to))[to], "abcde"[from]) << from << to;
}

} // namespace
} // namespace orvelle
