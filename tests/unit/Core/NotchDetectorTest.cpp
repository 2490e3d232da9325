#include "Core/NotchWindow/NotchDetector.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class NotchDetectorTest : public testing::Test {
protected:
    SimulatedPlatform platform;

    void connect(std::vector<Screen> screens, std::optional<Screen> main) {
        platform.screensPort.list = std::move(screens);
        platform.screensPort.mainScreen = std::move(main);
    }
    NotchScreenInfo detect() { return NotchDetector::detectNotch(platform); }
};

Screen plain(const std::string& name, Rect frame) {
    return {name, frame, frame, {}, {}, {}};
}

Screen notched(const std::string& name, Rect frame, double inset) {
    auto screen = plain(name, frame);
    screen.safeAreaInsets.top = inset;
    return screen;
}

TEST_F(NotchDetectorTest, ASecondScreenWithANotchIsChosenEvenWhenTheFirstIsMain) {
    const auto first = plain("First", {{0, 0}, {1920, 1080}});
    const auto second = notched("Second", {{1920, 0}, {1512, 982}}, 37);
    connect({first, second}, first);
    EXPECT_EQ(detect().screen, second);
    EXPECT_TRUE(detect().hasNotch);
}

TEST_F(NotchDetectorTest, AnInsetWithoutAuxiliaryAreasGivesWidth180) {
    const auto screen = notched("Built-in", {{0, 0}, {1512, 982}}, 37);
    connect({screen}, screen);
    const auto info = detect();
    EXPECT_TRUE(info.hasNotch);
    EXPECT_EQ(info.notchSize, (Size{180, 37}));
}

TEST_F(NotchDetectorTest, ANotchOf172By37IsMeasuredBetweenTheAuxiliaryAreas) {
    auto screen = notched("Built-in", {{0, 0}, {1512, 982}}, 37);
    screen.auxiliaryTopLeftArea = Rect{{0, 945}, {670, 37}};
    screen.auxiliaryTopRightArea = Rect{{842, 945}, {670, 37}};
    connect({screen}, screen);
    const auto info = detect();
    EXPECT_EQ(info.notchSize, (Size{172, 37}));
    EXPECT_EQ(info.notchPosition, (Point{670, 945}));
}

TEST_F(NotchDetectorTest, OfTwoNotchedScreensTheFirstOfTheListIsChosen) {
    const auto first = notched("First", {{0, 0}, {1512, 982}}, 37);
    const auto second = notched("Second", {{1512, 0}, {1728, 1117}}, 38);
    connect({first, second}, second);
    EXPECT_EQ(detect().screen, first);
    EXPECT_EQ(detect().notchSize.height, 37);
}

TEST_F(NotchDetectorTest, TheSmallestInsetIsANotch) {
    const auto screen = notched("Built-in", {{0, 0}, {1512, 982}}, 0.5);
    connect({screen}, screen);
    EXPECT_TRUE(detect().hasNotch);
    EXPECT_EQ(detect().notchSize.height, 0.5);
}

TEST_F(NotchDetectorTest, OneAuxiliaryAreaAloneMeasuresNothing) {
    auto screen = notched("Built-in", {{0, 0}, {1512, 982}}, 37);
    screen.auxiliaryTopRightArea = Rect{{842, 945}, {670, 37}};
    connect({screen}, screen);
    EXPECT_EQ(detect().notchSize.width, 180);
    screen.auxiliaryTopRightArea.reset();
    screen.auxiliaryTopLeftArea = Rect{{0, 945}, {670, 37}};
    connect({screen}, screen);
    EXPECT_EQ(detect().notchSize.width, 180);
}

TEST_F(NotchDetectorTest, ANotchOnAScreenThatDoesNotBeginAtTheOriginIsAtThatScreensTop) {
    auto screen = notched("Right and above", {{1920, 98}, {1512, 982}}, 37);
    screen.auxiliaryTopLeftArea = Rect{{1920, 1043}, {670, 37}};
    screen.auxiliaryTopRightArea = Rect{{2762, 1043}, {670, 37}};
    connect({plain("Main", {{0, 0}, {1920, 1080}}), screen}, std::nullopt);
    EXPECT_EQ(detect().notchSize, (Size{172, 37}));
    EXPECT_EQ(detect().notchPosition, (Point{2590, 1043}));
}

