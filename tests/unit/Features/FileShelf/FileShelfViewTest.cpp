#include "Features/FileShelf/FileShelfView.h"

#include "Features/FileShelf/AirDropHelper.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Urls = std::vector<std::string>;
using Provider = FileShelfView::DroppedProvider;

class FileShelfViewTest : public testing::Test {
protected:
    FileShelfViewTest() {
        platform.sharePickerPort.keyWindow = Rect{{100, 200}, {566, 220}};
        for (const char* name : {"a.txt", "b.png"}) {
            platform.fileSystemPort.files[std::string("/home/") + name] = name;
            shelf.addFile(std::string("file:///home/") + name);
        }
        platform.runLoopPort.runPosted();
    }
    UUID id(std::size_t index) { return shelf.items.get().at(index).id; }
    std::string url(std::size_t index) { return shelf.items.get().at(index).url; }
    void choose(const char* title) {
        for (const auto& entry : view.contextMenu(id(0)))
            if (entry.title == title)
                return entry.perform();
        ADD_FAILURE() << "no entry " << title;
    }
    static Provider holding(Provider::Item item) {
        return {[item](const auto& loaded) { loaded(item); }};
    }

    SimulatedPlatform platform;
    FileShelfManager shelf{platform};
    FileShelfView view{shelf, platform};
};

TEST_F(FileShelfViewTest, CellsHaveIconAndNameInTheOrderOfAdding) {
    const auto cells = view.cells();
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(cells[0].name, (StyledText{"a.txt", {10, FontWeight::regular, notchSecondary}}));
    EXPECT_EQ(cells[1].icon, "image-x-generic");
    EXPECT_FALSE(view.isEmpty());
}

TEST_F(FileShelfViewTest, AsManyColumnsAsFitShareTheWidth) {
    EXPECT_EQ(FileShelfView::columns.count(526), 7);
    EXPECT_DOUBLE_EQ(FileShelfView::columns.columnWidth(526), (526 - 6 * 8) / 7.0);
    EXPECT_EQ(FileShelfView::columns.count(60), 1);
    EXPECT_EQ(FileShelfView::columns.count(127), 1);
    EXPECT_EQ(FileShelfView::columns.count(128), 2);
    EXPECT_EQ(FileShelfView::columns.count(0), 1);
}

TEST_F(FileShelfViewTest, AnEmptyShelfAsksForFiles) {
    shelf.items = std::vector<ShelfItem>();
    EXPECT_TRUE(view.isEmpty());
    EXPECT_EQ(view.emptyText().text, "Drop files here");
    EXPECT_EQ(view.emptySymbol(), (StyledSymbol{"arrow.down.doc", 15, notchTertiary}));
}

TEST_F(FileShelfViewTest, ADragMakesThePlaceToDropBrighter) {
    EXPECT_EQ(view.dropOutlineColor(false), notchTertiary);
    EXPECT_NE(view.dropOutlineColor(true), notchTertiary);
}

TEST_F(FileShelfViewTest, TheMenuHasItsEntriesInOrder) {
    Urls titles;
    for (const auto& entry : view.contextMenu(id(0))) {
        titles.push_back(entry.title);
        const bool isLast = entry.title == "Remove";
        EXPECT_EQ(entry.isDestructive, isLast);
        EXPECT_EQ(entry.followsDivider, isLast);
    }
    EXPECT_EQ(titles, (Urls{"Open", "Show in Finder", "Copy", "Share...", "Remove"}));
}

TEST_F(FileShelfViewTest, OpenOpensTheCopy) {
    choose("Open");
    view.open(id(1));
    EXPECT_EQ(platform.workspacePort.documents, (Urls{url(0), url(1)}));
}

TEST_F(FileShelfViewTest, ShowInFinderSelectsTheFile) {
    choose("Show in Finder");
    EXPECT_EQ(platform.fileViewerPort.selections, (std::vector<Urls>{{url(0)}}));
}

TEST_F(FileShelfViewTest, CopyPutsTheFileOnThePasteboard) {
    choose("Copy");
    EXPECT_EQ(platform.pasteboardPort.files, Urls{url(0)});
}

