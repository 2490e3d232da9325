#include "Core/UndoOffer.h"

#include "Core/RemovedRecords.h"
#include "Features/Clipboard/ClipboardHistoryView.h"
#include "Features/FileShelf/FileShelfView.h"
#include "Features/Notes/NotesExpandedView.h"
#include "Features/Todo/TodoExpandedView.h"
#include "Settings/AppearanceSettingsView.h"
#include "Settings/GeneralSettingsView.h"
#include "Settings/HoverLayoutSettingsView.h"
#include "Settings/PanelOrderSettingsView.h"
#include "Support/AppFixture.h"
#include "Support/StoredFiles.h"

namespace orvelle {
namespace {

class UndoOfferTest : public AppFixture {
protected:
    UndoOfferTest() {
        launchNormally();
        setState(NotchExpandedState::expanded);
    }
    UndoOffer::Removal removal(const std::string& name) {
        return {name, [this, name] { calls.push_back("undo " + name); },
                [this, name] { calls.push_back("finish " + name); }};
    }

    using Calls = std::vector<std::string>;
    Calls calls;
    UndoOffer& undo = app.panelUndo;
};

TEST_F(UndoOfferTest, StandsForSixSeconds) {
    undo.offer(removal("a"));
    advance(5.9);
    EXPECT_EQ(undo.text.get(), "a");
    EXPECT_TRUE(calls.empty());
    advance(0.2);
    EXPECT_EQ(undo.text.get(), "");
    EXPECT_EQ(calls, Calls{"finish a"});
    undo.undo();
    EXPECT_EQ(calls, Calls{"finish a"}) << "too late";
}

TEST_F(UndoOfferTest, IsTakenOnce) {
    undo.offer(removal("a"));
    undo.undo();
    undo.undo();
    advance(10);
    EXPECT_EQ(calls, Calls{"undo a"});
    EXPECT_EQ(undo.text.get(), "");
}

TEST_F(UndoOfferTest, GivesWayToTheNextWhichHasItsFullTime) {
    undo.offer(removal("a"));
    advance(4);
    undo.offer(removal("b"));
    EXPECT_EQ(calls, Calls{"finish a"});
    advance(4);
    EXPECT_EQ(undo.text.get(), "b");
    undo.undo();
    EXPECT_EQ(calls, (Calls{"finish a", "undo b"}));
}

TEST_F(UndoOfferTest, MayBeMadeAnewWhileOneIsTakenOrEnds) {
    undo.offer({"a", [&] { undo.offer(removal("b")); }});
    undo.undo();
    EXPECT_EQ(undo.text.get(), "b");
    undo.finish();
    EXPECT_EQ(calls, Calls{"finish b"});
}

TEST_F(UndoOfferTest, EndsWithItsTabItsPanelAndBeforeADrop) {
    undo.offer(removal("tab"));
    app.notchState.activePanel = app.notchState.activePanel.get();
    EXPECT_TRUE(calls.empty()) << "it is the same tab";
    app.notchState.activePanel = ActivePanel::time;
    undo.offer(removal("panel"));
    setState(NotchExpandedState::collapsed);
    setState(NotchExpandedState::expanded);
    undo.offer(removal("drop"));
    app.notchState.isDragSessionActive = true;
    EXPECT_EQ(calls, (Calls{"finish tab", "finish panel", "finish drop"}));
}

TEST_F(UndoOfferTest, EndsWithTheProgram) {
    undo.offer(removal("a"));
    app.applicationWillTerminate();
    EXPECT_EQ(calls, Calls{"finish a"});
    {
        UndoOffer other(platform.runLoopPort);
        other.offer(removal("b"));
    }
    advance(10);
    EXPECT_EQ(calls, (Calls{"finish a", "finish b"}));
}

class RemovedRecordsTest : public testing::Test {
protected:
    struct Record {
        UUID id;
        bool operator==(const Record&) const = default;
    };
    using List = std::vector<Record>;

