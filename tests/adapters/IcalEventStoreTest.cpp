#include "Platform/Linux/IcalEventStore.h"

#include "Platform/Icu/IcuFormatting.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Support/Gate.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"
#include "adapters/EventLoopWait.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace orvelle {
namespace {

/// An event that began an hour ago and goes on for another two.
std::string presentEvent(const std::string& title, const std::string& more = {}) {
    const auto at = [](int seconds) {
        const std::time_t time = std::time(nullptr) + seconds;
        std::tm parts{};
        gmtime_r(&time, &parts);
        char text[32];
        std::strftime(text, sizeof text, "%Y%m%dT%H%M%SZ", &parts);
        return std::string(text);
    };
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:" + title +
           "\r\nDTSTART:" + at(-3600) + "\r\nDTEND:" + at(7200) + "\r\nSUMMARY:" + title + "\r\n" +
           more + "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

/// The real disk, which takes as long as the test wants below some folders, and on which the test
/// can take the right to read away. (The tests may run as root, whom no mode of a folder refuses.)
class WatchedDisk : public CalendarDisk {
public:
    std::vector<std::string> slowFolders; ///< set before anything is read
    mutable Gate slowness;
    std::atomic_bool refuses = false;
    std::string meddledFolder;            ///< likewise
    mutable std::function<void()> meddle; ///< done once, just before that folder is watched
    mutable std::atomic_int calls = 0;
    mutable std::atomic_int callsOnMainThread = 0;

    Access access(const std::string& folder) const override {
        enter(folder);
        auto access = CalendarDisk::access(folder);
        access.isReadable = access.isReadable && !refuses;
        return access;
    }
    std::string canonical(const std::string& folder) const override {
        enter(folder);
        return CalendarDisk::canonical(folder);
    }
    Entries entries(const std::string& folder) const override {
        enter(folder);
        return CalendarDisk::entries(folder);
    }
    std::optional<std::string> smallFile(const std::string& path,
                                         std::size_t limit) const override {
        enter(path);
        return CalendarDisk::smallFile(path, limit);
    }
    Descriptor open(const std::string& path) const override {
        enter(path);
        return CalendarDisk::open(path);
    }
    int watch(int inotify, const std::string& folder) const override {
        enter(folder);
        if (folder == meddledFolder && meddle)
            std::exchange(meddle, nullptr)();
        return CalendarDisk::watch(inotify, folder);
    }

private:
    void enter(const std::string& path) const {
        ++calls;
        callsOnMainThread += std::this_thread::get_id() == mainThread_;
        if (std::ranges::any_of(slowFolders,
                                [&](const auto& slow) { return path.starts_with(slow); }))
            slowness.pass();
    }
    const std::thread::id mainThread_ = std::this_thread::get_id();
};

class IcalEventStoreTest : public testing::Test {
protected:
    ~IcalEventStoreTest() override { disk->slowness.open(); }

    bool comesToBe(EventAuthorizationStatus status) {
        return waitUntil([&] { return store.authorizationStatus() == status; });
    }
    std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (const auto& event : store.events(runLoop.now(), runLoop.now() + 86400))
            titles.push_back(event.title.value_or("<none>"));
        std::ranges::sort(titles);
        return titles;
    }
    testing::AssertionResult comeToShow(std::vector<std::string> expected) {
        if (waitUntil([&] { return titles() == expected; }))
            return testing::AssertionSuccess();
        auto result = testing::AssertionFailure() << "it shows";
        for (const auto& title : titles())
            result << " " << title;
        return result;
    }

    TemporaryFolder home;
    TemporaryVariable homeVariable{"HOME", home.path().c_str()};
    TemporaryVariable dataVariable{"XDG_DATA_HOME", (home / "data").c_str()};
    TemporaryVariable configVariable{"XDG_CONFIG_HOME", (home / "config").c_str()};
    QtRunLoop runLoop;
    IcuFormatting formatting{"en_US", "America/New_York"};
    SimulatedUserDefaults defaults;
    SimulatedLog log;
    std::shared_ptr<WatchedDisk> disk = std::make_shared<WatchedDisk>();
    IcalEventStore store{runLoop, formatting, defaults, log, disk};
    int changes = 0;
    Subscription observer;

    void observe() {
        observer = store.observeChanges([this] { ++changes; });
    }
};

using Titles = std::vector<std::string>;

TEST_F(IcalEventStoreTest, FindsTheCollectionsOfEveryPlace) {
    home.write("data/calendars/a.ics", presentEvent("Flat"));
    home.write("data/khal/calendars/private/a.ics", presentEvent("Khal"));
    home.write(".calendars/account/collection/a.ics", presentEvent("Synchronised"));
    home.write("data/evolution/calendar/system/calendar.ics", presentEvent("Gnome"));
    home.write("data/calendars/notes.txt", presentEvent("Not a calendar"));
    home.write("elsewhere/a.ics", presentEvent("Elsewhere"));
    observe();
    EXPECT_TRUE(comeToShow({"Flat", "Gnome", "Khal", "Synchronised"}));
    defaults.set("calendarFolders", "/nowhere:" + home / "elsewhere");
    EXPECT_TRUE(comeToShow({"Elsewhere", "Flat", "Gnome", "Khal", "Synchronised"}));
}

TEST_F(IcalEventStoreTest, CollectionsHaveNamesAndColors) {
    home.write(".calendars/work/a.ics", presentEvent("A"));
    home.write(".calendars/work/displayname", "Office\n");
    home.write(".calendars/work/color", "#ff0000\n");
    home.write(".calendars/plain/b.ics", presentEvent("B"));
    home.write(".calendars/plain/color", "no color");
    home.write("data/evolution/calendar/system/calendar.ics", presentEvent("C"));
    home.write("config/evolution/sources/system-calendar.source",
               "[Data Source]\nDisplayName=Personal\n[Calendar]\nColor=#00ff00\n");
    observe();
    ASSERT_TRUE(comeToShow({"A", "B", "C"}));
    std::map<std::string, StoredEvent::Calendar> calendars;
    for (const auto& event : store.events(runLoop.now(), runLoop.now() + 86400))
        calendars[*event.title] = *event.calendar;
    EXPECT_EQ(calendars["A"], (StoredEvent::Calendar{Color{1, 0, 0}, "Office"}));
    EXPECT_EQ(calendars["B"], (StoredEvent::Calendar{colors::blue, "plain"}));
    EXPECT_EQ(calendars["C"], (StoredEvent::Calendar{Color{0, 1, 0}, "Personal"}));
}

TEST_F(IcalEventStoreTest, TellsOfWhatOtherProgramsDo) {
    observe();
    EXPECT_TRUE(waitUntil([this] { return changes > 0; }));
    home.write("data/khal/calendars/private/a.ics", presentEvent("A")); // folders and all
    EXPECT_TRUE(comeToShow({"A"}));
    home.write("data/khal/calendars/private/b.ics", presentEvent("B"));
    EXPECT_TRUE(comeToShow({"A", "B"}));
    home.write("data/khal/calendars/private/a.ics", presentEvent("A moved"));
    EXPECT_TRUE(comeToShow({"A moved", "B"}));
    home.write("data/khal/calendars/private/c.part", presentEvent("C"));
    std::filesystem::rename(home / "data/khal/calendars/private/c.part",
                            home / "data/khal/calendars/private/c.ics");
    EXPECT_TRUE(comeToShow({"A moved", "B", "C"}));
    home.remove("data/khal/calendars/private/a.ics");
    EXPECT_TRUE(comeToShow({"B", "C"}));
    home.remove("data/khal");
    EXPECT_TRUE(comeToShow({}));
}

TEST_F(IcalEventStoreTest, WatchesAFolderThatIsMadeWhileItBeginsToWatch) {
    home.write("data/khal/calendars/work/a.ics", presentEvent("A"));
    disk->meddledFolder = home / "data/khal/calendars";
    disk->meddle = [this] { home.write("data/khal/calendars/private/b.ics", presentEvent("B")); };
    observe();
    EXPECT_TRUE(comeToShow({"A", "B"}));
    home.write("data/khal/calendars/private/c.ics", presentEvent("C"));
    EXPECT_TRUE(comeToShow({"A", "B", "C"}));
}

TEST_F(IcalEventStoreTest, ReadsNothingBeforeSomeoneObserves) {
    home.write(".calendars/a/a.ics", presentEvent("A"));
    EXPECT_EQ(titles(), Titles{});
    observe();
    EXPECT_EQ(titles(), Titles{}) << "the files are read in the background";
    EXPECT_TRUE(comeToShow({"A"}));
}

TEST_F(IcalEventStoreTest, TheStatusIsOpenUntilTheFirstLook) {
    int statusChanges = 0;
    const auto statusObserver = store.observeAuthorizationStatus([&] { ++statusChanges; });
    EXPECT_EQ(store.authorizationStatus(), EventAuthorizationStatus::notDetermined);
    EXPECT_TRUE(waitUntil([&] { return statusChanges > 0; }));
    EXPECT_EQ(store.authorizationStatus(), EventAuthorizationStatus::fullAccess)
        << "where there is no calendar there is nothing to refuse";
    EXPECT_EQ(statusChanges, 1);
}

TEST_F(IcalEventStoreTest, FoldersThatMayNotBeReadAreARefusal) {
    std::filesystem::create_directory(home / ".calendars");
    EXPECT_TRUE(comesToBe(EventAuthorizationStatus::fullAccess));
    disk->refuses = true;
    EXPECT_TRUE(comesToBe(EventAuthorizationStatus::denied)) << "by the next look";
    disk->refuses = false;
    EXPECT_TRUE(comesToBe(EventAuthorizationStatus::fullAccess));
}

TEST_F(IcalEventStoreTest, WithoutAccessWhatWasReadBeforeIsNotTold) {
    home.write(".calendars/a/a.ics", presentEvent("A"));
    observe();
    ASSERT_TRUE(comeToShow({"A"}));
    disk->refuses = true;
    changes = 0;
    ASSERT_TRUE(comesToBe(EventAuthorizationStatus::denied));
    EXPECT_EQ(titles(), Titles{});
    EXPECT_GT(changes, 0);
    disk->refuses = false;
    EXPECT_TRUE(comeToShow({"A"}));
}

TEST_F(IcalEventStoreTest, ChangedRightsAreNoticed) {
    home.write(".calendars/a/a.ics", presentEvent("A"));
    observe();
    ASSERT_TRUE(comeToShow({"A"}));
    const int before = disk->calls;
    std::filesystem::permissions(home / ".calendars", std::filesystem::perms::owner_all);
    EXPECT_TRUE(waitUntil([&] { return disk->calls > before; }));
}

TEST_F(IcalEventStoreTest, TheMainThreadTouchesNoFile) {
    home.write(".calendars/a/a.ics", presentEvent("A"));
    home.write("elsewhere/a.ics", presentEvent("Elsewhere"));
    store.authorizationStatus();
    const auto request = store.requestFullAccess([](bool) {});
    observe();
    EXPECT_TRUE(comeToShow({"A"}));
    defaults.set("calendarFolders", home / "elsewhere");
    EXPECT_TRUE(comeToShow({"A", "Elsewhere"}));
    home.write(".calendars/a/b.ics", presentEvent("B"));
    EXPECT_TRUE(comeToShow({"A", "B", "Elsewhere"}));
    defaults.remove("calendarFolders");
    EXPECT_TRUE(comeToShow({"A", "B"}));
    EXPECT_GT(disk->calls, 0);
    EXPECT_EQ(disk->callsOnMainThread, 0);
}

TEST_F(IcalEventStoreTest, AFolderThatHangsDelaysNothing) {
    home.write("data/calendars/a/a.ics", presentEvent("Slow"));
    home.write("data/khal/calendars/a.ics", presentEvent("Khal"));
    home.write("data/evolution/calendar/system/calendar.ics", presentEvent("Gnome"));
    home.write("elsewhere/a.ics", presentEvent("Elsewhere"));
    defaults.set("calendarFolders", home / "elsewhere");
    disk->slowFolders = {home / "data/calendars"};
    disk->slowness.close();
    std::optional<bool> granted;
    const auto request = store.requestFullAccess([&](bool answer) { granted = answer; });
    observe();
    EXPECT_TRUE(waitUntil([&] { return disk->slowness.isReached(); }));
    EXPECT_TRUE(comeToShow({"Elsewhere", "Gnome", "Khal"}));
    EXPECT_EQ(store.authorizationStatus(), EventAuthorizationStatus::fullAccess);
    EXPECT_TRUE(waitUntil([&] { return granted.has_value(); }));
    home.write("elsewhere/b.ics", presentEvent("Written meanwhile"));
    EXPECT_TRUE(comeToShow({"Elsewhere", "Gnome", "Khal", "Written meanwhile"}));
    disk->slowness.open();
    EXPECT_TRUE(comeToShow({"Elsewhere", "Gnome", "Khal", "Slow", "Written meanwhile"}));
}

TEST_F(IcalEventStoreTest, ManyFoldersThatHangDelayNothing) {
    std::string folders;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
        const auto folder = home / (std::string("slow/") + name);
        home.write("slow/" + std::string(name) + "/a.ics", presentEvent(name));
        folders += (folders.empty() ? "" : ":") + folder;
    }
    home.write("swift/a.ics", presentEvent("Swift"));
    home.write("data/khal/calendars/a.ics", presentEvent("Khal"));
    defaults.set("calendarFolders", folders + ":" + (home / "swift"));
    disk->slowFolders = {home / "slow", home / "data/calendars"};
    disk->slowness.close();
    observe();
    EXPECT_TRUE(comeToShow({"Khal", "Swift"}));
    bool isDone = false;
    const auto other = runLoop.detach([] {}, [&] { isDone = true; });
    EXPECT_TRUE(waitUntil([&] { return isDone; })) << "nor the rest of the program";
    home.write("swift/b.ics", presentEvent("Written meanwhile"));
    EXPECT_TRUE(comeToShow({"Khal", "Swift", "Written meanwhile"}));
    EXPECT_TRUE(disk->slowness.isReached());
}

