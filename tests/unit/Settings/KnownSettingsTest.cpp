#include "Settings/KnownSettings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace orvelle {
namespace {

TEST(KnownSettings, EveryKeyIsKnownByItsType) {
    EXPECT_EQ(knownSettingType("weatherEnabled"), SettingType::boolean);
    EXPECT_EQ(knownSettingType("swipeCooldown"), SettingType::number);
    EXPECT_EQ(knownSettingType("themeMode"), SettingType::text);
    EXPECT_EQ(knownSettingType("weather_weatherCode"), SettingType::wholeNumber);
    EXPECT_EQ(knownSettingType("weather_isDay"), SettingType::boolean);
    EXPECT_EQ(knownSettingType("weather_windSpeed"), SettingType::number);
    EXPECT_EQ(knownSettingType("weather_locationName"), SettingType::text);
    EXPECT_EQ(knownSettingType("weather_lastUpdated"), SettingType::date);
    EXPECT_EQ(knownSettingType("hoverWidgetPlacements"), SettingType::data);
    EXPECT_EQ(knownSettingType("notch.safeAreaTop"), SettingType::number);
    EXPECT_EQ(knownSettingType("calendarFolders"), SettingType::text);
    EXPECT_EQ(knownSettingType("nothing"), std::nullopt);
}

TEST(KnownSettings, NoKeyOfTheTableIsForgotten) {
    std::string text;
    for (const char* table : {"Settings/SettingsKeys.h", "Platform/PlatformSettings.h"}) {
        std::ifstream file(std::filesystem::path(__FILE__).parent_path() / "../../../src" / table);
        ASSERT_TRUE(file) << table;
        text.append(std::istreambuf_iterator<char>(file), {});
    }
    const std::regex declaration(
        R"((?:SettingKey<[\w:]+>\s+\w+\{\s*|string_view \w+ = )\"([\w.]+)\")");
    int count = 0;
    for (std::sregex_iterator each(text.begin(), text.end(), declaration), end; each != end;
         ++each, ++count)
        EXPECT_TRUE(knownSettingType((*each)[1].str())) << (*each)[1];
    EXPECT_GE(count, 69);
}

} // namespace
} // namespace orvelle