TEST_F(NotchDetectorTest, AVirtualNotchOnAScreenLeftOfAndBelowTheOriginIsAtThatScreensTop) {
    auto screen = plain("Left", {{-1920, -300}, {1920, 1080}});
    screen.visibleFrame.size.height = 1055;
    connect({screen}, screen);
    EXPECT_EQ(detect().notchSize, (Size{180, 25}));
    EXPECT_EQ(detect().notchPosition, (Point{-1050, 755}));
}

TEST_F(NotchDetectorTest, AMenuBarOfHalfAPointIsOne) {
    auto screen = plain("External", {{0, 0}, {1920, 1080}});
    screen.visibleFrame.size.height = 1079.5;
    connect({screen}, screen);
    EXPECT_EQ(detect().notchSize.height, 0.5);
}

TEST_F(NotchDetectorTest, TheMainScreenTakesAVirtualNotchBeforeTheFirstOfTheList) {
    const auto first = plain("First", {{0, 0}, {1920, 1080}});
    const auto main = plain("Main", {{1920, 0}, {1920, 1080}});
    connect({first, main}, main);
    EXPECT_EQ(detect().screen, main);
}

TEST_F(NotchDetectorTest, AnExternalScreenGivesAVirtualNotchAsHighAsItsMenuBar) {
    auto screen = plain("External", {{0, 0}, {1920, 1080}});
    screen.visibleFrame.size.height = 1055;
    connect({screen}, screen);
    const auto info = detect();
    EXPECT_FALSE(info.hasNotch);
    EXPECT_EQ(info.notchSize, (Size{180, 25}));
    EXPECT_EQ(info.notchPosition, (Point{870, 1055}));
    EXPECT_EQ(info.screen, screen);
}

TEST_F(NotchDetectorTest, AnAutoHiddenMenuBarGives32) {
    const auto screen = plain("External", {{0, 0}, {1920, 1080}});
    connect({screen}, screen);
    EXPECT_EQ(detect().notchSize, (Size{180, 32}));
}

TEST_F(NotchDetectorTest, RequireRealNotchWithoutANotchGivesNoScreen) {
    platform.userDefaultsPort.set("requireRealNotch", true);
    EXPECT_EQ(detect(), NotchScreenInfo{});
    EXPECT_TRUE(platform.logPort.contains(
        "requireRealNotch=true and no physical notch found — skipping virtual notch"));
    EXPECT_FALSE(
        platform.logPort.contains("No screens available at all — returning zero-sized info"));
}

TEST_F(NotchDetectorTest, RequireRealNotchKeepsARealOne) {
    platform.userDefaultsPort.set("requireRealNotch", true);
    const auto screen = notched("Built-in", {{0, 0}, {1512, 982}}, 37);
    connect({screen}, screen);
    EXPECT_TRUE(detect().hasNotch);
}

TEST_F(NotchDetectorTest, WithoutAMainScreenTheFirstOfTheListIsUsed) {
    const auto first = plain("First", {{0, 0}, {1920, 1080}});
    connect({first, plain("Second", {{1920, 0}, {800, 600}})}, std::nullopt);
    EXPECT_EQ(detect().screen, first);
}

TEST_F(NotchDetectorTest, EveryScreenIsLogged) {
    const auto first = plain("First", {{0, 0}, {1920, 1080}});
    connect({first, notched("Second", {{1920, 0}, {1512, 982}}, 37)}, first);
    detect();
    for (const char* line :
         {"Detecting notch — 2 screen(s) connected",
          "  Screen 0: First, frame={{0, 0}, {1920, 1080}}, safeAreaInsets.top=0.000000, "
          "hasNotch=false",
          "  Screen 1: Second, frame={{1920, 0}, {1512, 982}}, safeAreaInsets.top=37.000000, "
          "hasNotch=true",
          "Physical notch found on Second: 180.000000x37.000000"})
        EXPECT_TRUE(platform.logPort.contains(line)) << line;
}

TEST_F(NotchDetectorTest, NoScreenAtAllIsLoggedAsAnError) {
    connect({}, std::nullopt);
    EXPECT_EQ(detect(), NotchScreenInfo{});
    ASSERT_FALSE(platform.logPort.lines.empty());
    const auto& last = platform.logPort.lines.back();
    EXPECT_EQ(last.message, "No screens available at all — returning zero-sized info");
    EXPECT_EQ(last.level, LogLevel::error);
    EXPECT_EQ(last.category, "NotchDetector");
    EXPECT_EQ(last.subsystem, "com.orvelle.app");
}

} // namespace
} // namespace orvelle
