#include "Core/Gestures/GestureManager.h"

#include "Support/AppFixture.h"

namespace orvelle {
namespace {

using State = NotchExpandedState;
constexpr auto nextTrack = NowPlayingService::nextTrack;
constexpr auto previous = NowPlayingService::previousTrack;

class GestureManagerTest : public AppFixture {
protected:
    GestureManagerTest() { launchNormally(); }

    ScrollEvent event(double dx, double dy) {
        return {dx, dy, MomentumPhase::none, &window(), {100, 100}};
    }
    void scroll(double dy) { platform.eventMonitorsPort.scroll(event(0, dy)); }
    void scrollInertia(double dy) {
        auto inertia = event(0, dy);
        inertia.momentumPhase = MomentumPhase::changed;
        platform.eventMonitorsPort.scroll(inertia);
    }
    void swipe(double dx, double dy = 0) { platform.eventMonitorsPort.scroll(event(dx, dy)); }
    void swipeTabBar(double dx) {
        auto stroke = event(dx, 0);
        stroke.locationInWindow.y = window().frame().size.height - 69;
        platform.eventMonitorsPort.scroll(stroke);
    }
    void open(ActivePanel panel) {
        app.notchState.activePanel = panel;
        setState(State::expanded);
    }
    const std::vector<std::uint32_t>& commands() { return platform.nowPlayingPort.commands; }
    ActivePanel panel() { return app.notchState.activePanel.get(); }
    Edge edge() { return app.notchState.panelTransitionEdge.get(); }
    std::size_t place() { return app.weatherManager.currentLocationIndex.get(); }
    void savePlaces() {
        app.weatherManager.savedLocations =
            std::vector<SavedLocation>{{UUID::random(), "Oslo", 59.9, 10.7}};
    }
};

using Commands = std::vector<std::uint32_t>;

TEST_F(GestureManagerTest, ScrollSensitivityOf30StillOpensAt2Point1) {
    defaults().set("scrollSensitivity", 30.0);
    scroll(2.0);
    EXPECT_EQ(state(), State::collapsed);
    scroll(2.1);
    EXPECT_EQ(state(), State::expanded);
}

TEST_F(GestureManagerTest, TheKeyboardClosesTheOpenPanelAtAnySensitivityAndDirection) {
    for (const bool isReversed : {false, true}) {
        defaults().set("scrollSensitivity", 30.0);
        defaults().set("reverseScrollDirection", isReversed);
        setState(State::expanded);
        views.closePanel();
        EXPECT_EQ(state(), State::collapsed);
    }
}

TEST_F(GestureManagerTest, HoveringCollapsesBelowMinus5) {
    setState(State::hovering);
    scroll(-5);
    EXPECT_EQ(state(), State::hovering);
    scroll(-5.1);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, ExpandedCollapsesBelowMinus17Point5UnlessItIsMomentum) {
    setState(State::expanded);
    scroll(-17.5);
    EXPECT_EQ(state(), State::expanded);
    scrollInertia(-100);
    EXPECT_EQ(state(), State::expanded);
    scroll(-17.6);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, FullExpandedClosesLikeExpanded) {
    setState(State::fullExpanded);
    scroll(20);
    EXPECT_EQ(state(), State::fullExpanded);
    scroll(-17.6);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, InertiaClosesAHoveringBar) {
    setState(State::hovering);
    scrollInertia(-6);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, TheLowestSensitivityClosesBelowMinus7) {
    defaults().set("scrollSensitivity", 0.5); // acts as 2
    setState(State::expanded);
    scroll(-7);
    EXPECT_EQ(state(), State::expanded);
    scroll(-7.1);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, ADxOf30WithADyOf25CountsAsVertical) {
    setState(State::hovering);
    swipe(30, 25);
    EXPECT_EQ(commands(), Commands{});
    EXPECT_EQ(state(), State::expanded);
}

TEST_F(GestureManagerTest, AStrokeOneAndAHalfTimesAsWideAsHighIsNoSwipeYet) {
    setState(State::hovering);
    swipe(30, -20);
    EXPECT_EQ(commands(), Commands{});
    EXPECT_EQ(state(), State::collapsed) << "it counts as vertical";
    setState(State::hovering);
    swipe(30, -19.9);
    EXPECT_EQ(commands(), Commands{previous});
    EXPECT_EQ(state(), State::hovering) << "what is a swipe is nothing else";
}

TEST_F(GestureManagerTest, ASwipeThatAlsoGoesDownDoesNotOpen) {
    setState(State::hovering);
    swipe(-40, 10);
    EXPECT_EQ(commands(), Commands{nextTrack});
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(GestureManagerTest, TheSensitivityOfSwipesActsBetween5And40) {
    setState(State::hovering);
    defaults().set("horizontalSwipeSensitivity", 1.0);
    swipe(5);
    EXPECT_EQ(commands(), Commands{});
    swipe(5.1);
    EXPECT_EQ(commands(), Commands{previous});
    advance(0.41);
    defaults().set("horizontalSwipeSensitivity", 100.0);
    swipe(40);
    EXPECT_EQ(commands(), Commands{previous});
    swipe(40.1);
    EXPECT_EQ(commands(), (Commands{previous, previous}));
}

TEST_F(GestureManagerTest, TheSensitivityOfScrollingActsUpTo30) {
    defaults().set("scrollSensitivity", 100.0);
    setState(State::hovering);
    scroll(-30);
    EXPECT_EQ(state(), State::hovering);
    scroll(-30.1);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, TheShortestCooldownIsATenthOfASecondAndWeathersThreeTenths) {
    defaults().set("swipeCooldown", 0.001);
    open(ActivePanel::media);
    swipe(-20);
    advance(0.099);
    swipe(-20);
    EXPECT_EQ(commands(), Commands{nextTrack});
    advance(0.002);
    swipe(-20);
    EXPECT_EQ(commands(), (Commands{nextTrack, nextTrack}));

    savePlaces();
    open(ActivePanel::weather);
    swipe(-20);
    advance(0.299);
    swipe(-20);
    EXPECT_EQ(place(), 1u);
    advance(0.002);
    swipe(-20);
    EXPECT_EQ(place(), 0u);
}

TEST_F(GestureManagerTest, ASwipeToTheLeftOverTheWeatherIsTheNextPlaceAndToTheRightThePreviousOne) {
    app.weatherManager.savedLocations = std::vector<SavedLocation>{
        {UUID::random(), "Oslo", 59.9, 10.7}, {UUID::random(), "Rome", 41.9, 12.5}};
    open(ActivePanel::weather);
    swipe(-20);
    EXPECT_EQ(place(), 1u);
    advance(0.61);
    swipe(20);
    EXPECT_EQ(place(), 0u);
}

TEST_F(GestureManagerTest, ASwipeMustExceedTheSensitivity) {
    setState(State::hovering);
    swipe(15);
    EXPECT_EQ(commands(), Commands{});
    swipe(15.1);
    EXPECT_EQ(commands(), Commands{previous});
}

TEST_F(GestureManagerTest, ADxOfMinus20InTheMediaPanelIsNextTrackAndLocksFor400Milliseconds) {
    open(ActivePanel::media);
    swipe(-20);
    EXPECT_EQ(commands(), Commands{nextTrack});
    advance(0.39);
    swipe(-20);
    EXPECT_EQ(commands(), Commands{nextTrack});
    advance(0.02);
    swipe(-20);
    EXPECT_EQ(commands(), (Commands{nextTrack, nextTrack}));
}

TEST_F(GestureManagerTest, ReverseScrollDirectionDoesNotReverseSwipes) {
    defaults().set("reverseScrollDirection", true);
    open(ActivePanel::media);
    swipe(20);
    EXPECT_EQ(commands(), Commands{previous});
}

TEST_F(GestureManagerTest, ReverseScrollDirectionSwapsOpeningAndClosing) {
    defaults().set("reverseScrollDirection", true);
    scroll(20);
    EXPECT_EQ(state(), State::collapsed);
    scroll(-20);
    EXPECT_EQ(state(), State::expanded);
    scroll(20);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, ATabBarSwipeLeftOnTheLastPanelWrapsToTheFirstWithTrailing) {
    open(ActivePanel::stockTicker);
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::media);
    EXPECT_EQ(edge(), Edge::trailing);
}

TEST_F(GestureManagerTest, ATabBarSwipeRightOnTheFirstPanelWrapsToTheLastWithLeading) {
    open(ActivePanel::media);
    swipeTabBar(20);
    EXPECT_EQ(panel(), ActivePanel::stockTicker);
    EXPECT_EQ(edge(), Edge::leading);
}

TEST_F(GestureManagerTest, ATodoSwipeDoesNothingInTheContentAndChangesThePanelInTheTop70Points) {
    open(ActivePanel::todo);
    swipe(-20);
    EXPECT_EQ(panel(), ActivePanel::todo);
    EXPECT_EQ(commands(), Commands{});
    auto border = event(-20, 0);
    border.locationInWindow.y = 220 - 70;
    platform.eventMonitorsPort.scroll(border);
    EXPECT_EQ(panel(), ActivePanel::todo) << "the limit itself belongs to the content";
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::mirror);
}

TEST_F(GestureManagerTest, TheTabBarsZoneIsTheTop70PointsOfATallerPanelToo) {
    app.notchState.activePanel = ActivePanel::todo;
    setState(State::fullExpanded);
    ASSERT_EQ(window().frame().size.height, 390);
    auto stroke = event(-20, 0);
    stroke.locationInWindow.y = 390 - 70;
    platform.eventMonitorsPort.scroll(stroke);
    EXPECT_EQ(panel(), ActivePanel::todo);
    stroke.locationInWindow.y = 390 - 69;
    platform.eventMonitorsPort.scroll(stroke);
    EXPECT_EQ(panel(), ActivePanel::mirror);
}

TEST_F(GestureManagerTest, TheEdgeIsSetBeforeThePanelSoThatItSlidesInFromThere) {
    open(ActivePanel::media);
    app.notchState.panelTransitionEdge = Edge::trailing;
    std::vector<Edge> edges;
    const auto watch = app.notchState.activePanel.observe([&](auto&) { edges.push_back(edge()); });
    edges.clear(); // of the present panel
    swipeTabBar(20);
    EXPECT_EQ(edges, std::vector{Edge::leading});
}

TEST_F(GestureManagerTest, APanelChangeDoesNotProlongATrackLockUnderWay) {
    open(ActivePanel::media);
    swipe(-20);
    advance(0.3);
    swipeTabBar(-20);
    setState(State::hovering); // where every swipe is the track's
    advance(0.11);
    swipe(-20);
    EXPECT_EQ(commands(), (Commands{nextTrack, nextTrack}));
}

TEST_F(GestureManagerTest, APanelChangeDoesNotProlongAWeatherLockUnderWay) {
    savePlaces();
    open(ActivePanel::weather);
    swipe(-20);
    ASSERT_EQ(place(), 1u);
    advance(0.4);
    swipeTabBar(-20);
    app.notchState.activePanel = ActivePanel::weather;
    advance(0.21);
    swipe(-20);
    EXPECT_EQ(place(), 0u);
}

TEST_F(GestureManagerTest, ASecondSwipeDoesNotRestartTheLockThatStopsIt) {
    open(ActivePanel::media);
    swipe(-20);
    advance(0.3);
    swipe(-20);
    advance(0.11);
    swipe(-20);
    EXPECT_EQ(commands(), (Commands{nextTrack, nextTrack}));
    swipeTabBar(-20);
    ASSERT_EQ(panel(), ActivePanel::fileShelf);
    advance(0.3);
    swipeTabBar(-20);
    advance(0.11);
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::calendar);
}