    static Record record(char name) {
        Record made;
        made.id.bytes[0] = static_cast<std::uint8_t>(name);
        return made;
    }
    static List list(std::string_view names) {
        List made;
        for (const char name : names)
            made.push_back(record(name));
        return made;
    }
    static std::string restored(std::string_view before, std::string_view after,
                                std::string_view meanwhile, NewRecords newest) {
        auto changed = list(meanwhile);
        RemovedRecords<Record>::between(list(before), list(after)).restoreTo(changed, newest);
        std::string names;
        for (const auto& each : changed)
            names += static_cast<char>(each.id.bytes[0]);
        return names;
    }
};

TEST_F(RemovedRecordsTest, AnUntouchedListIsWhatItWas) {
    for (const auto newest : {NewRecords::first, NewRecords::last})
        for (const char* after : {"", "a", "b", "d", "ad", "bc", "abd", "bcd", "abc"})
            EXPECT_EQ(restored("abcd", after, after, newest), "abcd") << after;
}

TEST_F(RemovedRecordsTest, ARecordComesBackBesideItsNeighbours) {
    EXPECT_EQ(restored("abc", "ac", "ac+", NewRecords::last), "abc+");
    EXPECT_EQ(restored("abc", "ab", "ab+", NewRecords::last), "abc+");
    EXPECT_EQ(restored("abc", "bc", "+bc", NewRecords::first), "+abc");
    EXPECT_EQ(restored("abc", "ac", "c", NewRecords::first), "bc") << "one neighbour has gone too";
    EXPECT_EQ(restored("abc", "bc", "cb", NewRecords::first), "cab") << "another order";
}

TEST_F(RemovedRecordsTest, WithoutNeighboursTheNewOnesStandWhereNewOnesDo) {
    EXPECT_EQ(restored("ab", "", "+", NewRecords::last), "ab+");
    EXPECT_EQ(restored("ab", "", "+", NewRecords::first), "+ab");
    EXPECT_EQ(restored("a", "", "", NewRecords::first), "a");
}

TEST_F(RemovedRecordsTest, WhatIsThereAgainStaysAsItIs) {
    EXPECT_EQ(restored("abc", "c", "cb", NewRecords::first), "cab");
    EXPECT_EQ(restored("abc", "", "abc", NewRecords::first), "abc");
}

TEST_F(RemovedRecordsTest, AnIdentifierThatStoodTwiceDoesSoAgain) {
    EXPECT_EQ(restored("aba", "b", "b", NewRecords::last), "aba");
}

/// From the view's operation to the saved file and back.
class UndoneListsTest : public AppFixture {
protected:
    UndoneListsTest() {
        launchNormally();
        setState(NotchExpandedState::expanded);
    }
    std::string file(const std::string& name) {
        runPosted();
        return platform.fileSystemPort.files.at(listFolder + name);
    }
    template <class Take>
    void expectFileBack(const std::string& name, Take take) {
        const auto before = file(name);
        take();
        EXPECT_NE(file(name), before);
        app.panelUndo.undo();
        EXPECT_EQ(file(name), before);
    }
};

TEST_F(UndoneListsTest, TasksAreOnTheDiskAsBefore) {
    for (const char* title : {"a", "b", "c"})
        app.todoManager.addItem(title);
    app.todoManager.toggleItem(app.todoManager.items.get()[0]);
    app.todoManager.toggleItem(app.todoManager.items.get()[2]);
    TodoExpandedView view(app.todoManager, &app.panelUndo);
    expectFileBack("todo_items.json", [&] { view.performTrailing(view.rows()[1].id); });
    expectFileBack("todo_items.json", [&] { view.contextMenu().front().perform(); });
}

TEST_F(UndoneListsTest, NotesAreOnTheDiskAsBefore) {
    for (const char* text : {"a", "b", "c"})
        app.notesManager.addItem(text);
    NotesExpandedView view(app.notesManager, platform, &app.panelUndo);
    expectFileBack("note_items.json", [&] { view.performTrailing(view.rows()[2].id); });
    expectFileBack("note_items.json", [&] { view.contextMenu().front().perform(); });
}

TEST_F(UndoneListsTest, ATaskComesBackBesideWhatAnotherProgramAddedMeanwhile) {
    app.todoManager.addItem("a");
    app.todoManager.addItem("b");
    TodoExpandedView view(app.todoManager, &app.panelUndo);
    view.performTrailing(view.rows()[0].id);
    runPosted();
    const auto other = file("todo_items.json");
    platform.fileSystemPort.files[listFolder + "todo_items.json"] =
        other.substr(0, other.size() - 1) +
        R"(,{"createdAt":1,"id":"6B5C5A6E-0F5C-4B0E-9C52-0D8E0C9D1A11","isCompleted":false,)"
        R"("title":"theirs"}])";
    app.panelUndo.undo();
    runPosted();
    std::vector<std::string> titles;
    for (const auto& item : app.todoManager.items.get())
        titles.push_back(item.title);
    EXPECT_EQ(titles, (std::vector<std::string>{"a", "b", "theirs"}));
}

TEST_F(UndoneListsTest, NothingToRemoveLeavesTheFormerOffer) {
    app.todoManager.addItem("a");
    TodoExpandedView view(app.todoManager, &app.panelUndo);
    view.performTrailing(view.rows()[0].id);
    view.performTrailing(UUID::random());
    EXPECT_EQ(app.panelUndo.text.get(), "Task deleted");
}

class UndoneTextsTest : public AppFixture {
protected:
    UndoneTextsTest() {
        defaults().set("clipboardEnabled", true);
        launchNormally();
        setState(NotchExpandedState::expanded);
    }
    void copy(const std::string& text) {
        platform.pasteboardPort.copy(text);
        advance(0.5);
    }
    std::string texts() {
        std::string joined;
        for (const auto& item : app.clipboardManager.items.get())
            joined += item.content.get();
        return joined;
    }

