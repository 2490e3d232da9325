#include "Features/Calendar/CalendarExpandedView.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Clipboard/ClipboardHistoryView.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Features/FileShelf/FileShelfView.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/AudioVisualizer.h"
#include "Features/Media/NowPlayingView.h"
#include "Features/Mirror/MirrorExpandedView.h"
#include "Features/Onboarding/OnboardingView.h"
#include "Features/Pomodoro/PomodoroExpandedView.h"
#include "Features/StockTicker/StockTickerCycleView.h"
#include "Features/StockTicker/StockTickerExpandedView.h"
#include "Features/Time/TimeExpandedView.h"
#include "Features/Weather/WeatherExpandedView.h"

#include <gtest/gtest.h>

/// The measures that a view's look is made of. The views' own tests see what they come to; here the
/// numbers themselves may not drift.
namespace orvelle {
namespace {

TEST(Measures, OfTheClipboardsSearchField) {
    using View = ClipboardHistoryView;
    EXPECT_EQ(View::spacing, 8);
    EXPECT_EQ(View::searchPadding, 8);
    EXPECT_EQ(View::searchCornerRadius, 8);
    EXPECT_EQ(View::searchBackground, Color::white(1, 0.08));
    EXPECT_EQ(View::searchStyle.size, 12);
    EXPECT_EQ(View::searchPrompt, "Search clipboard...");
}

TEST(Measures, OfARowOfTheClipboard) {
    using Row = ClipboardHistoryView::ClipboardItemRow;
    EXPECT_EQ(Row::spacing, 8);
    EXPECT_EQ(Row::horizontalPadding, 8);
    EXPECT_EQ(Row::verticalPadding, 6);
    EXPECT_EQ(Row::cornerRadius, 6);
    EXPECT_EQ(Row::symbolWidth, 18);
    EXPECT_EQ(Row::textSpacing, 2);
    EXPECT_EQ(Row::detailSpacing, 4);
    EXPECT_EQ(Row::buttonOpacity, 0.7);
    EXPECT_EQ(Row::hoverColor, Color::white(1, 0.08));
    EXPECT_EQ(Row::hoverDuration, 0.15);
}

TEST(Measures, OfTheShelfAndItsCells) {
    using View = FileShelfView;
    EXPECT_EQ(View::spacing, 8);
    EXPECT_EQ(View::gridSpacing, 12);
    EXPECT_EQ(View::gridPadding, 8);
    EXPECT_EQ(View::shareAllBottomPadding, 4);
    EXPECT_EQ(ShelfItemCell::cellSpacing, 4);
    EXPECT_EQ(ShelfItemCell::cellPadding, 4);
    EXPECT_EQ(ShelfItemCell::iconSize, 40);
    EXPECT_EQ(ShelfItemCell::nameWidth, 60);
}

TEST(Measures, OfTheEmptyShelf) {
    using View = FileShelfView;
    EXPECT_EQ(View::emptySpacing, 4);
    EXPECT_EQ(View::emptyHeight, 80);
    EXPECT_EQ(View::emptyPadding, 12);
    EXPECT_EQ(View::emptyCornerRadius, 8);
    EXPECT_EQ(View::emptyLineWidth, 1);
    EXPECT_EQ(View::emptyDash, 6);
}

TEST(Measures, OfTheVisualizersMotionAndBars) {
    EXPECT_EQ(AudioVisualizer::changeDuration, 0.1);
    EXPECT_EQ(AudioVisualizer::cornerRadius(AudioVisualizer::regular),
              AudioVisualizer::regular.barWidth / 2);
    EXPECT_EQ(NowPlayingView::visualizerHeight, 24);
    EXPECT_EQ(NowPlayingView::visualizerPadding, (Size{6, 4}));
}

TEST(Measures, OfTime) {
    EXPECT_EQ(ClipboardManager::pollInterval, 0.5);
    EXPECT_EQ(HUDManager::brightnessInterval, 0.3);
    EXPECT_EQ(HUDManager::brightnessThreshold, 0.01F);
    EXPECT_EQ(CalendarManager::window, 24 * 3600);
}

TEST(Measures, OfTheMirror) {
    using View = MirrorExpandedView;
    EXPECT_EQ(View::cornerRadius, 8);
    EXPECT_EQ(View::toggleMargin, 8);
    EXPECT_EQ(View::buttonHorizontalPadding, 16);
    EXPECT_EQ(View::buttonVerticalPadding, 6);
}

TEST(Measures, OfTheWizard) {
    EXPECT_EQ(OnboardingView::horizontalPadding, 24);
    EXPECT_EQ(OnboardingView::verticalPadding, 20);
    EXPECT_EQ(OnboardingView::tipSymbolWidth, 20);
}

TEST(Measures, OfTheFocusTimersControls) {
    using View = PomodoroExpandedView;
    EXPECT_EQ(View::controlsHeight, 44);
    EXPECT_EQ(View::controlsSpacing, 6);
    EXPECT_EQ(View::dotSize, 6);
    EXPECT_EQ(View::dotSpacing, 4);
    EXPECT_EQ(View::buttonSpacing, 16);
}

TEST(Measures, OfTheFocusTimersStyles) {
    using View = PomodoroExpandedView;
    EXPECT_EQ(View::textSpacing, 4);
    EXPECT_EQ(View::barWidth, 120);
    EXPECT_EQ(View::progressDuration, 0.5);
    EXPECT_EQ(View::dialOpacity, 0.2);
    EXPECT_EQ(View::tickWidth, 1);
    EXPECT_EQ(View::tickInset, 8);
    EXPECT_EQ(View::handWidth, 2);
    EXPECT_EQ(View::handInset, 10);
    EXPECT_EQ(View::hubSize, 6);
}

TEST(Measures, OfTheStocks) {
    EXPECT_EQ(StockTickerCycleView::spacing, 3);
    EXPECT_EQ(StockTickerCycleView::stepDuration, 0.3);
    using Row = StockTickerRowContent;
    EXPECT_EQ(Row::spacing, 8);
    EXPECT_EQ(Row::horizontalPadding, 4);
    EXPECT_EQ(Row::verticalPadding, 3);
    EXPECT_EQ(Row::lineSpacing, 1);
    using View = StockTickerExpandedView;
    EXPECT_EQ(View::spacing, 6);
    EXPECT_EQ(View::fieldHorizontalPadding, 8);
    EXPECT_EQ(View::fieldVerticalPadding, 5);
    EXPECT_EQ(View::rowBackground, Color::white(1, 0.06));
    EXPECT_EQ(View::rowInset, 2);
    EXPECT_EQ(View::rowSideInset, 4);
    EXPECT_EQ(View::removalDuration, 0.15);
}

TEST(Measures, OfTheWeathersCard) {
    using View = WeatherExpandedView;
    EXPECT_EQ(View::loadingSpacing, 8);
    EXPECT_EQ(View::cornerRadius, 10);
    EXPECT_EQ(View::gradientOpacity, 0.35);
    EXPECT_EQ(View::padding, 10);
    EXPECT_EQ(View::spacing, 6);
    EXPECT_EQ(View::trailingTopPadding, 4);
    EXPECT_EQ(View::trailingSpacing, 2);
    EXPECT_EQ(View::dotSpacing, 3);
    EXPECT_EQ(View::dotSize, 4);
}

TEST(Measures, OfTheWeathersChips) {
    using View = WeatherExpandedView;
    EXPECT_EQ(View::chipSpacing, 8);
    EXPECT_EQ(View::chipContentSpacing, 4);
    EXPECT_EQ(View::chipHorizontalPadding, 8);
    EXPECT_EQ(View::chipVerticalPadding, 4);
    EXPECT_EQ(View::chipRadius, 6);
    EXPECT_EQ(View::chipFill, Color::white(1, 0.08));
}

TEST(Measures, OfTheCalendarAndTheClock) {
    using View = CalendarExpandedView;
    EXPECT_EQ(View::emptyPadding, 16);
    EXPECT_EQ(View::listPadding, 8);
    EXPECT_EQ(View::headerPadding, 4);
    EXPECT_EQ(View::rowHorizontalPadding, 8);
    EXPECT_EQ(View::rowVerticalPadding, 4);
    EXPECT_EQ(TimeExpandedView::dividerPadding, 8);
}

} // namespace
} // namespace orvelle
