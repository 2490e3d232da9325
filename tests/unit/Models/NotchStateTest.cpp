#include "Models/NotchState.h"

#include "App/Constants.h"
#include "Extensions/ColorTheme.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(NotchState, IsExpandedIsFalseInHovering) {
    SimulatedPlatform platform;
    NotchState state(platform);
    EXPECT_FALSE(state.isExpanded());
    state.expandedState = NotchExpandedState::hovering;
    EXPECT_FALSE(state.isExpanded());
    state.expandedState = NotchExpandedState::expanded;
    EXPECT_TRUE(state.isExpanded());
    state.expandedState = NotchExpandedState::fullExpanded;
    EXPECT_TRUE(state.isExpanded());
}

TEST(NotchState, SettingClickWidgetNavigatesToPanelStoresItAtOnce) {
    SimulatedPlatform platform;
    NotchState state(platform);
    EXPECT_EQ(platform.userDefaultsPort.writeCount(), 0);
    state.clickWidgetNavigatesToPanel = false;
    EXPECT_EQ(platform.userDefaultsPort.storedBoolean("clickWidgetNavigatesToPanel"), false);
    EXPECT_TRUE(NotchState(platform).clickWidgetNavigatesToPanel.get())
        << "a new state starts from true until launch brings the setting in";
}

TEST(NotchState, StartsCollapsedOnMedia) {
    SimulatedPlatform platform;
    const NotchState state(platform);
    EXPECT_EQ(state.expandedState.get(), NotchExpandedState::collapsed);
    EXPECT_EQ(state.activePanel.get(), ActivePanel::media);
    EXPECT_FALSE(state.isHUDVisible);
    EXPECT_EQ(state.hudType.get(), std::nullopt);
    EXPECT_EQ(state.hudValue.get(), 0);
    EXPECT_EQ(state.notchSize.get(), Size{});
    EXPECT_EQ(state.notchPosition.get(), Point{});
    EXPECT_TRUE(state.hasNotch);
    EXPECT_EQ(state.currentScreen.get(), std::nullopt);
    EXPECT_FALSE(state.isDragSessionActive);
    EXPECT_EQ(state.panelTransitionEdge.get(), Edge::trailing);
}

TEST(ActivePanel, BuiltFromHudOrAnyUnknownTextYieldsNone) {
    EXPECT_EQ(activePanelFrom("hud"), std::nullopt);
    EXPECT_EQ(activePanelFrom(""), std::nullopt);
    EXPECT_EQ(activePanelFrom("Media"), std::nullopt);
}

TEST(ActivePanel, StandsByTheTable) {
    struct Row {
        const char *rawValue, *label, *icon;
    };
    const Row rows[] = {{"media", "Media", "music.note"},
                        {"fileShelf", "Files", "folder"},
                        {"calendar", "Calendar", "calendar"},
                        {"time", "Clock", "clock"},
                        {"battery", "Battery", "battery.100"},
                        {"clipboard", "Clipboard", "doc.on.clipboard"},
                        {"systemMonitor", "System", "cpu"},
                        {"weather", "Weather", "cloud.sun"},
                        {"pomodoro", "Focus", "timer"},
                        {"todo", "Todo", "checklist"},
                        {"mirror", "Mirror", "person.crop.square"},
                        {"notes", "Notes", "note.text"},
                        {"stockTicker", "Stocks", "chart.line.uptrend.xyaxis"},
                        {"settings", "Settings", "gear"}};
    ASSERT_EQ(std::size(rows), allActivePanels.size());
    for (std::size_t index = 0; index < allActivePanels.size(); ++index) {
        const auto panel = allActivePanels[index];
        EXPECT_EQ(static_cast<std::size_t>(panel), index);
        EXPECT_EQ(rawValue(panel), rows[index].rawValue);
        EXPECT_EQ(label(panel), rows[index].label);
        EXPECT_EQ(icon(panel), rows[index].icon);
        EXPECT_EQ(activePanelFrom(rows[index].rawValue), panel);
    }
}

TEST(ColorTheme, AdaptiveAccentOfAZeroSizedImageYieldsNotchAccent) {
    EXPECT_EQ(adaptiveAccent(Image{}), notchAccent);
    EXPECT_EQ(adaptiveAccent(Image(2, 2, {1, 2, 3})), notchAccent) << "too few bytes";
    EXPECT_EQ(adaptiveAccent(std::nullopt), notchAccent);
}

TEST(ColorTheme, AdaptiveAccentIsTheOneCentrePixel) {
    std::vector<std::uint8_t> pixels(3 * 2 * 4, 0);
    const std::size_t centre = (1 * 3 + 1) * 4; // column 3/2, row 2/2
    pixels[centre] = 255;
    pixels[centre + 2] = 51;
    pixels[centre + 3] = 255;
    EXPECT_EQ(adaptiveAccent(Image(3, 2, pixels)), (Color{1, 0, 0.2, 1}));
}

TEST(ColorTheme, FixedColoursStandByTheTable) {
    EXPECT_EQ(notchSurface, Color::white(0.12));
    EXPECT_EQ(notchAccent, Color::white(1));
    EXPECT_EQ(notchSecondary, Color::white(0.6));
    EXPECT_EQ(notchTertiary, Color::white(0.35));
    EXPECT_EQ(AppConstants::Theme::secondaryTextColor, Color::white(0.6));
}

} // namespace
} // namespace orvelle
