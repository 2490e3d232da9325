#include "Views/NotchCollapsedView.h"

#include "Support/ViewFixture.h"

namespace orvelle {
namespace {

constexpr auto leftWing = HoverWidgetPosition::leftWing;
constexpr auto rightWing = HoverWidgetPosition::rightWing;
constexpr auto bottomRow = HoverWidgetPosition::bottomRow;

const Color dimmed = Color::white(1, 0.7);

StyledText medium(std::string text, double size, Color color = colors::white) {
    return {std::move(text), {size, FontWeight::medium, color}};
}

class NotchCollapsedViewTest : public ViewFixture {
protected:
    NotchState& state = app.notchState;
    NotchCollapsedView view{app.environment(), {"mirror"}, platform};

    void setLocation(const std::string& name) {
        app.weatherManager.weather.update([&](auto& weather) { weather.locationName = name; });
    }
    static std::vector<std::string> ids(const std::vector<HoverWidget>& widgets) {
        std::vector<std::string> ids;
        for (const auto& widget : widgets)
            ids.push_back(widget.id);
        return ids;
    }
};

using Ids = std::vector<std::string>;

TEST_F(NotchCollapsedViewTest, WithNothingPlayingTheLeftWingIsEmptyAndTheBarStillOpensThePanel) {
    placeOnly(leftWing, {"media"});
    state.expandedState = NotchExpandedState::hovering;
    state.activePanel = ActivePanel::time;
    EXPECT_TRUE(view.showsHoveringLayout());
    EXPECT_TRUE(view.leftWing().empty());

    view.expand();
    EXPECT_EQ(state.expandedState, NotchExpandedState::expanded);
    EXPECT_EQ(state.activePanel, ActivePanel::time);
    EXPECT_FALSE(view.showsHoveringLayout());
}

TEST_F(NotchCollapsedViewTest, WithoutBottomContentThereIsNoBottomRowAndNoBottomPadding) {
    placeOnly(bottomRow, {"calendar", "time"});
    EXPECT_TRUE(view.hasBottomRowContent());
    EXPECT_EQ(view.bottomPadding(), 5);

    app.hoverLayoutManager.toggleVisibility("time"); // and no event fills the calendar
    EXPECT_FALSE(view.hasBottomRowContent());
    EXPECT_EQ(view.bottomPadding(), 0);
}

TEST_F(NotchCollapsedViewTest, ABottomWidgetWithoutContentLeavesNoSeparator) {
    placeOnly(bottomRow, {"time", "calendar"});
    EXPECT_EQ(ids(view.bottomRow()), Ids{"time"});
}

TEST_F(NotchCollapsedViewTest, AWingWidgetWithoutContentLeavesNoGap) {
    placeOnly(rightWing, {"weather", "battery", "calendar", "time"});
    EXPECT_EQ(ids(view.rightWing()), (Ids{"battery", "time"}));
}

TEST_F(NotchCollapsedViewTest, AClickThatDoesNotNavigateExpandsOnTheLastPanel) {
    state.activePanel = ActivePanel::battery;
    state.clickWidgetNavigatesToPanel = false;
    setLocation("Oslo");
    view.expandToPanel(view.widgetView("weather")->panel);
    EXPECT_EQ(state.activePanel, ActivePanel::battery);
    EXPECT_EQ(state.expandedState, NotchExpandedState::expanded);

    state.clickWidgetNavigatesToPanel = true;
    view.expandToPanel(view.widgetView("weather")->panel);
    EXPECT_EQ(state.activePanel, ActivePanel::weather);
}

TEST_F(NotchCollapsedViewTest, AMachineWithoutABatteryShowsACWithTheManagersIcon) {
    app.batteryManager.hasBattery = false;
    const auto widget = view.widgetView("battery");
    ASSERT_TRUE(widget);
    EXPECT_EQ(widget->texts, std::vector{medium("AC", 11)});
    EXPECT_EQ(widget->icon, (StyledSymbol{"powerplug.fill", 11, colors::green}));
}

TEST_F(NotchCollapsedViewTest, WithAllModulesOffTheStatsAreEmptyAndStillCountTwentyInTheWidth) {
    placeOnly(rightWing, {"systemStats"});
    for (const auto key : {"sysMonCPU", "sysMonMemory", "sysMonNetwork", "sysMonTemperature"})
        defaults().set(key, false);
    const auto widget = view.widgetView("systemStats");
    ASSERT_TRUE(widget);
    EXPECT_TRUE(widget->texts.empty());
    EXPECT_FALSE(widget->icon);
    EXPECT_EQ(app.hoverLayoutManager.estimatedHoverWidth(200, {"systemStats"}), 20 + 8 + 20);
}

TEST_F(NotchCollapsedViewTest, ATemperatureOfExactly80IsRedAndALoadOfExactly85IsYellow) {
    app.systemMonitorManager.metrics.update([](auto& metrics) {
        metrics.cpuUsage = 85;
        metrics.cpuTemperature = 80;
    });
    const auto texts = view.widgetView("systemStats")->texts;
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0], medium("85%", 10, colors::yellow));
    EXPECT_EQ(texts[3], medium("80°", 10, colors::red));
}

