#include "Features/Theme/ThemeManager.h"

#include "Extensions/ColorTheme.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

using namespace orvelle;

namespace {

constexpr Color desktopAccent{0.1, 0.2, 0.3};

class ThemeManagerTest : public testing::Test {
protected:
    ThemeManagerTest() { platform.appearancePort.accent = desktopAccent; }

    SimulatedPlatform platform;
    ThemeManager theme{platform};
};

void expectNear(const Color& actual, const Color& expected) {
    EXPECT_NEAR(actual.red, expected.red, 1e-9);
    EXPECT_NEAR(actual.green, expected.green, 1e-9);
    EXPECT_NEAR(actual.blue, expected.blue, 1e-9);
    EXPECT_EQ(actual.alpha, expected.alpha);
}

/// Every pixel has its column and row as red and green, 100 times.
Image numberedPixels(int width, int height) {
    std::vector<std::uint8_t> pixels;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            pixels.insert(pixels.end(), {static_cast<std::uint8_t>(column * 100),
                                         static_cast<std::uint8_t>(row * 100), 7, 128});
    return {width, height, std::move(pixels)};
}

} // namespace

TEST_F(ThemeManagerTest, AnUnknownModeGivesTheDesktopsAccent) {
    for (const auto* mode : {"", "Custom", "plaid"}) {
        theme.themeMode.set(mode);
        EXPECT_EQ(theme.accentColor(), desktopAccent) << mode;
    }
}

TEST(AdaptiveAccent, MulticolorWithoutArtworkIsPureWhite) {
    EXPECT_EQ(adaptiveAccent(std::nullopt), (Color{1, 1, 1, 1}));
}

TEST_F(ThemeManagerTest, AChangeOfTheDesktopsAccentIsPublishedAndReadAfresh) {
    std::vector<Color> seen;
    const auto subscription = theme.systemAccentRefresh.observe(
        [&](const UUID&) { seen.push_back(theme.accentColor()); });
    platform.appearancePort.accent = colors::orange;
    platform.appearancePort.notifyChanged();
    EXPECT_EQ(seen, (std::vector<Color>{desktopAccent, colors::orange}));
}

TEST_F(ThemeManagerTest, AHueOf0AndAHueOf1GiveTheSameRed) {
    theme.themeMode.set("custom");
    theme.customAccentHue.set(0);
    const auto atZero = theme.accentColor();
    theme.customAccentHue.set(1);
    EXPECT_EQ(theme.accentColor(), atZero);
    expectNear(atZero, {0.9, 0.18, 0.18});
}

TEST_F(ThemeManagerTest, UnsetSettingsReadAsSystemWithACalmBlueInReserve) {
    EXPECT_EQ(theme.themeMode.get(), "system");
    EXPECT_EQ(theme.customAccentHue.get(), 0.6);
    EXPECT_EQ(theme.customAccentSaturation.get(), 0.8);
    EXPECT_EQ(theme.accentColor(), desktopAccent);
    EXPECT_EQ(platform.userDefaultsPort.writeCount(), 0);
}

TEST_F(ThemeManagerTest, CustomIsBuiltFromHueAndSaturationAtBrightness09) {
    theme.themeMode.set("custom");
    expectNear(theme.accentColor(), {0.18, 0.468, 0.9});
    theme.customAccentHue.set(1.0 / 3);
    theme.customAccentSaturation.set(0.5);
    expectNear(theme.accentColor(), {0.45, 0.9, 0.45});
    theme.customAccentSaturation.set(0);
    expectNear(theme.accentColor(), Color::white(0.9));
}

TEST_F(ThemeManagerTest, ASaturationOutsideItsRangeIsTakenAsItsNearestEnd) {
    theme.themeMode.set("custom");
    theme.customAccentHue.set(0);
    theme.customAccentSaturation.set(7);
    expectNear(theme.accentColor(), {0.9, 0, 0});
    theme.customAccentSaturation.set(-7);
    expectNear(theme.accentColor(), Color::white(0.9));
}

TEST_F(ThemeManagerTest, MulticolorKeepsTheDesktopsAccent) {
    theme.themeMode.set("multicolor");
    EXPECT_EQ(theme.accentColor(), desktopAccent);
}

TEST_F(ThemeManagerTest, AChangeOfScreensOrOfColoursGivesANewIdentifierEach) {
    std::vector<UUID> seen;
    const auto subscription =
        theme.systemAccentRefresh.observe([&](const UUID& value) { seen.push_back(value); });
    platform.screensPort.notifyChanged();
    platform.appearancePort.notifyChanged();
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_NE(seen[0], UUID{});
    EXPECT_NE(seen[0], seen[1]);
    EXPECT_NE(seen[1], seen[2]);
}

TEST(ThemeManager, StopsListeningWhenItEnds) {
    SimulatedPlatform platform;
    std::optional<ThemeManager> theme(std::in_place, platform);
    int published = 0;
    const auto subscription = theme->systemAccentRefresh.observe([&](const UUID&) { ++published; });
    theme.reset();
    platform.screensPort.notifyChanged();
    platform.appearancePort.notifyChanged();
    EXPECT_EQ(published, 1);
}

TEST(AdaptiveAccent, IsTheOnePixelAtHalfWidthAndHalfHeightAsItStands) {
    EXPECT_EQ(adaptiveAccent(numberedPixels(3, 3)),
              (Color{100 / 255.0, 100 / 255.0, 7 / 255.0, 128 / 255.0}));
    EXPECT_EQ(adaptiveAccent(numberedPixels(2, 1)),
              (Color{100 / 255.0, 0, 7 / 255.0, 128 / 255.0}));
    EXPECT_EQ(adaptiveAccent(numberedPixels(1, 1)), (Color{0, 0, 7 / 255.0, 128 / 255.0}));
}

TEST(AdaptiveAccent, AnEmptyPictureIsPureWhite) {
    EXPECT_EQ(adaptiveAccent(Image{}), notchAccent);
}

TEST_F(ThemeManagerTest, AnObserverHearsOfEverythingThatTheColoursComeFromUntilItGoes) {
    int told = 0;
    auto subscription = theme.observe([&](const ThemeManager& told_) {
        EXPECT_EQ(&told_, &theme);
        ++told;
    });
    EXPECT_GT(told, 0) << "at once";
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"mode", [&] { theme.themeMode.set("custom"); }},
        {"hue", [&] { theme.customAccentHue.set(0.25); }},
        {"saturation", [&] { theme.customAccentSaturation.set(0.5); }},
        {"desktop", [&] { platform.appearancePort.notifyChanged(); }}};
    for (const auto& [name, change] : changes) {
        const int before = told;
        change();
        EXPECT_EQ(told, before + 1) << name;
    }
    subscription.reset();
    const int before = told;
    for (const auto& [name, change] : changes)
        change();
    theme.themeMode.set("system");
    theme.customAccentHue.set(0.75);
    theme.customAccentSaturation.set(1);
    EXPECT_EQ(told, before);
}
