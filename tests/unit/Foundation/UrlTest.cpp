#include "Foundation/Url.h"

#include <gtest/gtest.h>

namespace orvelle {

TEST(Url, AddressesAreValid) {
    for (const auto* text :
         {"https://example.org/a?b=c&d=e#f", "http://127.0.0.1:80/", "downloads/app.dmg",
          "http://[::1]:80/a", "BRK.B", "a%20b", "mailto:a@b.c?subject=%C3%A3"})
        EXPECT_TRUE(Url::isValid(text)) << text;
}

TEST(Url, OtherTextsAreNot) {
    for (const auto* text : {"", "a b", "a\tb", "é", "^GSPC", "a%2", "a%zz", "a#b#c", "a[b]",
                             "a\"b", "<a>", "a\\b", "a|b", "a{b}", "a`b"})
        EXPECT_FALSE(Url::isValid(text)) << text;
    EXPECT_FALSE(Url::isValid(std::string_view("a\0b", 3)));
}

TEST(Url, BracketsAreJudgedWithWhatStandsAroundThem) {
    for (const auto* text : {"http://[::1]", "//[::1]/a", "http://user:pass@[::1]:80/a",
                             "http://[fe80::1:2.3.4.5]/a?b#c", "http://[v1.x:y]/"})
        EXPECT_TRUE(Url::isValid(text)) << text;
    for (const auto* text :
         {"a b://[::1]/", "h\"p://[::1]/", "://[::1]/", "1http://[::1]/", "http://a b@[::1]/",
          "http://a[::1]/", "http://[::1]a/", "http://[]/", "http://[a b]/", "http://[::g]/",
          "http://[::1]/[::1]", "a?b=//[::1]", "a#//[::1]", "/a//[::1]", "http://h/#a//[::1]",
          "http://[::1", "http://[[::1]]/", "http://[::1]:8o/"})
        EXPECT_FALSE(Url::isValid(text)) << text;
}

TEST(Url, EscapesWhatMayNotStandInAQuery) {
    EXPECT_EQ(Url::escapedForQuery("A z09-._~!$&'()*+,;=:@/?"), "A%20z09-._~!$&'()*+,;=:@/?");
    EXPECT_EQ(Url::escapedForQuery("ã#%[]\"<>\\^`{|}"),
              "%C3%A3%23%25%5B%5D%22%3C%3E%5C%5E%60%7B%7C%7D");
    EXPECT_EQ(Url::escapedForQuery(""), "");
}

} // namespace orvelle
