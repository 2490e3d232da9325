#include "Core/PanelOrderManager.h"

#include "Foundation/Json.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Entry = PanelOrderManager::PanelEntry;

Data bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

class PanelOrderManagerTest : public testing::Test {
protected:
    SimulatedPlatform platform;

    void store(const std::string& json) {
        platform.userDefaultsPort.set("panelTabBarOrder", bytes(json));
        writes = platform.userDefaultsPort.writeCount();
    }
    std::string stored() const {
        const auto data = platform.userDefaultsPort.data("panelTabBarOrder").value_or(Data{});
        return {data.begin(), data.end()};
    }
    bool nothingWritten() const { return platform.userDefaultsPort.writeCount() == writes; }

    int writes = 0;
};

std::vector<std::string> ids(const std::vector<Entry>& entries) {
    std::vector<std::string> result;
    for (const auto& entry : entries)
        result.push_back(entry.id);
    return result;
}

TEST_F(PanelOrderManagerTest, NothingStoredGivesThirteenVisiblePanelsInTheTablesOrder) {
    const PanelOrderManager manager(platform);
    const std::vector<ActivePanel> expected(allActivePanels.begin(), allActivePanels.end() - 1);
    EXPECT_EQ(manager.visiblePanels(), expected);
    EXPECT_EQ(manager.allPanelsSorted().size(), 13u);
    for (std::size_t index = 0; index < 13; ++index)
        EXPECT_EQ(manager.panelOrder.get()[index], (Entry{std::string(rawValue(expected[index])),
                                                          static_cast<std::int64_t>(index), true}));
}

TEST_F(PanelOrderManagerTest, ThreeStoredEntriesStayFirstAndTheOthersFollow) {
    store(R"([{"id":"notes","sortOrder":0,"isVisible":true},)"
          R"({"id":"weather","sortOrder":1,"isVisible":true},)"
          R"({"id":"media","sortOrder":2,"isVisible":true}])");
    const PanelOrderManager manager(platform);
    EXPECT_EQ(manager.panelOrder->size(), 13u);
    // fileShelf comes with 1 and calendar with 2, behind the stored entries of equal order.
    const std::vector<std::string> expected{
        "notes",     "weather",       "fileShelf", "media", "calendar", "time",       "battery",
        "clipboard", "systemMonitor", "pomodoro",  "todo",  "mirror",   "stockTicker"};
    EXPECT_EQ(ids(manager.allPanelsSorted()), expected);
    EXPECT_TRUE(nothingWritten()) << "a merged list is not saved";
}

TEST_F(PanelOrderManagerTest, AStoredEntryOfNoPanelIsRemovedAtLoadAndStaysStoredUntilTheNextSave) {
    store(R"([{"id":"teleporter","sortOrder":0,"isVisible":true}])");
    PanelOrderManager manager(platform);
    EXPECT_EQ(manager.panelOrder->size(), 13u);
    EXPECT_NE(stored().find("teleporter"), std::string::npos);
    manager.toggleVisibility("media");
    EXPECT_EQ(stored().find("teleporter"), std::string::npos);
}

TEST_F(PanelOrderManagerTest, AllEntriesHiddenGiveNoVisiblePanels) {
    PanelOrderManager manager(platform);
    for (const auto& entry : PanelOrderManager::defaultOrder())
        manager.toggleVisibility(entry.id);
    EXPECT_TRUE(manager.visiblePanels().empty());
    EXPECT_EQ(manager.allPanelsSorted().size(), 13u);
}

TEST_F(PanelOrderManagerTest, EntriesOfEqualSortOrderKeepArrayOrderInBothLists) {
    store(R"([{"id":"todo","sortOrder":-1,"isVisible":true},)"
          R"({"id":"battery","sortOrder":-1,"isVisible":true}])");
    const PanelOrderManager manager(platform);
    EXPECT_EQ(manager.visiblePanels()[0], ActivePanel::todo);
    EXPECT_EQ(manager.visiblePanels()[1], ActivePanel::battery);
    EXPECT_EQ(manager.allPanelsSorted()[0].id, "todo");
    EXPECT_EQ(manager.allPanelsSorted()[1].id, "battery");
}