    ClipboardHistoryView view{app.clipboardManager, platform, &app.panelUndo};
};

TEST_F(UndoneTextsTest, ATextComesBackAtItsPlaceWithItsIdentifier) {
    for (const char* text : {"a", "b", "c"})
        copy(text);
    const auto before = app.clipboardManager.items.get();
    view.remove(before[1].id);
    EXPECT_EQ(texts(), "ca");
    app.panelUndo.undo();
    EXPECT_EQ(app.clipboardManager.items.get(), before);
}

TEST_F(UndoneTextsTest, ATextThatWasCopiedAgainStandsThereTwice) {
    copy("a");
    copy("b");
    view.remove(app.clipboardManager.items.get()[0].id);
    copy("c");
    copy("b");
    app.panelUndo.undo();
    EXPECT_EQ(texts(), "bcba");
}

TEST_F(UndoneTextsTest, AFullHistoryKeepsItsLimit) {
    for (int number = 0; number < 48; ++number)
        copy("text " + std::to_string(number));
    view.remove(app.clipboardManager.items.get()[1].id);
    copy("new");
    app.panelUndo.undo();
    EXPECT_EQ(app.clipboardManager.items->size(), ClipboardManager::maximumItems);
    EXPECT_EQ(app.clipboardManager.items.get()[2].content.get(), "text 46");
    EXPECT_EQ(app.clipboardManager.items->back().content.get(), "text 1");
}

class UndoneShelfTest : public AppFixture {
protected:
    UndoneShelfTest() {
        launchNormally();
        app.notchState.activePanel = ActivePanel::fileShelf;
        setState(NotchExpandedState::expanded);
        for (const char* name : {"a.txt", "b.txt"})
            add(name, name);
        before = platform.fileSystemPort.files;
    }
    void add(const std::string& name, const std::string& content) {
        platform.fileSystemPort.files["/home/" + name] = content;
        app.fileShelfManager.addFile("file:///home/" + name);
        runPosted();
    }
    bool isOnDisk(const std::string& name) {
        runPosted();
        return platform.fileSystemPort.files.contains(listFolder + "FileShelf/" + name);
    }
    std::string names() {
        std::string joined;
        for (const auto& cell : view.cells())
            joined += cell.name.text + " ";
        return joined;
    }