TEST_F(GestureManagerTest, TheMirrorChangesThePanelFromItsContentToo) {
    open(ActivePanel::mirror);
    swipe(-20);
    EXPECT_EQ(panel(), ActivePanel::notes);
}

TEST_F(GestureManagerTest, WithASingleVisiblePanelTheSwipeSetsItAgainAndTakesTheLocks) {
    for (const auto& entry : PanelOrderManager::defaultOrder())
        if (entry.id != "media")
            app.panelOrderManager.toggleVisibility(entry.id);
    open(ActivePanel::media);
    int assignments = -1; // the first delivery is the present value
    const auto watch = app.notchState.activePanel.observe([&](auto&) { ++assignments; });
    swipeTabBar(-20);
    EXPECT_EQ(assignments, 1);
    EXPECT_EQ(panel(), ActivePanel::media);
    swipe(-20); // a track swipe, but locked
    EXPECT_EQ(commands(), Commands{});
    swipeTabBar(-20);
    EXPECT_EQ(assignments, 1);
    advance(0.41);
    swipe(-20);
    EXPECT_EQ(commands(), Commands{nextTrack});
}

TEST_F(GestureManagerTest, SwipeCooldownOf5ActsAs1AndWeathersAs1Point2) {
    defaults().set("swipeCooldown", 5.0);
    savePlaces();
    open(ActivePanel::media);
    swipe(-20);
    advance(0.99);
    swipe(-20);
    EXPECT_EQ(commands(), Commands{nextTrack});
    advance(0.02);
    swipe(-20);
    EXPECT_EQ(commands(), (Commands{nextTrack, nextTrack}));

    open(ActivePanel::weather);
    swipe(-20);
    EXPECT_EQ(place(), 1u);
    advance(1.19);
    swipe(-20);
    EXPECT_EQ(place(), 1u);
    advance(0.02);
    swipe(20);
    EXPECT_EQ(place(), 0u);
}