TEST_F(NotchCollapsedViewTest, AMediaItemWithoutAnArtistEndsInADash) {
    app.mediaManager.currentMedia.update([](auto& media) { media.title = "Aria"; });
    const auto widget = view.widgetView("media");
    ASSERT_TRUE(widget && widget->media);
    EXPECT_EQ(widget->media->title, medium("Aria — ", 11));
}

TEST_F(NotchCollapsedViewTest, MediaShowsWhatPlays) {
    auto& current = app.mediaManager.currentMedia;
    current.update([](auto& media) {
        media.title = "Aria";
        media.artist = "Glenn";
        media.isPlaying = true;
        media.appName = "Music";
    });
    const auto playing = view.widgetView("media");
    EXPECT_EQ(playing->kind, HoverWidget::Kind::media);
    EXPECT_EQ(playing->panel, ActivePanel::media);
    EXPECT_FALSE(playing->media->hasArtwork);
    EXPECT_EQ(playing->media->cover, (StyledSymbol{"music.note", 12, Color::white(1, 0.6)}));
    EXPECT_EQ(playing->media->playButton, (StyledSymbol{"pause.fill", 11, colors::white}));
    EXPECT_TRUE(playing->media->isPlaying);
    EXPECT_EQ(playing->media->title.text, "Aria — Glenn");

    current.update([](auto& media) {
        media.artwork = Image(1, 1, {1, 2, 3, 255});
        media.isPlaying = false;
        media.appName.clear();
    });
    const auto paused = view.widgetView("media");
    EXPECT_TRUE(paused->media->hasArtwork);
    EXPECT_EQ(paused->media->playButton.name, "play.fill");
}

TEST_F(NotchCollapsedViewTest, WidgetsShowTheirManagersFigures) {
    app.batteryManager.batteryLevel = 87;
    EXPECT_EQ(view.widgetView("battery")->texts, std::vector{medium("87%", 11)});
    EXPECT_EQ(view.widgetView("battery")->icon, (StyledSymbol{"battery.100", 11, colors::green}));

    app.weatherManager.weather.update([](auto& weather) {
        weather.temperature = 20.6;
        weather.weatherCode = 3;
        weather.locationName = "Oslo";
    });
    EXPECT_EQ(view.widgetView("weather")->texts, std::vector{medium("21°", 11)});
    EXPECT_EQ(view.widgetView("weather")->icon, (StyledSymbol{"cloud.fill", 11, colors::white}));

    const auto now = platform.runLoopPort.now();
    CalendarEventModel event;
    event.title = "Rehearsal";
    event.startDate = now;
    event.endDate = now + 60;
    app.calendarManager.events = std::vector{event};
    EXPECT_EQ(view.widgetView("calendar")->texts, std::vector{medium("Rehearsal", 10, dimmed)});
    EXPECT_EQ(view.widgetView("calendar")->icon, (StyledSymbol{"calendar", 10, dimmed}));
    EXPECT_TRUE(view.widgetView("calendar")->truncatesTail);

    app.timeManager.currentTime = now; // noon in Greenwich, seven in New York
    EXPECT_EQ(view.widgetView("time")->texts, std::vector{medium("7:00 AM", 10)});
    EXPECT_EQ(view.widgetView("time")->icon, (StyledSymbol{"clock", 10, dimmed}));
    EXPECT_FALSE(view.widgetView("time")->truncatesTail);
}

