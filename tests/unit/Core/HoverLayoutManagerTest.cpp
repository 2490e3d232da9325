#include "Core/HoverLayoutManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvelle {
namespace {

using Position = HoverWidgetPosition;

class HoverLayoutManagerTest : public testing::Test {
protected:
    SimulatedPlatform platform;
    HoverLayoutManager manager{platform};

    std::vector<std::string> visible(Position zone) const {
        std::vector<std::string> ids;
        for (const auto& placement : manager.visibleWidgetsFor(zone))
            ids.push_back(placement.id);
        return ids;
    }
    std::vector<std::int64_t> orders(Position zone) const {
        std::vector<std::int64_t> result;
        for (const auto& placement : manager.allWidgetsFor(zone))
            result.push_back(placement.sortOrder);
        return result;
    }
    void setOrder(const std::string& id, Position zone, std::int64_t sortOrder) {
        manager.placements.update([&](auto& list) {
            for (auto& placement : list)
                if (placement.id == id) {
                    placement.zone = zone;
                    placement.sortOrder = sortOrder;
                }
        });
    }
    const HoverWidgetPlacement& placement(const std::string& id) const {
        for (const auto& candidate : manager.placements.get())
            if (candidate.id == id)
                return candidate;
        throw std::out_of_range(id);
    }
    void store(const std::string& json) {
        platform.userDefaultsPort.set("hoverWidgetPlacements", Data(json.begin(), json.end()));
    }
    void switchModules(bool on) {
        for (const char* key : {"sysMonCPU", "sysMonMemory", "sysMonNetwork", "sysMonTemperature"})
            platform.userDefaultsPort.set(key, on);
    }
};

using Ids = std::vector<std::string>;

TEST_F(HoverLayoutManagerTest, NothingStoredGivesTheDefaultZones) {
    EXPECT_EQ(visible(Position::leftWing), Ids{"media"});
    EXPECT_EQ(visible(Position::rightWing), (Ids{"weather", "battery"}));
    EXPECT_EQ(visible(Position::bottomRow), (Ids{"time", "pomodoro", "systemStats", "mirror"}));
    for (const char* hidden : {"fileShelf", "calendar", "notes", "stockTicker"})
        EXPECT_FALSE(placement(hidden).isVisible) << hidden;
}

TEST_F(HoverLayoutManagerTest, AWidgetMovedToAnEmptyZoneGetsSortOrder0) {
    manager.changeZone("media", Position::bottomRow); // leaves the left wing empty
    manager.changeZone("weather", Position::leftWing);
    EXPECT_EQ(placement("weather").sortOrder, 0);
    EXPECT_EQ(placement("weather").zone, Position::leftWing);
}

TEST_F(HoverLayoutManagerTest, AWidgetMovedToAZoneHolding0And1And5Gets6) {
    setOrder("weather", Position::rightWing, 0);
    setOrder("battery", Position::rightWing, 1);
    setOrder("mirror", Position::rightWing, 5);
    manager.changeZone("media", Position::rightWing);
    EXPECT_EQ(placement("media").sortOrder, 6);
}

TEST_F(HoverLayoutManagerTest, AWidgetMovedBehindTheHighestSortOrderKeepsTheZoneInOrder) {
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    setOrder("battery", Position::rightWing, highest);
    manager.changeZone("time", Position::rightWing);
    EXPECT_EQ(placement("time").sortOrder, highest);
    EXPECT_EQ(manager.allWidgetsFor(Position::rightWing).back().id, "time");
}

TEST_F(HoverLayoutManagerTest, MovingOutClosesTheGapThereAndLeavesGapsInTheTarget) {
    setOrder("mirror", Position::rightWing, 5);
    manager.changeZone("time", Position::rightWing);
    EXPECT_EQ(orders(Position::bottomRow), (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(orders(Position::rightWing), (std::vector<std::int64_t>{0, 1, 5, 6}));
}

TEST_F(HoverLayoutManagerTest, ChangeZoneToTheWidgetsOwnZoneLeavesTheStoreUntouched) {
    manager.changeZone("media", Position::leftWing);
    manager.changeZone("nobody", Position::leftWing);
    manager.toggleVisibility("nobody");
    EXPECT_EQ(platform.userDefaultsPort.writeCount(), 0);
}

TEST_F(HoverLayoutManagerTest, NoVisibleWidgetsAndANotchOf180Give24) {
    manager.placements = std::vector<HoverWidgetPlacement>{};
    EXPECT_EQ(manager.estimatedHoverWidth(180, {}), 24);
    EXPECT_EQ(HoverLayoutManager(platform).estimatedHoverWidth(180, {}), 24);
}

TEST_F(HoverLayoutManagerTest, MediaLeftAndWeatherWithBatteryRightGive139) {
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"media", "weather", "battery"}), 139);
}

TEST_F(HoverLayoutManagerTest, AllFourModulesOffCountTwenty) {
    switchModules(false);
    manager.changeZone("media", Position::bottomRow);
    manager.changeZone("systemStats", Position::leftWing);
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}), 20 + 8 + 20);
}