TEST_F(PanelOrderManagerTest, AMovedRowAmongHiddenRowsRenumbersAllOfThem) {
    PanelOrderManager manager(platform);
    manager.toggleVisibility("fileShelf");
    manager.toggleVisibility("calendar");
    manager.reorder({3}, 0); // the clock, in front of all
    const auto sorted = manager.allPanelsSorted();
    EXPECT_EQ(sorted[0].id, "time");
    EXPECT_EQ(sorted[1].id, "media");
    EXPECT_EQ(sorted[2], (Entry{"fileShelf", 2, false}));
    EXPECT_EQ(sorted[3], (Entry{"calendar", 3, false}));
    for (std::size_t index = 0; index < sorted.size(); ++index)
        EXPECT_EQ(sorted[index].sortOrder, static_cast<std::int64_t>(index));
    EXPECT_EQ(manager.panelOrder.get()[0].id, "media") << "the array keeps its own order";
}

TEST_F(PanelOrderManagerTest, ToggleVisibilityOfAnUnknownIdChangesAndWritesNothing) {
    PanelOrderManager manager(platform);
    const auto before = manager.panelOrder.get();
    manager.toggleVisibility("hud");
    EXPECT_EQ(manager.panelOrder.get(), before);
    EXPECT_TRUE(nothingWritten());
}

TEST_F(PanelOrderManagerTest, SavesTheArrayWithExactlyItsThreeKeys) {
    PanelOrderManager manager(platform);
    manager.toggleVisibility("media");
    const auto document = Json::parse(stored());
    ASSERT_TRUE(document && document->array());
    ASSERT_EQ(document->array()->size(), 13u);
    EXPECT_EQ((*document->array())[0],
              Json(Json::Object{{"id", "media"}, {"sortOrder", 0}, {"isVisible", false}}));
    EXPECT_EQ(PanelOrderManager(platform).panelOrder.get(), manager.panelOrder.get());
}

TEST_F(PanelOrderManagerTest, ALayoutThatDoesNotDecodeGivesTheDefaultAndStaysStored) {
    for (const char* bad : {"", "[", "{}", "[1]", R"([{"id":"media"}])",
                            R"([{"id":"media","sortOrder":"0","isVisible":true}])",
                            R"([{"id":"media","sortOrder":0,"isVisible":1}])",
                            R"([{"id":"media","sortOrder":0.5,"isVisible":true}])"}) {
        store(bad);
        EXPECT_EQ(PanelOrderManager(platform).panelOrder.get(), PanelOrderManager::defaultOrder())
            << bad;
        EXPECT_EQ(stored(), bad);
        EXPECT_TRUE(platform.logPort.lines.empty());
    }
}

TEST_F(PanelOrderManagerTest, EveryChangeIsStoredAsItIsShown) {
    PanelOrderManager manager(platform);
    const auto reloaded = [&] { return PanelOrderManager(platform).panelOrder.get(); };
    manager.reorder({0}, 13);
    EXPECT_EQ(reloaded(), manager.panelOrder.get());
    EXPECT_NE(reloaded(), PanelOrderManager::defaultOrder());
    manager.toggleVisibility("todo");
    EXPECT_EQ(reloaded(), manager.panelOrder.get());
    manager.resetToDefaults();
    EXPECT_EQ(reloaded(), PanelOrderManager::defaultOrder());
}

TEST_F(PanelOrderManagerTest, ResetWritesTheDefaultOrder) {
    PanelOrderManager manager(platform);
    manager.reorder({0}, 13);
    manager.resetToDefaults();
    EXPECT_EQ(manager.panelOrder.get(), PanelOrderManager::defaultOrder());
    EXPECT_EQ(PanelOrderManager(platform).panelOrder.get(), PanelOrderManager::defaultOrder());
}

} // namespace
} // namespace orvelle
