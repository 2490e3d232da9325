#include "Core/NotchWindow/NotchWindowController.h"

#include "Support/AppFixture.h"

#include <set>

namespace orvelle {
namespace {

using State = NotchExpandedState;

class NotchWindowControllerTest : public AppFixture {
protected:
    static constexpr Size collapsedSize{180, 24};
    static constexpr Size openSize{566, 220};

    NotchWindowControllerTest() { launchNormally(); }

    NotchWindowController& controller() { return *app.notchWindowController; }
    Size size() { return window().frame().size; }
    void pointAt(Point point) { platform.eventMonitorsPort.location = point; }
    void pointFarAway() { pointAt({10, 10}); }
    /// Lets the pointer come and go, so that the collapse waits for its debounce.
    void hoverAndLeave() {
        window().pointer.entered();
        pointFarAway();
        window().pointer.exited();
    }
    void setSpeed(const std::string& speed) { defaults().set("animationSpeed", speed); }
};

TEST_F(NotchWindowControllerTest, SlowExpandedCollapsedExpandedLeavesTheFrame) {
    setSpeed("slow");
    setState(State::expanded);
    setState(State::collapsed);
    advance(0.2);
    setState(State::expanded);
    const int frames = window().setFrameCount;
    advance(1);
    EXPECT_EQ(size(), openSize);
    EXPECT_EQ(window().setFrameCount, frames) << "the delayed shrink finds another state";
}

TEST_F(NotchWindowControllerTest, AShrinkOfLessThanOnePointIsAppliedAtOnce) {
    auto frame = window().frame();
    frame.size.width += 0.9;
    window().setFrame(frame);
    setState(State::collapsed);
    EXPECT_EQ(size(), collapsedSize);
    EXPECT_FALSE(controller().isAnimatingCollapse());

    frame.size.width += 0.2; // 1.1 wider than the notch
    window().setFrame(frame);
    setState(State::collapsed);
    EXPECT_NE(size(), collapsedSize);
    EXPECT_TRUE(controller().isAnimatingCollapse());
}

class CollapseDebounce : public NotchWindowControllerTest,
                         public testing::WithParamInterface<std::pair<double, Seconds>> {};

TEST_P(CollapseDebounce, IsClampedAndZeroIsUnset) {
    const auto [setting, interval] = GetParam();
    defaults().set("collapseDebounceInterval", setting);
    hoverAndLeave();
    advance(interval - 0.001);
    EXPECT_EQ(state(), State::hovering);
    advance(0.002);
    EXPECT_EQ(state(), State::collapsed);
}

INSTANTIATE_TEST_SUITE_P(Of, CollapseDebounce,
                         testing::Values(std::pair{10.0, 0.5}, std::pair{0.01, 0.05},
                                         std::pair{0.0, 0.15}, std::pair{-1.0, 0.15},
                                         std::pair{0.4, 0.4}));

TEST_F(NotchWindowControllerTest, AnUnsetDebounceIs150Milliseconds) {
    hoverAndLeave();
    advance(0.149);
    EXPECT_EQ(state(), State::hovering);
    advance(0.002);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(NotchWindowControllerTest, APointerFivePointsBesideThePanelKeepsItOpen) {
    window().pointer.entered();
    const auto frame = window().frame();
    pointAt({frame.maxX() + 5, frame.midY()});
    window().pointer.exited();
    advance(2);
    EXPECT_EQ(state(), State::hovering);
    pointAt({frame.maxX() + 9, frame.midY()});
    advance(2);
    EXPECT_EQ(state(), State::hovering) << "no new timer starts by itself";
    window().pointer.exited();
    advance(2);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(NotchWindowControllerTest, LeavingDuringADragStartsNoTimer) {
    window().pointer.entered();
    app.notchState.isDragSessionActive = true;
    const auto timers = platform.runLoopPort.timerCount();
    pointFarAway();
    window().pointer.exited();
    EXPECT_EQ(platform.runLoopPort.timerCount(), timers);
    advance(2);
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(NotchWindowControllerTest, EnteringWhileAShrinkIsPendingCancelsTheTimerAndDoesNotHover) {
    hoverAndLeave();
    advance(0.16); // collapsed, and the window waits to shrink
    ASSERT_EQ(state(), State::collapsed);
    ASSERT_TRUE(controller().isAnimatingCollapse());
    window().pointer.entered();
    EXPECT_EQ(state(), State::collapsed);
    advance(1);
    EXPECT_FALSE(controller().isAnimatingCollapse());
    window().pointer.entered();
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(NotchWindowControllerTest, EnteringWhileAShrinkIsPendingCancelsAWaitingCollapse) {
    setSpeed("slow");
    setState(State::expanded);
    setState(State::hovering); // the window waits to shrink to the bar
    pointFarAway();
    window().pointer.exited();
    advance(0.1);
    ASSERT_TRUE(controller().isAnimatingCollapse());
    window().pointer.entered();
    advance(2);
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(NotchWindowControllerTest, ComingBackInTimeCancelsTheCollapse) {
    hoverAndLeave();
    advance(0.1);
    window().pointer.entered();
    advance(2);
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(NotchWindowControllerTest, AScreenChangeWhileHoveringKeepsHoveringAtTheNewPlace) {
    window().pointer.entered();
    const auto oldState = app.notchState.currentScreen.get();
    const Screen other{"Other", {{0, 0}, {1920, 1080}}, {{0, 0}, {1920, 1056}}, {}, {}, {}};
    platform.screensPort.list = {other};
    platform.screensPort.mainScreen = other;
    platform.screensPort.notifyChanged();
    runPosted();
    EXPECT_EQ(state(), State::hovering);
    EXPECT_EQ(window().frame().midX(), 960);
    EXPECT_EQ(window().frame().maxY(), 1080);
    EXPECT_EQ(app.notchState.currentScreen.get(), oldState) << "the shared copies stay";
}

TEST_F(NotchWindowControllerTest, OnAScreenBesideAndAboveTheOriginEveryFrameHangsFromItsTop) {
    const Screen other{"Other", {{1512, 200}, {1920, 1080}}, {{1512, 200}, {1920, 1056}}, {}, {},
                       {}};
    platform.screensPort.list = {other};
    platform.screensPort.mainScreen = other;
    platform.screensPort.notifyChanged();
    runPosted();
    for (const auto next : {State::collapsed, State::hovering, State::expanded}) {
        setState(next);
        EXPECT_EQ(window().frame().midX(), 1512 + 960);
        EXPECT_EQ(window().frame().maxY(), 1280);
    }
}

TEST_F(NotchWindowControllerTest, AShrinkThatAnotherFollowsIsNotLost) {
    setState(State::expanded);
    setState(State::hovering);
    advance(0.1);
    setState(State::collapsed);
    advance(0.221); // the first one's delay is over, and finds another state
    EXPECT_EQ(size(), openSize);
    EXPECT_FALSE(controller().isAnimatingCollapse());
    advance(0.1);
    EXPECT_EQ(size(), collapsedSize);
}

TEST_F(NotchWindowControllerTest, GrowingAgainEndsAPendingShrinkSoThatThePointerCanHover) {
    setState(State::expanded);
    setState(State::hovering);
    ASSERT_TRUE(controller().isAnimatingCollapse());
    setState(State::expanded);
    EXPECT_FALSE(controller().isAnimatingCollapse());
}

TEST_F(NotchWindowControllerTest, AShrinkInHeightAloneWaitsToo) {
    setState(State::fullExpanded);
    setState(State::expanded);
    EXPECT_TRUE(controller().isAnimatingCollapse());
    EXPECT_EQ(size().height, 390);
    advance(0.33);
    EXPECT_EQ(size(), openSize);
}

TEST_F(NotchWindowControllerTest, ALossOfExactlyOnePointIsAppliedAtOnce) {
    for (const auto wider : {Size{1, 0}, Size{0, 1}}) {
        auto frame = window().frame();
        frame.size = {collapsedSize.width + wider.width, collapsedSize.height + wider.height};
        window().setFrame(frame);
        setState(State::collapsed);
        EXPECT_EQ(size(), collapsedSize);
    }
}

TEST_F(NotchWindowControllerTest, ANotchOfNoWidthIsGivenTheHoverBarOfTheUsualOne) {
    auto screen = platform.screensPort.list.front();
    screen.safeAreaInsets.top = 30;
    screen.auxiliaryTopLeftArea = Rect{{0, 952}, {756, 30}};
    screen.auxiliaryTopRightArea = Rect{{756, 952}, {756, 30}};
    platform.screensPort.list = {screen};
    platform.screensPort.notifyChanged();
    runPosted();
    setState(State::hovering);
    advance(0.33); // narrower than the notch before
    const std::set<std::string> shown{"battery", "fileShelf", "time"};
    const auto padding = app.hoverLayoutManager.estimatedHoverWidth(180, shown);
    EXPECT_EQ(size(), (Size{2 * padding + 16, 66}));
}

TEST_F(NotchWindowControllerTest, TheFirstFrameIsTheNotchItself) {
    EXPECT_EQ(window().frame(), (Rect{{666, 958}, {180, 24}}));
}

TEST_F(NotchWindowControllerTest, ThePointerIsOnThePanelUpTo8PointsBesideItOnEverySide) {
    const auto stays = [&](Point point) {
        setState(State::hovering);
        pointAt(point);
        window().pointer.exited();
        advance(0.2);
        const bool stayed = state() == State::hovering;
        advance(1); // the window has shrunk
        return stayed;
    };
    setState(State::hovering);
    const auto frame = window().frame();
    EXPECT_TRUE(stays({frame.minX() - 7.9, frame.midY()}));
    EXPECT_FALSE(stays({frame.minX() - 8.1, frame.midY()}));
    EXPECT_TRUE(stays({frame.maxX() + 7.9, frame.midY()}));
    EXPECT_FALSE(stays({frame.maxX() + 8.1, frame.midY()}));
    EXPECT_TRUE(stays({frame.midX(), frame.minY() - 7.9}));
    EXPECT_FALSE(stays({frame.midX(), frame.minY() - 8.1}));
}

TEST_F(NotchWindowControllerTest, EnteringAnOpenPanelLeavesItOpen) {
    setState(State::expanded);
    window().pointer.entered();
    EXPECT_EQ(state(), State::expanded);
}

TEST_F(NotchWindowControllerTest, LeavingTwiceStartsTheDebounceAnew) {
    hoverAndLeave();
    advance(0.1);
    window().pointer.exited();
    advance(0.1);
    EXPECT_EQ(state(), State::hovering);
    advance(0.051);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(NotchWindowControllerTest, LeavingAgainDuringADragEndsAWaitingCollapse) {
    hoverAndLeave();
    app.notchState.isDragSessionActive = true;
    window().pointer.exited();
    advance(2);
    EXPECT_EQ(state(), State::hovering);
}

TEST_F(NotchWindowControllerTest, LeavingWhileCollapsedOrOpenStartsNoTimer) {
    for (const auto present : {State::collapsed, State::expanded}) {
        setState(present);
        const auto timers = platform.runLoopPort.timerCount();
        pointFarAway();
        window().pointer.exited();
        EXPECT_EQ(platform.runLoopPort.timerCount(), timers);
    }
}

TEST_F(NotchWindowControllerTest, SettingNotesWhileCollapsedChangesNoKeyWindow) {
    app.notchState.activePanel = ActivePanel::notes;
    EXPECT_EQ(window().makeKeyCount, 0);
    EXPECT_EQ(window().resignKeyCount, 0);
}

TEST_F(NotchWindowControllerTest, TypingPanelsTakeTheKeyboardAndOthersGiveItBack) {
    setState(State::expanded);
    EXPECT_EQ(window().makeKeyCount, 0);
    for (const auto panel : {ActivePanel::todo, ActivePanel::clipboard, ActivePanel::notes}) {
        app.notchState.activePanel = panel;
        EXPECT_TRUE(window().isKey) << rawValue(panel);
        app.notchState.activePanel = ActivePanel::battery;
        EXPECT_FALSE(window().isKey) << rawValue(panel);
    }
}

TEST_F(NotchWindowControllerTest, OpeningOnATypingPanelTakesTheKeyboard) {
    app.notchState.activePanel = ActivePanel::todo;
    setState(State::expanded);
    EXPECT_TRUE(window().isKey);
}

TEST_F(NotchWindowControllerTest, AnOpenTypingPanelThatGrowsTallerKeepsTheKeyboard) {
    app.notchState.activePanel = ActivePanel::notes;
    setState(State::fullExpanded);
    EXPECT_TRUE(window().isKey);
}

TEST_F(NotchWindowControllerTest, HoveringTakesNoKeyboardAndGivesBackOnlyWhatItShrinksFrom) {
    app.notchState.activePanel = ActivePanel::todo;
    setState(State::hovering);
    EXPECT_EQ(window().makeKeyCount, 0);
    EXPECT_EQ(window().resignKeyCount, 0);
    setState(State::expanded);
    setState(State::hovering);
    EXPECT_FALSE(window().isKey);
}

TEST_F(NotchWindowControllerTest, GrowsAtOnceAndShrinksAfterTheViews) {
    for (const auto& [speed, delay] : {std::pair{"slow", 0.45}, std::pair{"normal", 0.32},
                                       std::pair{"fast", 0.18}, std::pair{"warp", 0.32}}) {
        setSpeed(speed);
        setState(State::expanded);
        EXPECT_EQ(size(), openSize);
        setState(State::collapsed);
        advance(delay - 0.001);
        EXPECT_EQ(size(), openSize) << speed;
        advance(0.002);
        EXPECT_EQ(size(), collapsedSize) << speed;
    }
}

TEST_F(NotchWindowControllerTest, TheHoverFrameHangsCentredFromTheTop) {
    window().pointer.entered();
    // battery 58 and the clock 63: the wing is 58 + 20, wider than the row needs
    EXPECT_EQ(window().frame(),
              (Rect{{(1512 - (180 + 2 * 78 + 16)) / 2.0, 982 - 60.0}, {352, 60}}));
}

TEST_F(NotchWindowControllerTest, AskedOfThePlatformIsOneAccessoryPanel) {
    const auto& asked = window().attributes;
    EXPECT_EQ(asked.title, "Orvelle Notch");
    EXPECT_TRUE(asked.nonactivating && asked.borderless && asked.aboveMenuBar &&
                asked.onAllWorkspaces && asked.stationary && asked.overFullScreen &&
                asked.canBecomeKey);
    EXPECT_FALSE(asked.opaque || asked.shadow || asked.ignoresMouseEvents || asked.movable ||
                 asked.movableByBackground || asked.canBecomeMain);
    EXPECT_EQ(views.notchContentCount, 1);
    EXPECT_EQ(platform.panelWindowsPort.count, 1);
}

TEST_F(NotchWindowControllerTest, WithoutAScreenTheFrameStaysAndTheReasonIsLogged) {
    const auto frame = window().frame();
    platform.screensPort.list.clear();
    platform.screensPort.mainScreen.reset();
    platform.screensPort.notifyChanged();
    runPosted();
    EXPECT_EQ(window().frame(), frame);
    EXPECT_TRUE(platform.logPort.contains(
        "updateWindowFrame: cachedScreenInfo.screen is nil — cannot update frame"));
}

TEST_F(NotchWindowControllerTest, AnOpenPanelIsNotClosedByThePointerLeaving) {
    window().pointer.entered();
    setState(State::expanded);
    pointFarAway();
    window().pointer.exited();
    advance(2);
    EXPECT_EQ(state(), State::expanded);
}

} // namespace
} // namespace orvelle