TEST_F(HoverLayoutManagerTest, ModulesCountUnlessTheirSettingIsABooleanFalse) {
    manager.changeZone("systemStats", Position::leftWing);
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}),
              22 + 26 + 38 + 22 + 3 * 5 + 8 + 20);
    platform.userDefaultsPort.set("sysMonNetwork", false);
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}), 22 + 26 + 22 + 2 * 5 + 8 + 20);
    platform.userDefaultsPort.set("sysMonNetwork", std::int64_t{0});
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}), 22 + 26 + 38 + 22 + 3 * 5 + 8 + 20)
        << "a number is no boolean false";
}

TEST_F(HoverLayoutManagerTest, AVeryWideBottomRowStopsAtTheExpandedWidth) {
    std::set<std::string> all;
    manager.placements.update([&](auto& list) {
        for (auto& item : list) {
            item.zone = Position::bottomRow;
            item.isVisible = true;
            all.insert(item.id);
        }
    });
    EXPECT_EQ(manager.estimatedHoverWidth(180, all), (550.0 - 180) / 2);
}

TEST_F(HoverLayoutManagerTest, ABottomRowWiderThanTheWingsSetsThePadding) {
    // time 55, systemStats 123, calendar 60: 238 + 3 * 8 + 2 * 10 = 282, and 28 of margin
    manager.toggleVisibility("calendar");
    manager.toggleVisibility("battery");
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"time", "systemStats", "calendar"}),
              (282.0 + 28 - 180 - 16) / 2);
}

TEST_F(HoverLayoutManagerTest, ABottomRowALittleWiderThanTheBarSetsThePadding) {
    // time 55, pomodoro 50, mirror 30, fileShelf 35: 170 + 4 * 8 + 3 * 10 = 232, and 28 of margin;
    // wings of 24 make a bar of 244
    manager.toggleVisibility("fileShelf");
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"time", "pomodoro", "mirror", "fileShelf"}),
              (232.0 + 28 - 180 - 16) / 2);
}

TEST_F(HoverLayoutManagerTest, WidgetsOfTheLeftWingStandCloserThanThoseOfTheRight) {
    manager.changeZone("battery", Position::leftWing);
    EXPECT_EQ(manager.estimatedHoverWidth(100, {"media", "battery"}), 80 + 50 + 2 * 8 + 4 + 20);
    manager.changeZone("media", Position::rightWing);
    manager.changeZone("battery", Position::rightWing);
    EXPECT_EQ(manager.estimatedHoverWidth(100, {"media", "battery"}), 80 + 50 + 2 * 8 + 8 + 20);
}

TEST_F(HoverLayoutManagerTest, TwoModulesHaveOneGapAndOneHasNone) {
    switchModules(false);
    manager.changeZone("systemStats", Position::leftWing);
    platform.userDefaultsPort.set("sysMonNetwork", true);
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}), 38 + 8 + 20);
    platform.userDefaultsPort.set("sysMonCPU", true);
    EXPECT_EQ(manager.estimatedHoverWidth(180, {"systemStats"}), 38 + 22 + 5 + 8 + 20);
}

