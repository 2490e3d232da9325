#include "Foundation/FileURL.h"

#include "Foundation/Utf8.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Urls = std::vector<std::string>;

TEST(FileURL, EscapesWhatIsNotPlain) {
    EXPECT_EQ(FileURL::ofPath("/tmp/a b#?%\xc3\xa9\xff~-._"),
              "file:///tmp/a%20b%23%3F%25%C3%A9%FF~-._");
}

TEST(FileURL, EveryByteComesBack) {
    std::string path = "/";
    for (int byte = 1; byte < 256; ++byte)
        path += static_cast<char>(byte);
    EXPECT_EQ(FileURL::path(FileURL::ofPath(path)), path);
}

TEST(FileURL, UnderstandsTheWaysToWriteAnAddressOfThisMachine) {
    for (const char* url : {"file:///tmp/a%20b", "file:/tmp/a%20b", "FILE://localhost/tmp/a%20b",
                            "file://Desk/tmp/a%20b", "file:///tmp/a%20b?query", "file:///tmp/a b"})
        EXPECT_EQ(FileURL::path(url, "desk"), "/tmp/a b") << url;
}

TEST(FileURL, RefusesWhatIsNoFileHere) {
    for (const char* url : {"", "file:", "file://", "file:tmp/a", "/tmp/a", "http://desk/tmp/a",
                            "file://elsewhere/tmp/a", "file:///tmp/%", "file:///tmp/%4",
                            "file:///tmp/%zz", "file:///tmp/a%00b", "filed:///tmp/a"})
        EXPECT_FALSE(FileURL::path(url, "desk")) << url;
}

TEST(FileURL, AListIsLinesAmongWhichTheFilesCount) {
    EXPECT_EQ(FileURL::list("# comment\r\nfile:///b\r\nhttps://example.org/\r\nfile:///a%20c\n\r\n"
                            "file:///last"),
              (Urls{"file:///b", "file:///a%20c", "file:///last"}));
    EXPECT_TRUE(FileURL::list("file:///" + std::string(1'000'000, 'a')).empty());
    EXPECT_TRUE(FileURL::list("").empty());
    EXPECT_EQ(FileURL::list("file:///a\nfile:///b\nfile:///c\n", {}, 2),
              (std::vector<std::string>{"file:///a", "file:///b"}));
    EXPECT_TRUE(FileURL::list("\r\n\n#file:///a").empty());
}

TEST(FileURL, TheLastComponentIsTheName) {
    EXPECT_EQ(FileURL::lastPathComponent("/tmp/a.txt"), "a.txt");
    EXPECT_EQ(FileURL::lastPathComponent("/tmp/folder///"), "folder");
    EXPECT_EQ(FileURL::lastPathComponent("/tmp/.."), "..");
    EXPECT_EQ(FileURL::lastPathComponent("/"), "");
    EXPECT_EQ(FileURL::lastPathComponent(""), "");
}

TEST(WellFormedUtf8, LeavesTextAlone) {
    const std::string text = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80";
    EXPECT_EQ(wellFormedUtf8(text, '_'), text);
}

TEST(WellFormedUtf8, ReplacesEachBadByte) {
    EXPECT_EQ(wellFormedUtf8("\xff\x80z", '_'), "__z");
    EXPECT_EQ(wellFormedUtf8("\xc0\xaf", '_'), "__") << "overlong";
    EXPECT_EQ(wellFormedUtf8("\xed\xa0\x80", '_'), "___") << "surrogate";
    EXPECT_EQ(wellFormedUtf8("\xf4\x90\x80\x80", '_'), "____") << "beyond the last character";
    EXPECT_EQ(wellFormedUtf8("\xe2\x82", '_'), "__") << "cut";
}

} // namespace
} // namespace orvelle
