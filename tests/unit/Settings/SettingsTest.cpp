#include "Settings/AppearanceSettingsView.h"
#include "Settings/GeneralSettingsView.h"
#include "Settings/Setting.h"
#include "Support/AppFixture.h"

namespace orvelle {
namespace {

using State = NotchExpandedState;

class SettingsTest : public AppFixture {};

TEST_F(SettingsTest, AFreshStoreHasTheFeatureOnAndATogglePairStoresTrue) {
    launchNormally();
    EXPECT_EQ(defaults().object("mediaEnabled"), std::nullopt);
    EXPECT_TRUE(app.mediaManager.isEnabled);
    Setting binding(defaults(), Settings::mediaEnabled);
    EXPECT_TRUE(binding.get());
    binding.set(false);
    binding.set(true);
    EXPECT_EQ(defaults().storedBoolean("mediaEnabled"), true);
}

TEST_F(SettingsTest, TheChangeNoticeComesForEveryKey) {
    int notices = 0;
    const auto watch = defaults().observeChanges([&] { ++notices; });
    defaults().set("requireRealNotch", true);
    defaults().set("anythingElse", std::string("x"));
    defaults().remove("anythingElse");
    EXPECT_EQ(notices, 3);
}

TEST_F(SettingsTest, AfterAGeneralResetTheCollapseTakes400Milliseconds) {
    launchNormally();
    GeneralSettingsView(app.settingsEnvironment(), platform).resetDefaults();
    EXPECT_EQ(defaults().number("collapseDebounceInterval"), 0.4);
    window().pointer.entered();
    window().pointer.exited(); // the pointer rests at the origin, far away
    advance(0.399);
    EXPECT_EQ(state(), State::hovering);
    advance(0.002);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(SettingsTest, AnAnimationSpeedOfAnUnknownWordActsLikeNormal) {
    launchNormally();
    defaults().set("animationSpeed", std::string("warp"));
    setState(State::expanded);
    setState(State::collapsed);
    advance(0.319);
    EXPECT_EQ(window().frame().size.width, 566);
    advance(0.002);
    EXPECT_EQ(window().frame().size.width, 180);
}

TEST_F(SettingsTest, AGeneralResetWritesItsKeysAndNoOthers) {
    platform.loginItemPort.isEnrolled = true;
    GeneralSettingsView(app.settingsEnvironment(), platform).resetDefaults();
    EXPECT_FALSE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(defaults().keys(),
              (std::vector<std::string>{"collapseDebounceInterval", "horizontalSwipeSensitivity",
                                        "hoverActivationDelay", "launchAtLogin", "requireRealNotch",
                                        "reverseScrollDirection", "scrollSensitivity",
                                        "showInMenuBar", "swipeCooldown"}));
    EXPECT_EQ(defaults().storedBoolean("showInMenuBar"), true);
    EXPECT_EQ(defaults().number("hoverActivationDelay"), 0.3);
    EXPECT_EQ(defaults().number("scrollSensitivity"), 5.0);
    EXPECT_EQ(defaults().number("horizontalSwipeSensitivity"), 15.0);
    EXPECT_EQ(defaults().number("swipeCooldown"), 0.4);
    EXPECT_EQ(defaults().object("todoSwipeActionsEnabled"), std::nullopt);
}

TEST_F(SettingsTest, AnAppearanceResetWritesItsKeysAndNoOthers) {
    AppearanceSettingsView(platform).resetDefaults();
    EXPECT_EQ(
        defaults().keys(),
        (std::vector<std::string>{"animationSpeed", "customAccentHue", "customAccentSaturation",
                                  "pomodoroTimerStyle", "showBatteryInHover", "showCalendarInHover",
                                  "showMediaInHover", "showPomodoroInHover",
                                  "showSystemStatsInHover", "showWeatherInHover", "themeMode"}));
    EXPECT_EQ(defaults().string("animationSpeed"), "normal");
    EXPECT_EQ(defaults().storedBoolean("showSystemStatsInHover"), false);
    EXPECT_EQ(defaults().storedBoolean("showMediaInHover"), true);
    EXPECT_EQ(defaults().string("pomodoroTimerStyle"), "ring");
}

TEST_F(SettingsTest, ABindingFollowsTheStoreAndFallsBackToItsDefault) {
    Setting speed(defaults(), Settings::animationSpeed);
    std::vector<std::string> seen;
    const auto watch = speed.observe([&](const std::string& value) { seen.push_back(value); });
    defaults().set("animationSpeed", std::string("slow"));
    defaults().set("unrelated", true);
    defaults().set("animationSpeed", 3.0); // of another type
    EXPECT_EQ(seen, (std::vector<std::string>{"normal", "slow", "normal"}));
}

TEST_F(SettingsTest, ABindingFallsBackToItsDefaultForWhatIsNoBooleanOrNumber) {
    const Setting shown(defaults(), Settings::sysMonCPU);
    const Setting hue(defaults(), Settings::customAccentHue);
    for (const DefaultsValue& value :
         {DefaultsValue(Date{5}), DefaultsValue(Data{1}), DefaultsValue(std::string("blue"))}) {
        defaults().set("sysMonCPU", value);
        defaults().set("customAccentHue", value);
        EXPECT_TRUE(shown.get());
        EXPECT_EQ(hue.get(), 0.6);
    }
    defaults().set("sysMonCPU", std::string("no"));
    defaults().set("customAccentHue", std::int64_t{1});
    EXPECT_FALSE(shown.get());
    EXPECT_EQ(hue.get(), 1);
}

TEST(SettingsRowKind, TitlesFootnotesAndTheAboutRowEndAGroup) {
    using RowKind = SettingsRow::Kind;
    for (const auto kind : {RowKind::title, RowKind::footnote, RowKind::about})
        EXPECT_TRUE(endsGroup(kind));
    for (const auto kind :
         {RowKind::text, RowKind::toggle, RowKind::slider, RowKind::picker, RowKind::segments,
          RowKind::swatch, RowKind::action, RowKind::place, RowKind::found, RowKind::search})
        EXPECT_FALSE(endsGroup(kind));
}

TEST(SettingsRange, SnapsToTheNearestWholeStepWithinItsBounds) {
    const SettingsRange delay{0, 0.5, 0.05};
    EXPECT_EQ(delay.snapped(0.024), 0);
    EXPECT_EQ(delay.snapped(0.026), 0.05);
    EXPECT_EQ(delay.snapped(0.149), 0.15);
    EXPECT_EQ(delay.snapped(7), 0.5);
    const SettingsRange minutes{5, 60, 5};
    EXPECT_EQ(minutes.snapped(7.4), 5);
    EXPECT_EQ(minutes.snapped(7.6), 10);
    EXPECT_EQ(minutes.snapped(-1), 5);
}

} // namespace
} // namespace orvelle