TEST_F(HoverLayoutManagerTest, MovingTheFirstOutMakesTheNextTheFirst) {
    manager.changeZone("fileShelf", Position::leftWing);
    EXPECT_EQ(orders(Position::bottomRow), (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(placement("time").sortOrder, 0);
}

TEST_F(HoverLayoutManagerTest, MovingOutKeepsTheOrderOfThoseThatStay) {
    manager.reorderWidgets(Position::bottomRow, {7}, 0); // mirror in front
    setOrder("notes", Position::bottomRow, 3);           // beside pomodoro, which comes first
    setOrder("pomodoro", Position::bottomRow, 3);
    manager.changeZone("fileShelf", Position::leftWing);
    Ids ids;
    for (const auto& row : manager.allWidgetsFor(Position::bottomRow))
        ids.push_back(row.id);
    EXPECT_EQ(ids, (Ids{"mirror", "time", "pomodoro", "notes", "systemStats", "calendar",
                        "stockTicker"}));
    EXPECT_EQ(orders(Position::bottomRow), (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(HoverLayoutManagerTest, EveryChangeIsStoredAsItIsShown) {
    const auto stored = [&] { return HoverLayoutManager(platform).placements.get(); };
    manager.toggleVisibility("media");
    EXPECT_EQ(stored(), manager.placements.get());
    manager.changeZone("media", Position::bottomRow);
    EXPECT_EQ(stored(), manager.placements.get());
    manager.reorderWidgets(Position::bottomRow, {0}, 3);
    EXPECT_EQ(stored(), manager.placements.get());
    manager.resetToDefaults();
    EXPECT_EQ(manager.placements.get(), HoverLayoutManager::defaultPlacements());
    EXPECT_EQ(stored(), HoverLayoutManager::defaultPlacements());
}

TEST_F(HoverLayoutManagerTest, AMergedWidgetStandsBehindTheStoredOneOfEqualOrder) {
    store(R"([{"id":"mirror","zone":"rightWing","sortOrder":0,"isVisible":true},)"
          R"({"id":"clipboard","zone":"leftWing","sortOrder":0,"isVisible":true}])");
    const HoverLayoutManager loaded(platform);
    EXPECT_EQ(loaded.placements->size(), 11u) << "an unknown widget is dropped";
    EXPECT_EQ(loaded.allWidgetsFor(Position::rightWing)[0].id, "mirror");
    EXPECT_EQ(loaded.allWidgetsFor(Position::rightWing)[1].id, "weather");
}

TEST_F(HoverLayoutManagerTest, ALayoutThatDoesNotDecodeGivesTheDefault) {
    for (const char* bad :
         {"[", "{}", R"([{"id":"media","zone":"top","sortOrder":0,"isVisible":true}])",
          R"([{"id":"media","zone":"leftWing","sortOrder":0}])"}) {
        store(bad);
        EXPECT_EQ(HoverLayoutManager(platform).placements.get(),
                  HoverLayoutManager::defaultPlacements())
            << bad;
    }
}

TEST_F(HoverLayoutManagerTest, ReorderMovesInsideOneZoneAndCountsHiddenRows) {
    manager.reorderWidgets(Position::bottomRow, {7}, 0); // mirror in front
    const auto rows = manager.allWidgetsFor(Position::bottomRow);
    EXPECT_EQ(rows[0].id, "mirror");
    EXPECT_EQ(rows[1].id, "fileShelf");
    EXPECT_EQ(orders(Position::bottomRow), (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(HoverLayoutManager(platform).placements.get(), manager.placements.get());
}

TEST_F(HoverLayoutManagerTest, DefaultPlacementsStandByTheTable) {
    const std::vector<HoverWidgetPlacement> expected{{"media", Position::leftWing, 0, true},
                                                     {"weather", Position::rightWing, 0, true},
                                                     {"battery", Position::rightWing, 1, true},
                                                     {"fileShelf", Position::bottomRow, 0, false},
                                                     {"time", Position::bottomRow, 1, true},
                                                     {"pomodoro", Position::bottomRow, 2, true},
                                                     {"systemStats", Position::bottomRow, 3, true},
                                                     {"calendar", Position::bottomRow, 4, false},
                                                     {"notes", Position::bottomRow, 5, false},
                                                     {"stockTicker", Position::bottomRow, 6, false},
                                                     {"mirror", Position::bottomRow, 7, true}};
    EXPECT_EQ(manager.placements.get(), expected);
}

TEST_F(HoverLayoutManagerTest, DefinitionsNameEveryWidgetAndItsPanel) {
    const HoverLayoutManager::WidgetDefinition expected[] = {
        {"media", "Media", "music.note", ActivePanel::media},
        {"weather", "Weather", "cloud.sun", ActivePanel::weather},
        {"battery", "Battery", "battery.100", ActivePanel::battery},
        {"fileShelf", "File Shelf", "tray.fill", ActivePanel::fileShelf},
        {"time", "Clock", "clock", ActivePanel::time},
        {"pomodoro", "Focus Timer", "timer", ActivePanel::pomodoro},
        {"systemStats", "System Stats", "cpu", ActivePanel::systemMonitor},
        {"calendar", "Calendar", "calendar", ActivePanel::calendar},
        {"notes", "Notes", "note.text", ActivePanel::notes},
        {"stockTicker", "Stocks", "chart.line.uptrend.xyaxis", ActivePanel::stockTicker},
        {"mirror", "Mirror", "person.crop.square", ActivePanel::mirror}};
    const auto& definitions = HoverLayoutManager::widgetDefinitions();
    ASSERT_EQ(definitions.size(), std::size(expected));
    for (std::size_t index = 0; index < definitions.size(); ++index) {
        const auto& wanted = expected[index];
        EXPECT_EQ(definitions[index].id, wanted.id);
        EXPECT_EQ(definitions[index].name, wanted.name) << wanted.id;
        EXPECT_EQ(definitions[index].icon, wanted.icon) << wanted.id;
        EXPECT_EQ(definitions[index].panel, wanted.panel) << wanted.id;
        EXPECT_EQ(HoverLayoutManager::definition(wanted.id), &definitions[index]);
    }
    EXPECT_EQ(HoverLayoutManager::definition("clipboard"), nullptr);
}

TEST_F(HoverLayoutManagerTest, EachWidgetCountsItsEstimatedWidth) {
    const std::pair<const char*, double> widths[] = {
        {"media", 80},    {"battery", 50},      {"weather", 45},       {"calendar", 60},
        {"pomodoro", 50}, {"time", 55},         {"mirror", 30},        {"fileShelf", 35},
        {"notes", 35},    {"stockTicker", 100}, {"something else", 40}};
    for (const auto& [id, width] : widths) {
        manager.placements = std::vector<HoverWidgetPlacement>{{id, Position::leftWing, 0, true}};
        EXPECT_EQ(manager.estimatedHoverWidth(180, {id}), width + 8 + 20) << id;
    }
}

} // namespace
} // namespace orvelle
