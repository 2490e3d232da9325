#include "Foundation/Text.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(TextTest, BlanksAreSpacesOfEveryKindAndTabsButNoLineEnds) {
    EXPECT_EQ(Text::trimmingBlanks(" \t\u00a0\u2003\u3000a b\u00a0 "), "a b");
    EXPECT_EQ(Text::trimmingBlanks("\n a \r\n"), "\n a \r\n");
    EXPECT_EQ(Text::trimmingBlanks("   "), "");
    EXPECT_EQ(Text::trimmingBlanks(""), "");
}

TEST(TextTest, WhatIsShownEndsBetweenTwoLettersAfterAThousandBytes) {
    EXPECT_EQ(Text::displayable("Gr\u00fc\u00dfe"), "Gr\u00fc\u00dfe");
    EXPECT_EQ(Text::displayable(std::string(1000, 'x')).size(), 1000u);
    EXPECT_EQ(Text::displayable(std::string(1'000'000, 'x')).size(), 1000u);
    for (const std::string lead : {"", "a", "ab", "abc"}) {
        std::string text = lead;
        while (text.size() < 2000)
            text += "\U0001F600";
        const auto shown = Text::displayable(text);
        EXPECT_EQ((shown.size() - lead.size()) % 4, 0u);
        EXPECT_GT(shown.size(), 996u);
    }
    EXPECT_GE(Text::displayable(std::string(2000, '\x80')).size(), 996u) << "no letters at all";
}

TEST(TextTest, LineEndsOfEveryKindAreCutWhereTheyAreToBe) {
    EXPECT_EQ(Text::trimmingBlanksAndNewlines("\r\n\v\f\u0085\u2028\u2029 a\nb \n"), "a\nb");
    EXPECT_EQ(Text::trimmingBlanksAndNewlines("\n\n"), "");
}

TEST(TextTest, BytesThatAreNoTextAreNotCut) {
    EXPECT_EQ(Text::trimmingBlanks(" \xff\xfe "), "\xff\xfe");
}

TEST(TextTest, CharactersCountAsAReaderCountsThem) {
    EXPECT_EQ(Text::firstCharacters("abc", 2), "ab");
    EXPECT_EQ(Text::firstCharacters("abc", 3), "abc");
    EXPECT_EQ(Text::firstCharacters("abc", 9), "abc");
    EXPECT_EQ(Text::firstCharacters("", 1), "");
    EXPECT_EQ(Text::firstCharacters("e\u0301x", 1), "e\u0301");
    EXPECT_EQ(Text::firstCharacters("👩‍👩‍👧🇩🇪x", 2),
              "👩‍👩‍👧🇩🇪");
}

TEST(TextTest, InOneLineEveryLineEndIsABlankAndNothingElseIs) {
    EXPECT_EQ(Text::inOneLine("a\nb\r\nc\rd\n\ne"), "a b c d  e");
    EXPECT_EQ(Text::inOneLine("\v\f\u0085\u2028\u2029"), "     ");
    EXPECT_EQ(Text::inOneLine("  a\t b\u00a0  c \u2030 "), "  a\t b\u00a0  c \u2030 ");
    EXPECT_EQ(Text::inOneLine(""), "");
}

TEST(TextTest, APartIsFoundWhereverItStandsAndHoweverOftenItsLastByteComes) {
    EXPECT_TRUE(Text::contains("", ""));
    EXPECT_TRUE(Text::contains("abc", ""));
    EXPECT_FALSE(Text::contains("", "a"));
    EXPECT_TRUE(Text::contains("abc", "abc"));
    EXPECT_FALSE(Text::contains("bc", "abc"));
    EXPECT_TRUE(Text::contains("a\u00e4\u00fc", "\u00fc"));
    EXPECT_FALSE(Text::contains("a\u00e4\u00f6", "\u00fc"));
    for (const std::size_t before : {0u, 1u, 62u, 63u, 64u, 65u, 66u, 1000u}) {
        const std::string many(before, 'b');
        EXPECT_TRUE(Text::contains(many + "ab", "ab")) << before;
        EXPECT_TRUE(Text::contains(many + "ab" + many, "ab")) << before;
        EXPECT_FALSE(Text::contains(many + "a" + "c", "ab")) << before;
        EXPECT_TRUE(Text::contains(many + "aab", "aab")) << before;
    }
}

TEST(TextTest, FoldingKnowsEveryLetterOfASCIIAndNothingAround) {
    std::string all;
    for (char byte = 1; byte < 0x7f; ++byte)
        all += byte;
    EXPECT_EQ(Text::folded(all), Text::folded(all + "é").substr(0, all.size()));
}

TEST(TextTest, FoldedTextsDifferInMoreThanCase) {
    EXPECT_EQ(Text::folded("STRASSE Éa"), Text::folded("straße e\u0301A"));
    EXPECT_NE(Text::folded("a"), Text::folded("b"));
    EXPECT_EQ(Text::folded("TITLE"), "title");
    EXPECT_EQ(Text::folded("TITLE", "tr_TR"), "t\u0131tle");
}

} // namespace
} // namespace orvelle
