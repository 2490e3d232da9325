#include "Foundation/Format.h"
#include "Foundation/Json.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

namespace orvelle {
namespace {

/// The process under a locale whose decimal mark is a comma, made for the test where the machine
/// has none.
class CommaLocale : public testing::Test {
protected:
    void SetUp() override {
        if (std::setlocale(LC_ALL, locale))
            return;
        folder_ = testing::TempDir() + "orvelle-locale-XXXXXX";
        ASSERT_NE(mkdtemp(folder_.data()), nullptr);
        const auto command = "localedef -i de_DE -f UTF-8 " + folder_ + "/" + locale +
                             " >/dev/null 2>&1"; // warnings count as failure there
        std::ignore = std::system(command.c_str());
        setenv("LOCPATH", folder_.c_str(), 1);
        if (!std::setlocale(LC_ALL, locale))
            GTEST_SKIP() << "the locale de_DE.UTF-8 is neither installed nor can it be made";
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        if (!folder_.empty())
            std::filesystem::remove_all(folder_);
    }

private:
    static constexpr const char* locale = "de_DE.UTF-8";
    std::string folder_;
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