TEST_F(GestureManagerTest, APanelChangeLocksTrackAndWeatherSwipes) {
    savePlaces();
    open(ActivePanel::systemMonitor);
    swipeTabBar(-20);
    ASSERT_EQ(panel(), ActivePanel::weather);
    swipe(-20);
    EXPECT_EQ(place(), 0u);
    advance(0.59);
    swipe(-20);
    EXPECT_EQ(place(), 0u);
    advance(0.02);
    swipe(-20);
    EXPECT_EQ(place(), 1u);
}

TEST_F(GestureManagerTest, AHiddenActivePanelKeepsTheLocksAndTheSelection) {
    app.panelOrderManager.toggleVisibility("battery");
    open(ActivePanel::battery);
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::battery);
    app.panelOrderManager.toggleVisibility("battery");
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::battery) << "locked";
    advance(0.41);
    swipeTabBar(-20);
    EXPECT_EQ(panel(), ActivePanel::clipboard);
}

TEST_F(GestureManagerTest, InertiaSwipesNothing) {
    open(ActivePanel::media);
    auto inertia = event(-40, 0);
    inertia.momentumPhase = MomentumPhase::began;
    platform.eventMonitorsPort.scroll(inertia);
    inertia.locationInWindow.y = 200;
    platform.eventMonitorsPort.scroll(inertia);
    EXPECT_EQ(commands(), Commands{});
    EXPECT_EQ(panel(), ActivePanel::media);
}