TEST_F(NotchCollapsedViewTest, ShelfAndNotesCountOnlyWhenThereIsSomethingToCount) {
    EXPECT_EQ(view.widgetView("fileShelf")->icon, (StyledSymbol{"tray.fill", 10, dimmed}));
    EXPECT_TRUE(view.widgetView("fileShelf")->texts.empty());
    EXPECT_EQ(view.widgetView("notes")->icon, (StyledSymbol{"note.text", 10, dimmed}));
    EXPECT_TRUE(view.widgetView("notes")->texts.empty());

    app.fileShelfManager.items =
        std::vector<ShelfItem>(3, ShelfItem("file:///simulated/a.txt", 24, platform));
    app.notesManager.items = std::vector<NoteItem>(2);
    EXPECT_EQ(view.widgetView("fileShelf")->texts, std::vector{medium("3", 10)});
    EXPECT_EQ(view.widgetView("notes")->texts, std::vector{medium("2", 10)});
}

TEST_F(NotchCollapsedViewTest, StatsShowOneTextForEachModule) {
    app.systemMonitorManager.metrics.update([](auto& metrics) {
        metrics.cpuUsage = 42.9;
        metrics.memoryUsed = 6ULL << 30;
        metrics.networkUpload = 1024;
        metrics.networkDownload = 3 << 20;
    });
    EXPECT_EQ(
        view.widgetView("systemStats")->texts,
        (std::vector{medium("42%", 10, colors::green), medium("6.0G", 10, Color::white(1, 0.8)),
                     medium("1K/3.0M", 10, Color::white(1, 0.6)), medium("--", 10, colors::gray)}));
    EXPECT_EQ(view.widgetView("systemStats")->panel, ActivePanel::systemMonitor);

    defaults().set("sysMonMemory", false);
    defaults().set("sysMonNetwork", false);
    EXPECT_EQ(view.widgetView("systemStats")->texts.size(), 2u);
}

TEST_F(NotchCollapsedViewTest, AnEmbeddedWidgetTakesAPlaceOnlyWhenItsViewExists) {
    app.mirrorManager.isEnabled = true;
    app.stockTickerManager.isEnabled = true;
    placeOnly(bottomRow, {"mirror", "stockTicker"});
    ASSERT_EQ(ids(view.bottomRow()), Ids{"mirror"});
    EXPECT_EQ(view.bottomRow()[0].kind, HoverWidget::Kind::embedded);
    EXPECT_EQ(view.bottomRow()[0].panel, ActivePanel::mirror);
}

TEST_F(NotchCollapsedViewTest, AnUnknownWidgetIsNeverShown) {
    EXPECT_FALSE(view.shouldShowWidget("clipboard"));
    EXPECT_FALSE(view.widgetView("clipboard"));
    EXPECT_TRUE(view.shouldShowWidget("battery"));
}

TEST_F(NotchCollapsedViewTest, TheWingsKeepOffTheNotch) {
    EXPECT_EQ(view.notchSpacerWidth(), 208);
}

TEST_F(NotchCollapsedViewTest, FiguresThatNobodyHasToldYetAreDimmed) {
    setLocation("Oslo");
    for (const auto* id : {"weather", "systemStats"})
        EXPECT_TRUE(view.widgetView(id)->isDimmed) << id;
    app.weatherManager.hasFigures = true;
    app.systemMonitorManager.updateMetrics();
    for (const auto* id : {"weather", "systemStats", "battery", "time"})
        EXPECT_FALSE(view.widgetView(id)->isDimmed) << id;
    app.weatherManager.addSavedLocation({UUID::random(), "Rome", 42, 12});
    app.weatherManager.cycleToNextLocation();
    EXPECT_TRUE(view.widgetView("weather")->isDimmed) << "they are another place's";
}

} // namespace
} // namespace orvelle
