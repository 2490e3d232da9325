#include "Features/Clipboard/ClipboardHistoryView.h"

#include "Features/Clipboard/ClipboardManager.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class ClipboardHistoryViewTest : public testing::Test {
protected:
    void add(std::string content, ClipboardContentType type = ClipboardContentType::text) {
        ClipboardItem item;
        item.id = UUID::random();
        item.content = std::move(content);
        item.contentType = type;
        item.timestamp = platform.runLoopPort.now();
        manager.items.update([&](auto& list) { list.insert(list.begin(), item); });
    }
    std::vector<std::string> search(std::string text) {
        view.searchText = std::move(text);
        std::vector<std::string> contents;
        for (const auto& item : view.filteredItems())
            contents.push_back(item.content);
        return contents;
    }
    using Contents = std::vector<std::string>;

    SimulatedPlatform platform;
    ClipboardManager manager{platform};
    UndoOffer undo{platform.runLoopPort};
    ClipboardHistoryView view{manager, platform, &undo};
};

TEST_F(ClipboardHistoryViewTest, TheSearchDisregardsCaseAndLooksAtTheContentAlone) {
    add("Straße");
    add("other");
    EXPECT_EQ(search(""), (Contents{"other", "Straße"}));
    EXPECT_EQ(search("STRASSE"), Contents{"Straße"});
    EXPECT_EQ(search("Unknown"), Contents{});
    EXPECT_EQ(search("O"), Contents{"other"});
}

TEST_F(ClipboardHistoryViewTest, ARowTellsTypeSourceAndAge) {
    add("  a\nb ", ClipboardContentType::code);
    platform.runLoopPort.advance(125);
    const auto row = view.rows().front();
    EXPECT_EQ(row.preview.text, "a b");
    EXPECT_EQ(row.type.name, "chevron.left.forwardslash.chevron.right");
    ASSERT_EQ(row.details.size(), 3u);
    EXPECT_EQ(row.details[0].text, "Unknown");
    EXPECT_EQ(row.details[1].text, "·");
    EXPECT_EQ(row.details[2].text, "2 min. ago");
}

TEST_F(ClipboardHistoryViewTest, EveryTypeHasItsSymbol) {
    using Type = ClipboardContentType;
    for (const auto& [type, symbol] : {std::pair{Type::text, "doc.text"},
                                       {Type::url, "link"},
                                       {Type::email, "envelope"},
                                       {Type::number, "number"}}) {
        add("x", type);
        EXPECT_EQ(view.rows().front().type.name, symbol);
    }
}

TEST_F(ClipboardHistoryViewTest, CopyingAndRemovingFindTheItem) {
    add("a");
    add("b");
    view.copy(manager.items->back().id);
    EXPECT_EQ(platform.pasteboardPort.text, "a");
    view.remove(manager.items->front().id);
    EXPECT_EQ(search(""), Contents{"b"});
    view.copy(UUID::random());
    EXPECT_EQ(platform.pasteboardPort.count, 1);
}

TEST_F(ClipboardHistoryViewTest, ARowIsDrawnInItsSizes) {
    add("text");
    const auto row = view.rows().at(0);
    EXPECT_EQ(row.type.size, 12);
    EXPECT_EQ(row.preview.style.size, 11);
    for (const auto& detail : row.details)
        EXPECT_EQ(detail.style.size, 9);
    EXPECT_EQ(row.copyButton.size, 11);
    EXPECT_EQ(row.deleteButton.size, 11);
    EXPECT_EQ(view.searchSymbol().size, 12);
    EXPECT_EQ(view.emptyStateView().symbol.size, 28);
    EXPECT_EQ(view.emptyStateView().title.style.size, 12);
}

TEST_F(ClipboardHistoryViewTest, NoControlCharacterBreaksTheLineOfAPreview) {
    add(std::string("a\0b\x01"
                    "c\x1f"
                    "d\te",
                    9));
    EXPECT_EQ(view.rows().at(0).preview.text, "a b c d e");
}

TEST_F(ClipboardHistoryViewTest, AnEmptyListSaysWhetherThereIsNothingOrNothingFound) {
    EXPECT_EQ(view.emptyStateView().title.text, "No clipboard history");
    view.searchText = "x";
    EXPECT_EQ(view.emptyStateView().title.text, "No clipboard history") << "nothing was copied";
    add("abc");
    EXPECT_EQ(view.emptyStateView().title.text, "No results");
    view.searchText = "";
    EXPECT_EQ(view.emptyStateView().title.text, "No clipboard history");
}

} // namespace
} // namespace orvelle
