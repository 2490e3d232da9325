#include "Settings/AppearanceSettingsView.h"

#include "Support/AppFixture.h"
#include "Support/SettingsRows.h"

#include <algorithm>

namespace orvelle {
namespace {

using Kind = SettingsRow::Kind;
using Labels = std::vector<std::string>;

class AppearanceSettingsViewTest : public AppFixture {
protected:
    UndoOffer undo{platform.runLoopPort};
    AppearanceSettingsView page{platform, &undo};

    SettingsRow row(std::string_view id) { return rowOf(page, id); }
    std::vector<std::pair<std::string, std::string>> choices(std::string_view id) {
        std::vector<std::pair<std::string, std::string>> pairs;
        for (const auto& choice : row(id).choices)
            pairs.emplace_back(choice.value, choice.label);
        return pairs;
    }
    using Choices = std::vector<std::pair<std::string, std::string>>;
};

TEST_F(AppearanceSettingsViewTest, TheSectionsStandInTheirOrder) {
    EXPECT_EQ(labelsOf(page, Kind::title),
              (Labels{"Display", "Pomodoro Timer Style", "Color Theme", "Animation", ""}));
    EXPECT_EQ(labelsOf(page, Kind::toggle), (Labels{"Now Playing", "Battery", "Weather", "Calendar",
                                                    "Pomodoro", "System Stats"}));
    EXPECT_EQ(row("resetDefaults").button, "Reset Appearance");
}

TEST_F(AppearanceSettingsViewTest, ThePickersOfferTheirWords) {
    EXPECT_EQ(choices("pomodoroTimerStyle"), (Choices{{"digital", "Digital"},
                                                      {"ring", "Ring"},
                                                      {"analog", "Analog"},
                                                      {"minimal", "Minimal"}}));
    EXPECT_EQ(choices("themeMode"),
              (Choices{{"system", "System"}, {"custom", "Custom"}, {"multicolor", "Multicolor"}}));
    EXPECT_EQ(choices("animationSpeed"),
              (Choices{{"slow", "Slow"}, {"normal", "Normal"}, {"fast", "Fast"}}));
    EXPECT_EQ(row("pomodoroTimerStyle").choice, "ring");
    EXPECT_EQ(row("themeMode").choice, "system");
    EXPECT_EQ(row("animationSpeed").choice, "normal");
}

TEST_F(AppearanceSettingsViewTest, AChoiceIsStoredAndAnUnknownOneIsNot) {
    page.choose("animationSpeed", "fast");
    page.choose("animationSpeed", "warp");
    EXPECT_EQ(defaults().string("animationSpeed"), "fast");
    EXPECT_EQ(row("animationSpeed").choice, "fast");
}

TEST_F(AppearanceSettingsViewTest, AStoredWordThatIsNoChoiceShowsTheDefault) {
    defaults().set("animationSpeed", std::string("warp"));
    defaults().set("themeMode", 3.0);
    EXPECT_EQ(row("animationSpeed").choice, "normal");
    EXPECT_EQ(row("themeMode").choice, "system");
}

TEST_F(AppearanceSettingsViewTest, OnlyTheCustomModeShowsTheColorsRows) {
    EXPECT_FALSE(shows(page, "customAccentHue"));
    page.choose("themeMode", "custom");
    EXPECT_EQ(labelsOf(page, Kind::slider), (Labels{"Hue", "Saturation"}));
    EXPECT_EQ(row("customAccentHue").range, (SettingsRange{0, 1, 0.01}));
    EXPECT_EQ(row("customAccentHue").labelWidth, 90);
    page.slide("customAccentHue", 0.25);
    page.slide("customAccentSaturation", 0.5);
    EXPECT_EQ(row("accentPreview").color, Color::hsb(0.25, 0.5, 0.9));
    EXPECT_EQ(row("accentPreview").kind, Kind::swatch);
    EXPECT_EQ(row("accentPreview").label, "Accent color preview");
    EXPECT_EQ(row("accentPreview").indent, 90) << "under the sliders";
    EXPECT_EQ(app.themeManager.accentColor(), Color::hsb(0.25, 0.5, 0.9));
}

TEST_F(AppearanceSettingsViewTest, ColorsOutOfTheirRangeAreShownWithinIt) {
    defaults().set("themeMode", std::string("custom"));
    defaults().set("customAccentHue", 8.0);
    defaults().set("customAccentSaturation", std::string("much"));
    EXPECT_EQ(row("customAccentHue").value, 1);
    EXPECT_EQ(row("customAccentSaturation").value, 0.8);
    EXPECT_EQ(row("accentPreview").color, Color::hsb(1, 0.8, 0.9));
}

TEST_F(AppearanceSettingsViewTest, TheColorsRowsStandRightUnderTheMode) {
    page.choose("themeMode", "custom");
    std::vector<std::string> ids;
    for (const auto& shown : page.rows.get())
        ids.push_back(shown.id);
    const auto mode = std::ranges::find(ids, "themeMode");
    ASSERT_GT(ids.end() - mode, 5);
    EXPECT_EQ((std::vector<std::string>(mode, mode + 5)),
              (std::vector<std::string>{"themeMode", "customAccentHue", "customAccentSaturation",
                                        "accentPreview", "title:Animation"}));
}

TEST_F(AppearanceSettingsViewTest, TheMulticolorModeExplainsItself) {
    page.choose("themeMode", "multicolor");
    EXPECT_EQ(row("multicolorText").label, "Colors adapt to each feature — artwork for media, "
                                           "phase for pomodoro, and more.");
}

TEST_F(AppearanceSettingsViewTest, ResetPutsTheWholePageBackToItsDefaults) {
    const std::vector<std::pair<const char*, DefaultsValue>> expected{
        {"animationSpeed", std::string("normal")},
        {"showMediaInHover", true},
        {"showBatteryInHover", true},
        {"showWeatherInHover", true},
        {"showCalendarInHover", true},
        {"showPomodoroInHover", true},
        {"showSystemStatsInHover", false},
        {"themeMode", std::string("system")},
        {"customAccentHue", 0.6},
        {"customAccentSaturation", 0.8},
        {"pomodoroTimerStyle", std::string("ring")}};
    for (const auto& [key, value] : expected)
        defaults().set(key, DefaultsValue(std::string("else")));
    defaults().set("weatherEnabled", true);
    page.press("themeMode");
    EXPECT_EQ(defaults().object("themeMode"), DefaultsValue(std::string("else")))
        << "only its button resets";
    std::size_t written = 0;
    const auto watch = defaults().observeChanges([&] {
        ASSERT_LT(written, expected.size());
        const auto& [key, value] = expected[written++];
        EXPECT_EQ(defaults().object(key), value) << "in this order";
    });
    page.press("resetDefaults");
    EXPECT_EQ(written, expected.size());
    for (const auto& [key, value] : expected)
        EXPECT_EQ(defaults().object(key), value) << key;
    EXPECT_EQ(defaults().storedBoolean("weatherEnabled"), true) << "of another page";
}

TEST_F(AppearanceSettingsViewTest, TheSwitchesWriteTheirSettings) {
    for (const auto* id : {"showMediaInHover", "showBatteryInHover", "showWeatherInHover",
                           "showCalendarInHover", "showPomodoroInHover"}) {
        page.flip(id, false);
        EXPECT_EQ(defaults().storedBoolean(id), false) << id;
    }
    page.flip("showSystemStatsInHover", true);
    EXPECT_EQ(defaults().storedBoolean("showSystemStatsInHover"), true);
}

TEST_F(AppearanceSettingsViewTest, OnlyTheModeThatIsChosenHasRowsOfItsOwn) {
    page.choose("themeMode", "multicolor");
    EXPECT_TRUE(shows(page, "multicolorText"));
    EXPECT_FALSE(shows(page, "customAccentHue"));
    page.choose("themeMode", "system");
    EXPECT_FALSE(shows(page, "multicolorText"));
    EXPECT_FALSE(shows(page, "customAccentHue"));
    page.choose("themeMode", "custom");
    EXPECT_FALSE(shows(page, "multicolorText"));
}

} // namespace
} // namespace orvelle
