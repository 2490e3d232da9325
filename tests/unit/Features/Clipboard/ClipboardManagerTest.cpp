#include "Features/Clipboard/ClipboardManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/ThreadTime.h"
#include "Support/ThreadedRunLoop.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// A machine whose background work is on threads.
class ThreadedMachine : public SimulatedPlatform {
public:
    ThreadedRunLoop loop;
    RunLoop& runLoop() override { return loop; }
};

class ClipboardManagerTest : public testing::Test {
protected:
    ClipboardManagerTest() { manager.start(); }

    SimulatedPasteboard& pasteboard() { return platform.pasteboardPort; }
    void tick() { platform.runLoopPort.advance(ClipboardManager::pollInterval); }
    void copy(const std::string& text) {
        pasteboard().copy(text);
        tick();
    }
    std::vector<std::string> contents() const {
        std::vector<std::string> contents;
        for (const auto& item : manager.items.get())
            contents.push_back(item.content);
        return contents;
    }
    using Contents = std::vector<std::string>;

    SimulatedPlatform platform;
    ClipboardManager manager{platform};
};

TEST_F(ClipboardManagerTest, CopyingTheSameTextTwiceInARowGivesOneEntryWithAnotherInBetweenThree) {
    copy("a");
    copy("a");
    EXPECT_EQ(contents(), Contents{"a"});
    copy("b");
    copy("a");
    EXPECT_EQ(contents(), (Contents{"a", "b", "a"}));
}

TEST_F(ClipboardManagerTest, AfterAClickOnAnOlderEntryItMovesToTheTopAndNoNewEntryAppears) {
    copy("a");
    copy("b");
    const auto older = manager.items.get()[1];
    platform.runLoopPort.advance(60);
    manager.copyToClipboard(older);
    EXPECT_EQ(pasteboard().text, "a");
    tick();
    EXPECT_EQ(contents(), (Contents{"a", "b"}));
    EXPECT_EQ(manager.items->front(), older) << "time and source stay";
}

TEST_F(ClipboardManagerTest, CopiedFilesAreNoText) {
    pasteboard().copyFiles({"file:///home/a.txt"}, "/home/a.txt");
    tick();
    EXPECT_EQ(contents(), Contents{});
    copy("a text");
    EXPECT_EQ(contents(), Contents{"a text"});
}

TEST_F(ClipboardManagerTest, ACaptureCopiesNoTextOfTheList) {
    copy("a");
    const auto* held = &manager.items->front().content.get();
    copy("b");
    EXPECT_EQ(&manager.items->back().content.get(), held);
    manager.copyToClipboard(manager.items->back());
    EXPECT_EQ(&manager.items->front().content.get(), held);
    EXPECT_EQ(&manager.itemsContaining("A").front().content.get(), held);
}

TEST(ClipboardSearchTest, EveryCaptureIsPreparedForTheSearchInTheBackgroundOnce) {
    ThreadedMachine machine;
    ClipboardManager manager(machine);
    manager.start();
    for (const char* text : {"First", "Second"}) {
        const int before = machine.loop.detachCount;
        machine.pasteboardPort.copy(text);
        machine.loop.advance(ClipboardManager::pollInterval);
        EXPECT_EQ(machine.loop.detachCount, before + 1);
        machine.loop.complete();
    }
    EXPECT_EQ(manager.itemsContaining("FIRST").size(), 1u);
    EXPECT_EQ(manager.itemsContaining("first").front().content, "First");
    EXPECT_EQ(manager.itemsContaining("").size(), 2u);
    EXPECT_EQ(machine.loop.detachCount, 2);
}

TEST(ClipboardSearchTest, WhatTheBackgroundHasNotComeToIsFoundAllTheSame) {
    ThreadedMachine machine;
    machine.loop.isBusy = true;
    ClipboardManager manager(machine);
    manager.start();
    machine.pasteboardPort.copy("Straße");
    machine.loop.advance(ClipboardManager::pollInterval);
    EXPECT_EQ(manager.itemsContaining("STRASSE").size(), 1u);
    EXPECT_TRUE(manager.itemsContaining("other").empty());
}

/// A history as long as it may be, in a language of accents.
class FullClipboardTest : public ClipboardManagerTest {
protected:
#ifdef ORVELLE_SANITIZED
    static constexpr double slowness = 5;
#else
    static constexpr double slowness = 1;
#endif

    static std::string megabyte(std::string_view letters) {
        std::string text;
        while (text.size() < 1'000'000)
            text.append(letters);
        return text;
    }
};

TEST_F(FullClipboardTest, ACaptureTakesLessThanFiveMilliseconds) {
    for (const char* letters : {"the five boxing wizards jump quickly, ", "a", "été à l’hôtel "}) {
        auto text = megabyte(letters);
        std::vector<double> times;
        for (int count = 0; count < 5; ++count) {
            text += 'x';
            pasteboard().copy(text);
            times.push_back(threadMilliseconds([&] { manager.checkForChanges(); }));
            EXPECT_EQ(manager.items->front().content.size(), text.size());
        }
        EXPECT_LT(median(times), 5 * slowness) << letters;
    }
}

TEST_F(FullClipboardTest, AKeyOfTheSearchTakesLessThanThirtyMilliseconds) {
    for (const char* letters : {"the five boxing wizards jump ", "été à l’hôtel "}) {
        std::vector<ClipboardItem> list(ClipboardManager::maximumItems);
        for (auto& item : list) {
            item.id = UUID::random();
            item.content = megabyte(letters);
        }
        manager.items = std::move(list);
        platform.runLoopPort.runPosted(); // the background is done
        for (const char* key : {"q", "Q", "ü", "e", "€"}) {
            std::vector<double> times;
            for (int count = 0; count < 3; ++count)
                times.push_back(threadMilliseconds([&] { manager.itemsContaining(key); }));
            EXPECT_LT(median(times), 30 * slowness) << key << " in " << letters;
        }
    }
}