    FileShelfView view{app.fileShelfManager, platform, &app.panelUndo};
    std::map<std::string, std::string> before;
};

TEST_F(UndoneShelfTest, AFileIsOutOfSightAtOnceAndOnTheDiskUntilTheTimeIsOver) {
    view.remove(view.cells()[0].id);
    EXPECT_EQ(names(), "b.txt ");
    view.shareAll();
    advance(5.9);
    EXPECT_TRUE(isOnDisk("a.txt"));
    advance(0.2);
    EXPECT_FALSE(isOnDisk("a.txt"));
    EXPECT_TRUE(isOnDisk("b.txt"));
    EXPECT_EQ(app.fileShelfManager.items->size(), 1u);
}

TEST_F(UndoneShelfTest, AfterAnUndoTheShelfIsAsBefore) {
    const auto items = app.fileShelfManager.items.get();
    view.remove(view.cells()[0].id);
    app.panelUndo.undo();
    advance(10);
    EXPECT_EQ(names(), "a.txt b.txt ");
    EXPECT_EQ(app.fileShelfManager.items.get(), items);
    EXPECT_EQ(platform.fileSystemPort.files, before);
}

TEST_F(UndoneShelfTest, AFileGoesAtOnceWithThePanelTheTabAndTheProgram) {
    view.remove(view.cells()[0].id);
    app.notchState.activePanel = ActivePanel::time;
    EXPECT_FALSE(isOnDisk("a.txt"));
    app.notchState.activePanel = ActivePanel::fileShelf;
    view.remove(view.cells()[0].id);
    app.applicationWillTerminate();
    EXPECT_FALSE(isOnDisk("b.txt"));
}

TEST_F(UndoneShelfTest, ANewFileOfTheNameIsNotTakenForTheOneThatWasRemoved) {
    view.remove(view.cells()[0].id);
    platform.fileSystemPort.files["/home/a.txt"] = "new";
    view.handleDrop({{[](const auto& loaded) {
        loaded(FileShelfView::DroppedProvider::URL{"file:///home/a.txt"});
    }}});
    advance(10);
    EXPECT_TRUE(isOnDisk("a.txt"));
    EXPECT_EQ(names(), "b.txt a.txt ");
    EXPECT_EQ(platform.fileSystemPort.files.at(listFolder + "FileShelf/a.txt"), "new");
}

TEST_F(UndoneShelfTest, AFileThatIsGoneAlreadyIsNotRemovedAgain) {
    const auto item = app.fileShelfManager.items.get()[0];
    view.remove(item.id);
    app.fileShelfManager.removeFile(item);
    runPosted();
    add("a.txt", "new");
    advance(10);
    EXPECT_TRUE(isOnDisk("a.txt"));
}

class UndoneSettingsTest : public AppFixture {
protected:
    std::map<std::string, DefaultsValue> stored() {
        std::map<std::string, DefaultsValue> values;
        for (const auto& key : defaults().keys())
            values.emplace(key, *defaults().object(key));
        return values;
    }
};

TEST_F(UndoneSettingsTest, AllSettingsAreAsBeforeUnsetOnesToo) {
    platform.loginItemPort.isEnrolled = true;
    defaults().set("launchAtLogin", true);
    defaults().set("scrollSensitivity", 12.0);
    defaults().set("themeMode", std::string("custom"));
    const auto before = stored();
    GeneralSettingsView general(app.settingsEnvironment(), platform);
    general.press(GeneralSettingsView::reset);
    EXPECT_NE(stored(), before);
    EXPECT_FALSE(platform.loginItemPort.isEnrolled);
    EXPECT_EQ(app.settingsUndo.text.get(), "Settings reset");
    app.settingsUndo.undo();
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(platform.loginItemPort.isEnrolled);

    AppearanceSettingsView appearance(platform, &app.settingsUndo);
    appearance.press(AppearanceSettingsView::reset);
    EXPECT_NE(stored(), before);
    app.settingsUndo.undo();
    EXPECT_EQ(stored(), before);
}

TEST_F(UndoneSettingsTest, TheSettingSaysWhatTheDesktopTakes) {
    platform.loginItemPort.isEnrolled = true;
    defaults().set("launchAtLogin", true);
    GeneralSettingsView general(app.settingsEnvironment(), platform);
    general.press(GeneralSettingsView::reset);
    platform.loginItemPort.works = false;
    app.settingsUndo.undo();
    EXPECT_FALSE(defaults().boolean("launchAtLogin"));
}

TEST_F(UndoneSettingsTest, WhatTheUserChangesAfterTheResetStays) {
    defaults().set("scrollSensitivity", 12.0);
    defaults().set("swipeCooldown", 0.9);
    GeneralSettingsView general(app.settingsEnvironment(), platform);
    general.press(GeneralSettingsView::reset);
    general.slide("scrollSensitivity", 20);
    app.settingsUndo.undo();
    EXPECT_EQ(defaults().number("scrollSensitivity"), 20);
    EXPECT_EQ(defaults().number("swipeCooldown"), 0.9);
}

TEST_F(UndoneSettingsTest, TheOrdersOfPanelsAndWidgetsComeBack) {
    app.panelOrderManager.reorder({3}, 0);
    app.hoverLayoutManager.toggleVisibility("media");
    const auto before = stored();
    PanelOrderSettingsView panels(app.panelOrderManager, app.themeManager, &app.settingsUndo);
    panels.reset();
    EXPECT_NE(stored(), before);
    app.settingsUndo.undo();
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(app.panelOrderManager.allPanelsSorted()[0].id, "time");
    HoverLayoutSettingsView widgets(app.hoverLayoutManager, app.themeManager, &app.settingsUndo);
    widgets.reset();
    EXPECT_NE(stored(), before);
    app.settingsUndo.undo();
    EXPECT_EQ(stored(), before);
}

TEST_F(UndoneSettingsTest, TheOfferGoesWithTheWindow) {
    launchNormally();
    app.openSettings();
    app.settingsUndo.offer({"a", [] { FAIL(); }});
    views.settings.close();
    EXPECT_EQ(app.settingsUndo.text.get(), "");
}

} // namespace
} // namespace orvelle