TEST_F(GestureManagerTest, AClickInOwnWindowsDoesNotCloseThePanel) {
    setState(State::expanded);
    platform.eventMonitorsPort.pressInOwnWindow();
    EXPECT_EQ(state(), State::expanded);
}

TEST_F(GestureManagerTest, APressElsewhereClosesAnOpenPanelAndLeavesAHoveringOne) {
    setState(State::hovering);
    platform.eventMonitorsPort.pressElsewhere();
    EXPECT_EQ(state(), State::hovering);
    setState(State::expanded);
    platform.eventMonitorsPort.pressElsewhere();
    EXPECT_EQ(state(), State::collapsed);
    setState(State::fullExpanded);
    platform.eventMonitorsPort.pressElsewhere();
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, ScrollingOverOtherWindowsDoesNothing) {
    auto elsewhere = event(0, 20);
    elsewhere.panel = nullptr;
    platform.eventMonitorsPort.scroll(elsewhere);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(GestureManagerTest, ACollapsedNotchIgnoresSwipesAndClosingStrokes) {
    swipe(-40);
    scroll(-40);
    EXPECT_EQ(state(), State::collapsed);
    EXPECT_EQ(commands(), Commands{});
    EXPECT_EQ(panel(), ActivePanel::media);
}

} // namespace
} // namespace orvelle
