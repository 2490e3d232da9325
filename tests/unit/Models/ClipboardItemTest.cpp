#include "Models/ClipboardItem.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Type = ClipboardContentType;

TEST(ClipboardContentTypeTest, ATrimmedDecimalNumberIsNumberOneWithAnExponentToo) {
    EXPECT_EQ(detectContentType(" 3.14\n"), Type::number);
    EXPECT_EQ(detectContentType("6.02e23"), Type::number);
}

TEST(ClipboardContentTypeTest, ALineThatAssignsWithTheWordLetAndABlankBehindItIsCode) {
    EXPECT_EQ(detectContentType("let x = 5"), Type::code);
    EXPECT_EQ(detectContentType("letter"), Type::text);
}

TEST(ClipboardContentTypeTest, NumbersAreThoseOfTheCLocale) {
    for (const char* text : {"0", "-1", "+2", ".5", "5.", "1e5", "-1E-5", "0x1F", "0x1.8p3",
                             "-0XAp-2", "inf", "-INFINITY", "nan", "1e999"})
        EXPECT_EQ(detectContentType(text), Type::number) << text;
    for (const char* text :
         {"1,000", "1 000", "--1", "+-1", "0x", "0x-1", "1e", "12a", "e5", "-", "٣"})
        EXPECT_EQ(detectContentType(text), Type::text) << text;
}

TEST(ClipboardContentTypeTest, AnAddressWithoutBlanksIsEmailWithAWordBehindItItGoesOn) {
    EXPECT_EQ(detectContentType("someone@mail.example"), Type::email);
    EXPECT_EQ(detectContentType("someone@mail.example please"), Type::text);
    EXPECT_EQ(detectContentType("import someone@mail.example"), Type::code);
}

TEST(ClipboardContentTypeTest, ATextWithASchemeAndSlashesIsUrlAMailLinkIsEmail) {
    EXPECT_EQ(detectContentType("https://host.example/a?b=c#d"), Type::url);
    EXPECT_EQ(detectContentType(" ftp://user@host.example \n"), Type::url);
    EXPECT_EQ(detectContentType("mailto:someone@mail.example"), Type::email);
}

TEST(ClipboardContentTypeTest, ATextThatIsNoAddressIsNoUrlForItsSlashes) {
    EXPECT_EQ(detectContentType("see https://host.example"), Type::text);
    EXPECT_EQ(detectContentType("https://host.example/%zz"), Type::text);
    EXPECT_EQ(detectContentType("a://b#c#d"), Type::text);
    EXPECT_EQ(detectContentType("https://host.example/한국"), Type::url);
}

TEST(ClipboardContentTypeTest, EveryEscapeOfAnAddressIsAPercentSignAndTwoHexDigits) {
    for (const char* text : {"https://host.example/a%20b", "https://host.example/%41%fF%09",
                             "https://host.example/%aA", "https://%46ost.example"})
        EXPECT_EQ(detectContentType(text), Type::url) << text;
    for (const char* text :
         {"https://host.example/%2", "https://host.example/%", "https://host.example/%2g",
          "https://host.example/%g2", "https://host.example/%20%zz", "https://host.example/%/0",
          "https://host.example/%:0", "https://host.example/%G0", "https://host.example/%`0",
          "https://host.example/%0%"})
        EXPECT_EQ(detectContentType(text), Type::text) << text;
}

TEST(ClipboardContentTypeTest, BlanksControlsAndBracketsStandInNoAddress) {
    for (const char* text : {"a://b\tc", "a://b\x7f", "a://<b>", "a://b\"", "a://b^", "a://b`",
                             "a://b|c", "a://b\\c", "a://b\x1f"})
        EXPECT_EQ(detectContentType(text), Type::text) << text;
    EXPECT_EQ(detectContentType("a://b!~"), Type::url);
    EXPECT_EQ(detectContentType("a://b#"), Type::url) << "an empty fragment is one";
}

TEST(ClipboardContentTypeTest, SignsOfSourceCodeCountAnywhere) {
    for (const char* text : {"a {", "func main", "a class act", "import x", "var y"})
        EXPECT_EQ(detectContentType(text), Type::code) << text;
    EXPECT_EQ(detectContentType("function"), Type::text);
    EXPECT_EQ(detectContentType("var"), Type::text);
}

TEST(ClipboardContentTypeTest, TheNumberTestComesBeforeTheCodeTestAndTheEmailTestBeforeBoth) {
    EXPECT_EQ(detectContentType("a@b.c{"), Type::email);
    EXPECT_EQ(detectContentType("1e5"), Type::number);
}

ClipboardItem itemOf(std::string content) {
    ClipboardItem item;
    item.content = std::move(content);
    return item;
}

TEST(ClipboardItemTest, A100CharacterTextShowsWholeA101CharacterTextShows100AndThreeDots) {
    const std::string text(100, 'x');
    EXPECT_EQ(itemOf(text).preview(), text);
    EXPECT_EQ(itemOf(text + "y").preview(), text + "...");
    EXPECT_EQ(itemOf("\n  " + text + " \n").preview(), text);
}

TEST(ClipboardItemTest, CharactersOfAPreviewAreThoseThatAReaderSees) {
    std::string text;
    for (int count = 0; count < 100; ++count)
        text += "e\u0301";
    EXPECT_EQ(itemOf(text).preview(), text);
    EXPECT_EQ(itemOf(text + "e\u0301").preview(), text + "...");
}

TEST(ClipboardContentTypeTest, WhatLiesBehindTheTextInMemoryTakesNoPart) {
    const std::string_view longer = "https://host.example/%20";
    EXPECT_EQ(detectContentType(longer.substr(0, longer.size() - 1)), Type::text);
    EXPECT_EQ(detectContentType(longer), Type::url);
}

} // namespace
} // namespace orvelle