TEST_F(ClipboardManagerTest, WithTheMaximumAgeAt0TheLimitIs24Hours) {
    platform.userDefaultsPort.set("clipboardMaxAgeHours", 0.0);
    copy("old");
    platform.runLoopPort.advance(24 * 3600 - 0.5);
    copy("within");
    EXPECT_EQ(contents(), (Contents{"within", "old"}));
    platform.runLoopPort.advance(1);
    copy("after");
    EXPECT_EQ(contents(), (Contents{"after", "within"}));
}

TEST_F(ClipboardManagerTest, TheMaximumAgeIsASettingAndWhatIsOldStaysUntilTheNextCapture) {
    copy("old");
    platform.userDefaultsPort.set("clipboardMaxAgeHours", 0.5);
    platform.runLoopPort.advance(3600);
    EXPECT_EQ(contents(), Contents{"old"});
    copy("new");
    EXPECT_EQ(contents(), Contents{"new"});
}

TEST_F(ClipboardManagerTest, The49thCaptureDropsTheOldestEntry) {
    platform.userDefaultsPort.set("clipboardMaxItems", 3.0);
    for (int count = 1; count <= 48; ++count)
        copy(std::to_string(count));
    EXPECT_EQ(manager.items->size(), 48u);
    EXPECT_EQ(manager.items->back().content, "1");
    copy("49");
    EXPECT_EQ(manager.items->size(), 48u);
    EXPECT_EQ(manager.items->front().content, "49");
    EXPECT_EQ(manager.items->back().content, "2");
}

TEST_F(ClipboardManagerTest, ATextOfOnlyBlanksIsPassedOverAndTheChangeCountHasMovedOn) {
    copy(" \n\t");
    EXPECT_TRUE(manager.items->empty());
    EXPECT_EQ(manager.lastChangeCount, pasteboard().count);
}

TEST_F(ClipboardManagerTest, WhatIsOnThePasteboardAtTheStartIsNotCaptured) {
    ClipboardManager late(platform);
    pasteboard().copy("before");
    late.start();
    tick();
    EXPECT_TRUE(late.items->empty());
}

TEST_F(ClipboardManagerTest, NothingIsReadWithoutAChange) {
    copy("a");
    const int reads = pasteboard().readCount;
    platform.runLoopPort.advance(60);
    EXPECT_EQ(pasteboard().readCount, reads);
}

TEST_F(ClipboardManagerTest, APictureIsNothingToCapture) {
    pasteboard().copy(std::nullopt);
    tick();
    EXPECT_TRUE(manager.items->empty());
}

TEST_F(ClipboardManagerTest, AnEntryKeepsItsWhiteSpaceAndTellsItsSource) {
    platform.frontmostApplicationPort.application = {{"org.example.Editor", "Editor"}};
    copy("  let x = 1\n");
    const auto& item = manager.items->front();
    EXPECT_EQ(item.content, "  let x = 1\n");
    EXPECT_EQ(item.sourceAppBundleID, "org.example.Editor");
    EXPECT_EQ(item.sourceAppName, "Editor");
    EXPECT_EQ(item.contentType, ClipboardContentType::code);
    EXPECT_EQ(item.timestamp, platform.runLoopPort.now());
}

TEST_F(ClipboardManagerTest, WithoutAFrontmostApplicationTheSourceIsUnknown) {
    copy("a");
    EXPECT_EQ(manager.items->front().sourceAppBundleID, std::nullopt);
    EXPECT_EQ(manager.items->front().sourceAppName, "Unknown");
    platform.frontmostApplicationPort.application = {{"org.example.Nameless", std::nullopt}};
    copy("b");
    EXPECT_EQ(manager.items->front().sourceAppName, "Unknown");
}

TEST_F(ClipboardManagerTest, TheSourceIsWhoWasInFrontWhenTheCopyWasSeen) {
    pasteboard().isOwnerSilent = true;
    platform.frontmostApplicationPort.application = {{std::nullopt, "First"}};
    copy("a");
    platform.frontmostApplicationPort.application = {{std::nullopt, "Second"}};
    pasteboard().answer();
    EXPECT_EQ(manager.items->front().sourceAppName, "First");
}

TEST_F(ClipboardManagerTest, AnOwnerThatNeverAnswersIsOvertakenByTheNextCopy) {
    pasteboard().isOwnerSilent = true;
    copy("never");
    platform.runLoopPort.advance(60);
    EXPECT_TRUE(manager.items->empty());
    pasteboard().isOwnerSilent = false;
    copy("next");
    EXPECT_EQ(contents(), Contents{"next"});
    pasteboard().answer();
    EXPECT_EQ(contents(), Contents{"next"});
}

TEST_F(ClipboardManagerTest, AnItemThatIsNotInTheListIsOnlyCopied) {
    copy("a");
    ClipboardItem foreign;
    foreign.content = "foreign";
    manager.copyToClipboard(foreign);
    tick();
    EXPECT_EQ(pasteboard().text, "foreign");
    EXPECT_EQ(contents(), Contents{"a"});
}

TEST_F(ClipboardManagerTest, DeletingRemovesOneEntry) {
    copy("a");
    copy("b");
    manager.deleteItem(manager.items->front());
    EXPECT_EQ(contents(), Contents{"a"});
}

TEST_F(ClipboardManagerTest, AFeatureThatIsOffDoesNotStart) {
    ClipboardManager off(platform);
    off.isEnabled = false;
    off.start();
    EXPECT_FALSE(off.pollTimer);
}

} // namespace
} // namespace orvelle