TEST_F(IcalEventStoreTest, AFolderThatHangsAndIsNamedNoLongerIsForgotten) {
    home.write("elsewhere/a.ics", presentEvent("Elsewhere"));
    home.write(".calendars/a/a.ics", presentEvent("A"));
    defaults.set("calendarFolders", home / "elsewhere");
    disk->slowFolders = {home / "elsewhere"};
    disk->slowness.close();
    observe();
    ASSERT_TRUE(waitUntil([&] { return disk->slowness.isReached(); }));
    defaults.remove("calendarFolders");
    EXPECT_TRUE(comeToShow({"A"}));
    disk->slowness.open();
    home.write(".calendars/a/b.ics", presentEvent("B"));
    EXPECT_TRUE(comeToShow({"A", "B"}));
}

TEST_F(IcalEventStoreTest, ARequestIsAnsweredLater) {
    std::optional<bool> granted;
    const auto request = store.requestFullAccess([&](bool answer) { granted = answer; });
    EXPECT_FALSE(granted);
    EXPECT_TRUE(waitUntil([&] { return granted.has_value(); }));
    EXPECT_TRUE(*granted);
}

TEST_F(IcalEventStoreTest, OddThingsAmongTheFilesAreLeftAlone) {
    home.write(".calendars/a/good.ics", presentEvent("Good"));
    home.write(".calendars/a/.hidden.ics", presentEvent("Hidden"));
    std::filesystem::create_directory(home / ".calendars/a/folder.ics");
    ASSERT_EQ(mkfifo((home / ".calendars/a/pipe.ics").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo((home / ".calendars/a/color").c_str(), 0600), 0);
    std::filesystem::create_directory_symlink(home / ".calendars", home / ".calendars/a/loop");
    std::filesystem::create_symlink("missing", home / ".calendars/a/dangling.ics");
    observe();
    EXPECT_TRUE(comeToShow({"Good"}));
}

TEST_F(IcalEventStoreTest, AnEnormousFileIsReadAsFarAsItMayBeAndTheOthersAreShown) {
    home.write(".calendars/a/enormous.ics", presentEvent("Beginning"));
    std::filesystem::resize_file(home / ".calendars/a/enormous.ics",
                                 CalendarReader::maximumFileSize + 1);
    home.write(".calendars/a/small.ics", presentEvent("Small"));
    observe();
    EXPECT_TRUE(comeToShow({"Beginning", "Small"}));
    ASSERT_EQ(log.lines.size(), 1u) << "it is not read again with every look";
    EXPECT_NE(log.lines[0].message.find("enormous.ics is too large"), std::string::npos);
}

TEST_F(IcalEventStoreTest, AFolderThatIsFoundTwiceIsShownOnce) {
    home.write("data/calendars/a/a.ics", presentEvent("A"));
    defaults.set("calendarFolders", home / "data/calendars/a/");
    observe();
    EXPECT_TRUE(comeToShow({"A"}));
}

} // namespace
} // namespace orvelle
