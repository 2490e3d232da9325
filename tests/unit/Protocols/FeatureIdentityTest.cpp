#include "Core/HoverLayoutManager.h"
#include "Core/PanelOrderManager.h"
#include "Features/Battery/BatteryManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Todo/TodoManager.h"
#include "Features/UpdateChecker/UpdateChecker.h"
#include "Features/Weather/WeatherManager.h"
#include "Models/NotchState.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Plugins/ExamplePlugin.h"

#include <gtest/gtest.h>

#include <concepts>

using namespace orvelle;

namespace {

/// What a type fulfils beside being a feature.
struct Contracts {
    bool collapsedView = false;
    bool expandedView = false;
    bool drops = false;
    bool hud = false;
    bool plugin = false;
    bool operator==(const Contracts&) const = default;
};

template <class Content>
void takeCollapsed(const CollapsedViewProvider<Content>&);
template <class Content>
void takeExpanded(const ExpandedViewProvider<Content>&);

template <std::derived_from<FeatureModule> Feature>
constexpr Contracts contractsOf() {
    return {.collapsedView = requires(const Feature& feature){takeCollapsed(feature);
}
, .expandedView = requires(const Feature& feature) {
    takeExpanded(feature);
}
, .drops = std::derived_from<Feature, DropReceiver>,
  .hud = std::derived_from<Feature, HUDInterceptor>,
  .plugin = std::derived_from<Feature, NotchPlugin>
}; // namespace
}

class FeatureIdentity : public testing::Test {
protected:
    /// Asserts the row, and that the panel of the feature is found by its identifier.
    static void expect(const FeatureModule& feature, const char* id, const char* name,
                       const char* icon) {
        EXPECT_EQ(feature.featureID, id);
        EXPECT_EQ(feature.featureName, name);
        EXPECT_EQ(feature.iconName, icon);
        EXPECT_EQ(activePanelFrom(feature.featureID).has_value(), feature.featureID != "hud");
    }

    SimulatedPlatform platform;
};

} // namespace

TEST_F(FeatureIdentity, Media) {
    expect(MediaManager(platform), "media", "Now Playing", "music.note");
}

TEST_F(FeatureIdentity, FileShelf) {
    expect(FileShelfManager(platform), "fileShelf", "File Shelf", "tray.fill");
}

TEST_F(FeatureIdentity, HUDAloneHasNoPanel) {
    expect(HUDManager({}, platform), "hud", "HUD", "speaker.wave.2");
}

TEST_F(FeatureIdentity, WhetherAFeatureInterceptsIsReadOnly) {
    using Property = decltype((std::declval<HUDManager&>().isIntercepting));
    static_assert(!std::is_assignable_v<Property, bool>);
    static_assert(std::is_convertible_v<Property, bool>);
    HUDManager manager({}, platform);
    int changes = 0;
    const auto observer = manager.isIntercepting.observe([&](bool) { ++changes; });
    manager.startIntercepting();
    EXPECT_TRUE(manager.isIntercepting);
    EXPECT_EQ(changes, 2) << "the first value, and the change";
}

TEST_F(FeatureIdentity, Calendar) {
    expect(CalendarManager(platform), "calendar", "Calendar", "calendar");
}

TEST_F(FeatureIdentity, Battery) {
    expect(BatteryManager(platform), "battery", "Battery", "battery.100");
}

TEST_F(FeatureIdentity, Clipboard) {
    expect(ClipboardManager(platform), "clipboard", "Clipboard", "doc.on.clipboard");
}

TEST_F(FeatureIdentity, SystemMonitor) {
    expect(SystemMonitorManager(platform), "systemMonitor", "System Monitor", "cpu");
}

TEST_F(FeatureIdentity, Weather) {
    expect(WeatherManager(platform), "weather", "Weather", "cloud.sun.fill");
}

TEST_F(FeatureIdentity, Pomodoro) {
    expect(PomodoroManager(platform), "pomodoro", "Focus Timer", "timer");
}

TEST_F(FeatureIdentity, Todo) {
    expect(TodoManager(platform), "todo", "Todo", "checklist");
}

TEST_F(FeatureIdentity, Notes) {
    expect(NotesManager(platform), "notes", "Notes", "note.text");
}

TEST_F(FeatureIdentity, StockTicker) {
    expect(StockTickerManager(platform), "stockTicker", "Stocks", "chart.line.uptrend.xyaxis");
}

TEST_F(FeatureIdentity, Time) {
    expect(TimeManager(platform), "time", "World Clock", "clock");
}

TEST_F(FeatureIdentity, Mirror) {
    expect(MirrorManager(platform), "mirror", "Mirror", "person.crop.square");
}

TEST(FeatureContracts, EachTypeFulfilsThoseOfItsRowAndNoOthers) {
    constexpr Contracts none;
    constexpr Contracts bothViews{.collapsedView = true, .expandedView = true};
    EXPECT_EQ(contractsOf<MediaManager>(), bothViews);
    EXPECT_EQ(contractsOf<FileShelfManager>(), (Contracts{.expandedView = true, .drops = true}));
    EXPECT_EQ(contractsOf<HUDManager>(), (Contracts{.hud = true}));
    EXPECT_EQ(contractsOf<CalendarManager>(), bothViews);
    EXPECT_EQ(contractsOf<BatteryManager>(), none);
    EXPECT_EQ(contractsOf<ClipboardManager>(), none);
    EXPECT_EQ(contractsOf<SystemMonitorManager>(), none);
    EXPECT_EQ(contractsOf<WeatherManager>(), bothViews);
    EXPECT_EQ(contractsOf<PomodoroManager>(), none);
    EXPECT_EQ(contractsOf<TodoManager>(), none);
    EXPECT_EQ(contractsOf<NotesManager>(), none);
    EXPECT_EQ(contractsOf<StockTickerManager>(), none);
    EXPECT_EQ(contractsOf<TimeManager>(), none);
    EXPECT_EQ(contractsOf<MirrorManager>(), none);
    EXPECT_EQ(contractsOf<ExamplePlugin>(), (Contracts{.expandedView = true, .plugin = true}));
}

TEST(FeatureContracts, ThemeUpdatesAndLayoutsAreNoFeatures) {
    EXPECT_FALSE((std::derived_from<ThemeManager, FeatureModule>));
    EXPECT_FALSE((std::derived_from<UpdateChecker, FeatureModule>));
    EXPECT_FALSE((std::derived_from<HoverLayoutManager, FeatureModule>));
    EXPECT_FALSE((std::derived_from<PanelOrderManager, FeatureModule>));
}