TEST_F(FileShelfViewTest, ShareOpensThePickerInTheMiddleOfTheWindow) {
    choose("Share...");
    const SimulatedSharePicker::Request expected{{url(0)}, {{382, 309}, {2, 2}}, Edge::bottom};
    EXPECT_EQ(platform.sharePickerPort.requests, std::vector{expected});
}

TEST_F(FileShelfViewTest, RemoveTakesTheFileAway) {
    choose("Remove");
    EXPECT_EQ(shelf.items->size(), 1u);
    EXPECT_EQ(shelf.items.get()[0].name, "b.png");
}

TEST_F(FileShelfViewTest, ShareAllSharesEveryFile) {
    view.shareAll();
    ASSERT_EQ(platform.sharePickerPort.requests.size(), 1u);
    EXPECT_EQ(platform.sharePickerPort.requests[0].urls, (Urls{url(0), url(1)}));
}

TEST_F(FileShelfViewTest, AFileThatHasGoneDoesNothing) {
    const auto gone = UUID::random();
    view.open(gone);
    view.showInFinder(gone);
    view.copy(gone);
    view.share(gone);
    view.remove(gone);
    EXPECT_FALSE(view.dragItem(gone));
    EXPECT_TRUE(platform.workspacePort.documents.empty());
    EXPECT_TRUE(platform.sharePickerPort.requests.empty());
    EXPECT_EQ(shelf.items->size(), 2u);
}

TEST_F(FileShelfViewTest, ADraggedFileIsItsAddressUnderItsName) {
    EXPECT_EQ(view.dragItem(id(0)), (FileShelfView::ItemProvider{url(0), "a.txt"}));
}

TEST_F(FileShelfViewTest, ADropMayHoldAddressesOrTheirBytes) {
    platform.fileSystemPort.files["/home/c.txt"] = "c";
    platform.fileSystemPort.files["/home/d.txt"] = "d";
    EXPECT_TRUE(view.handleDrop({holding(Provider::URL{"file:///home/c.txt"}),
                                 holding(Provider::DataRepresentation{"file:///home/d.txt"}),
                                 holding(std::monostate{})}));
    EXPECT_EQ(shelf.items->size(), 2u);
    platform.runLoopPort.runPosted();
    ASSERT_EQ(shelf.items->size(), 4u);
    EXPECT_EQ(shelf.items.get()[2].name, "c.txt");
    EXPECT_EQ(shelf.items.get()[3].name, "d.txt");
}

TEST_F(FileShelfViewTest, ADropTellsWhetherThereWasAnythingNotWhetherItWasAFile) {
    EXPECT_FALSE(view.handleDrop({}));
    EXPECT_TRUE(view.handleDrop({holding(std::monostate{})}));
}

TEST_F(FileShelfViewTest, PastingTakesTheFilesThatWereCopied) {
    platform.fileSystemPort.files["/home/c.txt"] = "c";
    platform.pasteboardPort.files = {"file:///home/c.txt", "file:///home/gone.txt"};
    auto pasting = view.paste();
    platform.runLoopPort.runPosted();
    ASSERT_EQ(shelf.items->size(), 3u);
    EXPECT_EQ(shelf.items.get()[2].name, "c.txt");
    platform.pasteboardPort.files.clear();
    pasting = view.paste();
    platform.runLoopPort.runPosted();
    EXPECT_EQ(shelf.items->size(), 3u);
}

TEST(AirDropHelper, WithoutFilesOrAPlaceDoesNothing) {
    SimulatedPlatform platform;
    AirDropHelper::share({}, Rect{{0, 0}, {10, 10}}, platform);
    AirDropHelper::share({"file:///a"}, {}, platform);
    EXPECT_TRUE(platform.sharePickerPort.requests.empty());
}

TEST(AirDropHelper, StandsInTheMiddleOfTheGivenView) {
    SimulatedPlatform platform;
    platform.sharePickerPort.keyWindow = Rect{{100, 200}, {566, 220}};
    AirDropHelper::share({"file:///a"}, Rect{{0, 0}, {10, 20}}, platform);
    ASSERT_EQ(platform.sharePickerPort.requests.size(), 1u);
    EXPECT_EQ(platform.sharePickerPort.requests[0].anchor, (Rect{{4, 9}, {2, 2}}));
}

} // namespace
} // namespace orvelle
