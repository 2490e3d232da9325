#include "Views/NotchContentView.h"

#include "Core/Gestures/GestureManager.h"
#include "Extensions/ColorTheme.h"
#include "Support/ViewFixture.h"

namespace orvelle {
namespace {

class NotchContentViewTest : public ViewFixture {
protected:
    NotchState& state = app.notchState;
    NotchContentView view{app.environment(), {}, platform};

    void setAnimationSpeed(const std::string& speed) {
        defaults().set(Settings::animationSpeed.name, speed);
    }
    void hideEveryPanel() {
        app.panelOrderManager.panelOrder.update([](auto& order) {
            for (auto& entry : order)
                entry.isVisible = false;
        });
    }
    std::vector<ActivePanel> markedTabs() const {
        std::vector<ActivePanel> marked;
        for (const auto& tab : view.tabButtons())
            if (tab.isActive)
                marked.push_back(tab.panel);
        return marked;
    }
};

TEST_F(NotchContentViewTest, AnUnknownAnimationSpeedSpringsInTheNormalTime) {
    EXPECT_EQ(view.stateAnimation(), (Spring{0.28, 1.0}));
    setAnimationSpeed("slow");
    EXPECT_EQ(view.stateAnimation(), (Spring{0.4, 1.0}));
    setAnimationSpeed("fast");
    EXPECT_EQ(view.stateAnimation(), (Spring{0.15, 1.0}));
    setAnimationSpeed("sluggish");
    EXPECT_EQ(view.stateAnimation(), (Spring{0.28, 1.0}));
}

TEST_F(NotchContentViewTest, WithoutVisiblePanelsTheTabBarIsEmptyAndThePanelIsStillShown) {
    state.activePanel = ActivePanel::notes;
    hideEveryPanel();
    EXPECT_TRUE(view.tabButtons().empty());
    EXPECT_EQ(NotchContentView::panelPlaceholder(state.activePanel).title.text, "Notes");
}

TEST_F(NotchContentViewTest, AHiddenActivePanelStaysShownWithNoTabMarkedUntilOneIsPicked) {
    state.activePanel = ActivePanel::weather;
    app.panelOrderManager.toggleVisibility("weather");
    EXPECT_TRUE(markedTabs().empty());
    EXPECT_EQ(state.activePanel, ActivePanel::weather);
    EXPECT_EQ(NotchContentView::panelPlaceholder(state.activePanel).title.text, "Weather");

    view.selectPanel(ActivePanel::todo);
    EXPECT_EQ(markedTabs(), std::vector{ActivePanel::todo});
}

TEST_F(NotchContentViewTest, ClickingTheActivePanelsTabOnlyTurnsTheEdgeToLeading) {
    state.activePanel = ActivePanel::time;
    state.panelTransitionEdge = Edge::trailing;
    view.selectPanel(ActivePanel::time);
    EXPECT_EQ(state.panelTransitionEdge, Edge::leading);
    EXPECT_EQ(state.activePanel, ActivePanel::time);
}

TEST_F(NotchContentViewTest, TheHUDCoversTheExpandedPanelWhichKeepsItsState) {
    state.expandedState = NotchExpandedState::expanded;
    state.activePanel = ActivePanel::battery;
    const auto tabs = view.tabButtons();
    EXPECT_FALSE(view.hudOverlay());

    state.hudType = HUDType::brightness;
    state.hudValue = 0.4;
    state.isHUDVisible = true;
    ASSERT_TRUE(view.hudOverlay());
    EXPECT_EQ(view.hudOverlay()->slider.fraction(), 0.4);
    EXPECT_EQ(view.hudOverlay()->symbol, (StyledSymbol{"sun.max.fill", 20, colors::white}));
    EXPECT_EQ(view.tabButtons(), tabs);
    EXPECT_FALSE(view.showsCollapsedView());
    EXPECT_EQ(state.activePanel, ActivePanel::battery);
}

TEST_F(NotchContentViewTest, SwipesSetTheEdgeFromTheirOwnDirectionAndClicksFromTheFixedOrder) {
    GestureManager gestures(state, app.mediaManager, app.weatherManager, app.panelOrderManager,
                            platform);
    SimulatedPanelWindow window({}, {{0, 0}, {566, 220}});
    app.panelOrderManager.reorder({0}, 2); // files, media, calendar, ...
    state.expandedState = NotchExpandedState::expanded;

    state.activePanel = ActivePanel::fileShelf;
    view.selectPanel(ActivePanel::media);
    EXPECT_EQ(state.panelTransitionEdge, Edge::leading);

    state.activePanel = ActivePanel::fileShelf;
    platform.eventMonitorsPort.scroll(
        {.scrollingDeltaX = -50, .panel = &window, .locationInWindow = {283, 200}});
    EXPECT_EQ(state.activePanel, ActivePanel::media);
    EXPECT_EQ(state.panelTransitionEdge, Edge::trailing);
    EXPECT_EQ(view.panelRemovalEdge(), Edge::leading);
}

TEST_F(NotchContentViewTest, TheEdgeIsSetBeforeThePanelChanges) {
    Edge seen = Edge::top;
    const auto observer =
        state.activePanel.observe([&](ActivePanel) { seen = state.panelTransitionEdge; });
    view.selectPanel(ActivePanel::notes);
    EXPECT_EQ(seen, Edge::trailing);
    view.selectPanel(ActivePanel::media);
    EXPECT_EQ(seen, Edge::leading);
    EXPECT_EQ(view.panelRemovalEdge(), Edge::trailing);
}

TEST_F(NotchContentViewTest, TabsStandInTheUsersOrderWhetherOrNotTheirFeatureIsEnabled) {
    app.panelOrderManager.reorder({12}, 0);
    app.stockTickerManager.isEnabled = false;
    platform.appearancePort.accent = colors::orange;
    state.activePanel = ActivePanel::stockTicker;

    const auto tabs = view.tabButtons();
    ASSERT_EQ(tabs.size(), 13u);
    EXPECT_EQ(tabs[0],
              (NotchContentView::TabButton{ActivePanel::stockTicker,
                                           "Stocks",
                                           {"chart.line.uptrend.xyaxis", 12, colors::white},
                                           true,
                                           colors::orange.withAlpha(0.2)}));
    EXPECT_EQ(tabs[1], (NotchContentView::TabButton{ActivePanel::media,
                                                    "Media",
                                                    {"music.note", 12, notchSecondary},
                                                    false,
                                                    colors::clear}));
}

TEST_F(NotchContentViewTest, TheShapeFlaresAndHasABorderUnlessCollapsed) {
    EXPECT_EQ(view.currentNotchShape(), (NotchShape{12, 14, 0}));
    EXPECT_FALSE(view.borderOverlay());
    for (const auto open : {NotchExpandedState::hovering, NotchExpandedState::expanded,
                            NotchExpandedState::fullExpanded}) {
        state.expandedState = open;
        EXPECT_EQ(view.currentNotchShape(), (NotchShape{12, 14, 8}));
        EXPECT_EQ(view.borderOverlay(),
                  (NotchContentView::Border{{12, 14, 8}, {Color::white(1, 0.15), 0.5, 10}}));
    }
}

TEST_F(NotchContentViewTest, TheStageTellsWhatStandsInTheShapeAndHowLarge) {
    placeOnly(HoverWidgetPosition::leftWing, {});
    setAnimationSpeed("slow");
    const NotchContentView::Border border{{12, 14, 8}, {Color::white(1, 0.15), 0.5, 10}};
    const Spring slow{0.4, 1};
    EXPECT_EQ(view.stage(), (NotchContentView::Stage{{200, 37}, {12, 14, 0}, slow, {}, {}, {}}));
    state.expandedState = NotchExpandedState::hovering;
    EXPECT_EQ(view.stage(),
              (NotchContentView::Stage{
                  {200 + 2 * 24 + 16, 73}, {12, 14, 8}, slow, border, Size{248, 73}, {}}));
    state.expandedState = NotchExpandedState::expanded;
    EXPECT_EQ(view.stage(),
              (NotchContentView::Stage{{566, 220}, {12, 14, 8}, slow, border, {}, Size{566, 220}}));
    state.expandedState = NotchExpandedState::fullExpanded;
    EXPECT_EQ(view.stage().expandedContent, (Size{566, 390}));
}

TEST_F(NotchContentViewTest, TheTabbedPanelStandsFromExpandedOn) {
    EXPECT_TRUE(view.showsCollapsedView());
    state.expandedState = NotchExpandedState::hovering;
    EXPECT_TRUE(view.showsCollapsedView());
    state.expandedState = NotchExpandedState::expanded;
    EXPECT_FALSE(view.showsCollapsedView());
    state.expandedState = NotchExpandedState::fullExpanded;
    EXPECT_FALSE(view.showsCollapsedView());
}

TEST_F(NotchContentViewTest, TheHoveringSizeFollowsTheVisibleWidgets) {
    placeOnly(HoverWidgetPosition::rightWing, {"weather", "battery"});
    state.expandedState = NotchExpandedState::hovering;
    EXPECT_FALSE(view.visibleWidgetIDs().contains("weather"));
    EXPECT_EQ(view.dynamicHoverPadding(), 50 + 8 + 20);

    app.weatherManager.weather.update([](auto& weather) { weather.locationName = "Oslo"; });
    EXPECT_TRUE(view.visibleWidgetIDs().contains("weather"));
    EXPECT_EQ(view.dynamicHoverPadding(), 139);
    EXPECT_EQ(view.hoveringWidth(), 200 + 2 * 139);
    EXPECT_EQ(view.targetSize(), (Size{200 + 2 * 139 + 2 * 8, 37 + 36}));
}

TEST_F(NotchContentViewTest, ANotchWithoutWidthCountsAsTheDefaultOne) {
    placeOnly(HoverWidgetPosition::leftWing, {});
    state.notchSize = Size{};
    EXPECT_EQ(view.hoveringWidth(), 180 + 2 * 24);
}

TEST_F(NotchContentViewTest, HUDSymbolsFollowTypeAndLevel) {
    state.hudValue = 0.01;
    EXPECT_EQ(view.hudIconName(HUDType::volume), "speaker.wave.2.fill");
    EXPECT_EQ(view.hudIconName(HUDType::keyboardBacklight), "keyboard.badge.ellipsis");
    view.setHUDValue(0);
    EXPECT_EQ(view.hudIconName(HUDType::volume), "speaker.slash.fill");
    EXPECT_EQ(view.hudIconName(HUDType::brightness), "sun.max.fill");
}

TEST_F(NotchContentViewTest, TheOverlayNeedsBothAnOrderToShowAndAType) {
    state.isHUDVisible = true;
    EXPECT_FALSE(view.hudOverlay());
    state.hudType = HUDType::volume;
    EXPECT_TRUE(view.hudOverlay());
    state.isHUDVisible = false;
    EXPECT_FALSE(view.hudOverlay());
}

TEST_F(NotchContentViewTest, ThePlaceholderNamesThePanel) {
    EXPECT_EQ(NotchContentView::panelPlaceholder(ActivePanel::settings),
              (FilePlaceholder{{"gear", 24, notchTertiary},
                               {"Settings", {13, FontWeight::regular, notchSecondary}}}));
}

TEST_F(NotchContentViewTest, TheContextMenuOpensTheSettings) {
    EXPECT_TRUE(view.contextMenu().empty());
    int opened = 0;
    NotchContentView withSettings(
        app.environment(), [&] { ++opened; }, platform);
    const auto menu = withSettings.contextMenu();
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].title, "Settings...");
    menu[0].perform();
    EXPECT_EQ(opened, 1);
}

} // namespace
} // namespace orvelle
