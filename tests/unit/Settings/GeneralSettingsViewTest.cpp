#include "Settings/GeneralSettingsView.h"

#include "Support/AppFixture.h"
#include "Support/Replies.h"
#include "Support/SettingsRows.h"

#include <limits>
#include <set>

namespace orvelle {
namespace {

using Kind = SettingsRow::Kind;
using Labels = std::vector<std::string>;

class GeneralSettingsViewTest : public AppFixture {
protected:
    GeneralSettingsView page{app.settingsEnvironment(), platform};

    SettingsRow row(std::string_view id) { return rowOf(page, id); }
};

TEST_F(GeneralSettingsViewTest, TheSectionsStandInTheirOrder) {
    EXPECT_EQ(labelsOf(page, Kind::title),
              (Labels{"Startup", "Behavior", "Interaction Tuning", "Updates", "", ""}));
    EXPECT_EQ(labelsOf(page, Kind::toggle),
              (Labels{"Launch at Login", "Show Menu Bar Icon", "Click Widget Opens Its Panel",
                      "Todo Swipe Actions", "Reverse Scroll Direction", "Require Real Notch"}));
    EXPECT_EQ(labelsOf(page, Kind::slider),
              (Labels{"Hover Delay", "Scroll Sensitivity", "Swipe Sensitivity", "Collapse Delay",
                      "Swipe Cooldown"}));
    EXPECT_EQ(
        labelsOf(page, Kind::footnote),
        (Labels{"The menu bar icon provides quick access to settings and controls.",
                "Click Widget: expand directly to that panel. Todo Swipe: swipe right to "
                "complete, left to delete. Reverse Scroll: enable if you don't use natural "
                "scrolling. Require Real Notch: when enabled, only shows on MacBook screens "
                "with a physical notch.",
                "Fine-tune hover timing and gesture sensitivity. Lower scroll/swipe values = more "
                "sensitive. Lower hover delay = faster activation.",
                "Opens your email client with system info pre-filled.",
                "This resets General, Appearance, and Feature settings."}));
    EXPECT_EQ(row("reportBug").button, "Report a Bug");
    EXPECT_EQ(row("resetDefaults").button, "Reset All Settings to Defaults");
    EXPECT_EQ(page.rows->back().label, "Orvelle");
    EXPECT_EQ(page.rows->back().detail, "Version 1.0.6");
}

TEST_F(GeneralSettingsViewTest, EachSliderHasItsRangeAndItsValueInItsForm) {
    const struct {
        const char* id;
        SettingsRange range;
        const char* text;
        double width;
    } sliders[] = {{"hoverActivationDelay", {0, 0.5, 0.05}, "0.30s", 44},
                   {"scrollSensitivity", {2, 30, 1}, "5", 28},
                   {"horizontalSwipeSensitivity", {5, 40, 1}, "15", 28},
                   {"collapseDebounceInterval", {0.05, 0.5, 0.05}, "0.15s", 44},
                   {"swipeCooldown", {0.1, 1, 0.1}, "0.40s", 36}};
    for (const auto& slider : sliders) {
        EXPECT_EQ(row(slider.id).range, slider.range) << slider.id;
        EXPECT_EQ(row(slider.id).valueText, slider.text);
        EXPECT_EQ(row(slider.id).valueWidth, slider.width);
    }
}

TEST_F(GeneralSettingsViewTest, AMovedSliderWritesTheNearestStep) {
    page.slide("collapseDebounceInterval", 0.162);
    EXPECT_EQ(defaults().object("collapseDebounceInterval"), DefaultsValue(0.15));
    page.slide("scrollSensitivity", 29.6);
    EXPECT_EQ(defaults().object("scrollSensitivity"), DefaultsValue(30.0));
    page.slide("scrollSensitivity", 1e9);
    EXPECT_EQ(defaults().object("scrollSensitivity"), DefaultsValue(30.0));
    page.slide("scrollSensitivity", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(defaults().object("scrollSensitivity"), DefaultsValue(30.0));
    EXPECT_EQ(row("scrollSensitivity").valueText, "30");
}

TEST_F(GeneralSettingsViewTest, AValueOutOfItsRangeShowsTheNearestWithin) {
    defaults().set("swipeCooldown", 77.0);
    EXPECT_EQ(row("swipeCooldown").value, 1);
    defaults().set("swipeCooldown", -3.0);
    EXPECT_EQ(row("swipeCooldown").value, 0.1);
    defaults().set("swipeCooldown", std::numeric_limits<double>::infinity());
    EXPECT_EQ(row("swipeCooldown").value, 0.4);
    defaults().set("swipeCooldown", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(row("swipeCooldown").value, 0.4);
}

TEST_F(GeneralSettingsViewTest, AValueOfTheWrongTypeShowsTheDefault) {
    for (const DefaultsValue& value :
         {DefaultsValue(Date{5}), DefaultsValue(Data{1}), DefaultsValue(std::string("blue"))}) {
        const auto rows = page.rows.get();
        for (const auto& shown : rows)
            if (shown.kind == Kind::toggle || shown.kind == Kind::slider)
                defaults().set(shown.id, value);
        EXPECT_EQ(row("hoverActivationDelay").value, 0.3);
        EXPECT_EQ(row("scrollSensitivity").value, 5);
        EXPECT_FALSE(row("launchAtLogin").isOn);
        EXPECT_TRUE(row("showInMenuBar").isOn);
        EXPECT_TRUE(row("todoSwipeActionsEnabled").isOn);
    }
}

TEST_F(GeneralSettingsViewTest, ASwitchWritesItsSettingAndNothingElse) {
    page.flip("reverseScrollDirection", true);
    EXPECT_EQ(defaults().keys(), Labels{"reverseScrollDirection"});
    EXPECT_EQ(defaults().storedBoolean("reverseScrollDirection"), true);
    EXPECT_TRUE(row("reverseScrollDirection").isOn);
}

TEST_F(GeneralSettingsViewTest, AnOrderForARowThatIsNotThereDoesNothing) {
    page.flip("mediaEnabled", false);
    page.slide("launchAtLogin", 1);
    page.flip("scrollSensitivity", true);
    page.choose("scrollSensitivity", "slow");
    page.press("launchAtLogin");
    EXPECT_TRUE(defaults().keys().empty());
}

TEST_F(GeneralSettingsViewTest, ClickWidgetIsTheNotchStatesAndIsStored) {
    page.flip("clickWidgetNavigatesToPanel", false);
    EXPECT_FALSE(app.notchState.clickWidgetNavigatesToPanel);
    EXPECT_EQ(defaults().storedBoolean("clickWidgetNavigatesToPanel"), false);
    EXPECT_FALSE(row("clickWidgetNavigatesToPanel").isOn);
}

TEST_F(GeneralSettingsViewTest, LaunchAtLoginEnrollsAndWithdraws) {
    page.flip("launchAtLogin", true);
    EXPECT_TRUE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(defaults().storedBoolean("launchAtLogin"), true);
    page.flip("launchAtLogin", false);
    EXPECT_FALSE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(defaults().storedBoolean("launchAtLogin"), false);
}

TEST_F(GeneralSettingsViewTest, ARefusedLoginItemLeavesTheSwitchAsItWas) {
    platform.loginItemPort.works = false;
    int shown = 0;
    const auto watch = page.rows.observe([&](const auto&) { ++shown; });
    page.flip("launchAtLogin", true);
    EXPECT_EQ(shown, 2) << "the view has to draw the switch back";
    EXPECT_FALSE(row("launchAtLogin").isOn);
    EXPECT_EQ(defaults().object("launchAtLogin"), std::nullopt);
}

TEST_F(GeneralSettingsViewTest, UpToDateIsSaidOnlyAfterACheckThatSucceeded) {
    const auto check = [this](const HttpReply& reply) {
        page.press("update");
        EXPECT_EQ(row("update").detail, "Checking…");
        ASSERT_TRUE(platform.httpClientPort.answer(reply));
        EXPECT_EQ(row("update").detail, "");
    };
    const auto expectUnknown = [this] {
        EXPECT_EQ(row("update").label, "Not checked yet");
        EXPECT_EQ(row("update").symbol, std::nullopt);
        EXPECT_EQ(row("update").button, "Check Now");
    };
    expectUnknown();
    for (const auto& failure :
         {HttpReply{"no network", 0, ""}, HttpReply{{}, 404, ""}, Replies::ok("no manifest")}) {
        check(failure);
        expectUnknown();
    }
    check(Replies::ok(Replies::manifest("1.0.6")));
    EXPECT_EQ(row("update").label, "Up to date");
    EXPECT_EQ(row("update").symbol->size, 14);
    check({"no network", 0, ""});
    EXPECT_EQ(row("update").label, "Up to date") << "a failure leaves what was found";
}

TEST_F(GeneralSettingsViewTest, UpToDateOffersACheckAndANewerVersionADownload) {
    page.press("update");
    platform.httpClientPort.answer(Replies::ok(Replies::manifest("1.0.6")));
    EXPECT_EQ(row("update").label, "Up to date");
    EXPECT_EQ(row("update").symbol->name, "checkmark.circle.fill");
    EXPECT_EQ(row("update").button, "Check Now");
    page.press("update");
    ASSERT_TRUE(app.updateChecker.isChecking);
    platform.httpClientPort.answer(Replies::ok(Replies::manifest("9.1.0", "https://x.example/o")));
    EXPECT_EQ(row("update").label, "Update available: v9.1.0");
    EXPECT_EQ(row("update").symbol->name, "arrow.down.circle.fill");
    EXPECT_EQ(row("update").button, "Download");
    page.press("update");
    EXPECT_EQ(platform.workspacePort.openedFromNetwork, Labels{"https://x.example/o"});
}

TEST_F(GeneralSettingsViewTest, ReportABugWritesAMail) {
    page.press("reportBug");
    ASSERT_EQ(platform.workspacePort.opened.size(), 1u);
    EXPECT_TRUE(platform.workspacePort.opened[0].starts_with("mailto:"));
}

TEST_F(GeneralSettingsViewTest, ResetPutsEachOfItsSettingsBack) {
    const std::vector<std::pair<const char*, DefaultsValue>> expected{
        {"launchAtLogin", false},
        {"showInMenuBar", true},
        {"hoverActivationDelay", 0.3},
        {"scrollSensitivity", 5.0},
        {"horizontalSwipeSensitivity", 15.0},
        {"collapseDebounceInterval", 0.4},
        {"swipeCooldown", 0.4},
        {"reverseScrollDirection", false},
        {"requireRealNotch", false}};
    page.flip("launchAtLogin", true);
    for (const auto& [key, value] : expected)
        defaults().set(key, DefaultsValue(std::string("else")));
    page.press("resetDefaults");
    for (const auto& [key, value] : expected)
        EXPECT_EQ(defaults().object(key), value) << key;
    EXPECT_FALSE(platform.loginItemPort.isEnrolled);
}

TEST_F(GeneralSettingsViewTest, ResetWritesInTheOrderOfThePage) {
    const std::vector<std::pair<const char*, DefaultsValue>> tuning{
        {"hoverActivationDelay", 0.3},
        {"scrollSensitivity", 5.0},
        {"horizontalSwipeSensitivity", 15.0},
        {"collapseDebounceInterval", 0.4},
        {"swipeCooldown", 0.4},
        {"reverseScrollDirection", false},
        {"requireRealNotch", false}};
    for (const auto& [key, value] : tuning)
        defaults().set(key, DefaultsValue(std::string("else")));
    const auto watch = defaults().observeChanges([&] {
        bool isDone = true;
        for (const auto& [key, value] : tuning) {
            const bool isReset = defaults().object(key) == value;
            EXPECT_TRUE(isDone || !isReset) << key << " too early";
            isDone = isReset;
        }
    });
    page.press("resetDefaults");
}

TEST_F(GeneralSettingsViewTest, TheLastRowIsTheProgramsOwn) {
    EXPECT_EQ(page.rows->back().kind, Kind::about);
    EXPECT_EQ(page.rows->back().id, "about");
}

TEST_F(GeneralSettingsViewTest, AClickSettingThatChangesElsewhereIsShown) {
    app.notchState.clickWidgetNavigatesToPanel = false;
    EXPECT_FALSE(row("clickWidgetNavigatesToPanel").isOn);
}

TEST_F(GeneralSettingsViewTest, ResetAllSettingsDoesNotTouchPanelsOrWidgets) {
    app.panelOrderManager.toggleVisibility("media");
    app.hoverLayoutManager.toggleVisibility("media");
    const auto panels = defaults().object("panelTabBarOrder");
    const auto widgets = defaults().object("hoverWidgetPlacements");
    ASSERT_TRUE(panels && widgets);
    page.press("resetDefaults");
    EXPECT_EQ(defaults().number("collapseDebounceInterval"), 0.4);
    EXPECT_EQ(defaults().object("panelTabBarOrder"), panels);
    EXPECT_EQ(defaults().object("hoverWidgetPlacements"), widgets);
    EXPECT_FALSE(app.panelOrderManager.allPanelsSorted()[0].isVisible);
}

TEST_F(GeneralSettingsViewTest, TheClickSwitchSaysWhatTheNotchDoesNotWhatIsStored) {
    defaults().set("clickWidgetNavigatesToPanel", false); // by another program
    ASSERT_TRUE(app.notchState.clickWidgetNavigatesToPanel);
    EXPECT_TRUE(row("clickWidgetNavigatesToPanel").isOn);
}

TEST_F(GeneralSettingsViewTest, ResetWritesTheLoginSwitchAlsoWhereTheDesktopRefuses) {
    page.flip("launchAtLogin", true);
    platform.loginItemPort.works = false;
    page.press("resetDefaults");
    EXPECT_EQ(defaults().storedBoolean("launchAtLogin"), false);
}

TEST_F(GeneralSettingsViewTest, ResetWritesTheStartupSwitchesBeforeTheTuning) {
    std::vector<Labels> seen;
    const auto watch = defaults().observeChanges([&] {
        if (const auto keys = defaults().keys(); seen.empty() || seen.back() != keys)
            seen.push_back(keys);
    });
    page.press("resetDefaults");
    ASSERT_EQ(seen.size(), 9u);
    EXPECT_EQ(seen[0], Labels{"launchAtLogin"});
    EXPECT_EQ(seen[1], (Labels{"launchAtLogin", "showInMenuBar"}));
}

TEST_F(GeneralSettingsViewTest, EveryRowHasANameOfItsOwnAndNoneIsDimmedOrSetIn) {
    std::set<std::string> ids;
    for (const auto& shown : page.rows.get()) {
        EXPECT_TRUE(ids.insert(shown.id).second) << shown.id;
        EXPECT_FALSE(shown.isDimmed) << shown.id;
        EXPECT_EQ(shown.indent, 0) << shown.id;
        EXPECT_EQ(shown.labelWidth, 0) << shown.id << " is as wide as its text";
    }
}

} // namespace
} // namespace orvelle
