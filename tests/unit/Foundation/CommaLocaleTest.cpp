#include "Foundation/Format.h"
#include "Foundation/Json.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace orvelle {
namespace {

/// The process under a locale whose decimal mark is a comma. Every machine makes its own: one with
/// numbers only takes no time, and depends on none that is installed.
class CommaLocale : public testing::Test {
protected:
    void SetUp() override {
        folder_.write("comma", "LC_NUMERIC\n"
                               "decimal_point \",\"\n"
                               "thousands_sep \".\"\n"
                               "grouping 3;3\n"
                               "END LC_NUMERIC\n");
        // Without its other categories the locale is made with warnings, which count as failure.
        const auto command = "localedef -c -i " + (folder_ / "comma") + " -f UTF-8 " +
                             (folder_ / locale) + " >/dev/null 2>&1";
        std::ignore = std::system(command.c_str());
        if (!std::setlocale(LC_NUMERIC, locale))
            GTEST_SKIP() << "localedef is not installed";
    }
    void TearDown() override { std::setlocale(LC_NUMERIC, "C"); }

private:
    static constexpr const char* locale = "comma.UTF-8";
    TemporaryFolder folder_;
    TemporaryVariable path_{"LOCPATH", folder_.path().c_str()};
};

TEST_F(CommaLocale, FormatKeepsTheDecimalPoint) {
    ASSERT_STREQ(localeconv()->decimal_point, ",");
    EXPECT_EQ(format("%.1f%%", 85.25), "85.2%");
    EXPECT_EQ(format("%s %d", "text", 7), "text 7");
    EXPECT_STREQ(localeconv()->decimal_point, ",") << "the process's own locale must stay";
}

TEST_F(CommaLocale, JsonKeepsTheDecimalPoint) {
    ASSERT_STREQ(localeconv()->decimal_point, ",");
    EXPECT_EQ(Json(2.5).text(), "2.5");
    EXPECT_EQ(Json::parse("2.5")->number(), 2.5);
    EXPECT_FALSE(Json::parse("2,5"));
}

TEST_F(CommaLocale, TextSettingReadsAsANumberWithADecimalPoint) {
    ASSERT_STREQ(localeconv()->decimal_point, ",");
    SimulatedUserDefaults defaults;
    defaults.set("scrollSensitivity", std::string("2.5"));
    EXPECT_EQ(defaults.number("scrollSensitivity"), 2.5);
}

} // namespace
} // namespace orvelle
