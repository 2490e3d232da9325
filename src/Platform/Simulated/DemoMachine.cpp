#include "Platform/Simulated/DemoMachine.h"

#include "Foundation/Json.h"
#include "Foundation/UUID.h"
#include "Platform/Simulated/DemoPortrait.h"
#include "Platform/Simulated/SimulatedAudioHardware.h"
#include "Platform/Simulated/SimulatedCameraService.h"
#include "Platform/Simulated/SimulatedDisplayBrightness.h"
#include "Platform/Simulated/SimulatedEventStore.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedPasteboard.h"
#include "Platform/UserDefaults.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <utility>

namespace orvelle::DemoMachine {

namespace {

/// A curve between 0 and 1 that does not look regular.
double wave(int step) {
    return 0.5 + 0.3 * std::sin(step * 0.7) + 0.2 * std::sin(step * 0.31 + 1);
}

} // namespace

void switchEverythingOn(UserDefaults& defaults) {
    for (const char* key :
         {"hasCompletedOnboarding", "clipboardEnabled", "systemMonitorEnabled", "weatherEnabled",
          "pomodoroEnabled", "todoEnabled", "notesEnabled", "stockTickerEnabled", "mirrorEnabled"})
        defaults.set(key, true);
}

void script(SimulatedAudioHardware& audio) {
    audio.list = {{.id = 1, .name = "Built-in Speakers", .volume = 0.55F},
                  {.id = 2, .name = "Living Room", .volume = 0.3F},
                  {.id = 3, .name = "Headphones", .volume = 0.7F}};
    audio.defaultOutput = 1;
}

void script(SimulatedDisplayBrightness& brightness) {
    brightness.displays = {{0.8F}};
}

void script(SimulatedCameraService& camera) {
    camera.onStart = [](const CameraService::Configuration& configuration) {
        configuration.onFrame(demoPortrait(configuration.width, configuration.height));
    };
}

void script(SimulatedEventStore& calendars) {
    const StoredEvent::Calendar work{{0.039, 0.518, 1}, "Work"};
    const StoredEvent::Calendar home{{1, 0.624, 0.039}, "Home"};
    const StoredEvent::Calendar holidays{{0.196, 0.843, 0.294}, "Holidays"};
    calendars.onQuery = [=](SimulatedEventStore& store, Date from) {
        if (!store.stored.empty())
            return;
        constexpr Seconds quarter = 900;
        const Date hour{std::floor(from.sinceReference / quarter) * quarter};
        const auto add = [&](const char* title, const char* location, int start, int end,
                             const StoredEvent::Calendar& calendar) {
            StoredEvent event;
            event.eventIdentifier = title;
            event.title = title;
            event.startDate = hour + start * quarter;
            event.endDate = hour + end * quarter;
            event.calendar = calendar;
            if (location)
                event.location = location;
            store.stored.push_back(event);
        };
        constexpr int day = 96; // quarters
        add("Design review", "Room 4", -2, 3, work);
        add("Lunch with Ada", "Café Lumière", 5, 9, home);
        add("Release planning", nullptr, 13, 17, work);
        add("Dentist", "12 Mill Lane", 22, 24, home);
        add("Founders' Day", nullptr, 40, 40 + day, holidays);
        store.stored.back().isAllDay = true;
    };
}

void fill(SimulatedFileSystem& files) {
    const auto shelf = files.applicationSupportDirectory() + "/Orvelle/FileShelf/";
    std::string entries;
    for (const char* name :
         {"Quarterly Report.pdf", "Harbour at dawn.jpg", "Minutes.odt", "Budget 2026.ods",
          "Interview.mp3", "Sources.tar.gz", "Read me first.txt", "Teaser.mp4", "index.html"}) {
        files.files[shelf + name] = name;
        entries += (entries.empty() ? "" : ",") + std::string(R"({"urlPath":")") + shelf + name +
                   R"(","addedAt":0,"expiresAt":0})";
    }
    files.files[shelf + ".shelf_metadata.json"] = "[" + entries + "]";
}

void script(SimulatedPowerSources& power) {
    constexpr std::int64_t fullMinutes = 360;
    const auto level = std::make_shared<std::int64_t>(87);
    power.onSnapshot = [level](SimulatedPowerSources& machine) {
        machine.sources = {
            PowerSourceDescription{{"Type", std::string("InternalBattery")},
                                   {"Current Capacity", *level},
                                   {"Is Charging", false},
                                   {"Power Source State", std::string("Battery Power")},
                                   {"Time to Empty", *level * fullMinutes / 100}}};
        *level = std::max<std::int64_t>(*level - 1, 5);
    };
}

void script(SimulatedHostStatistics& statistics) {
    constexpr std::uint64_t gibi = 1ULL << 30;
    constexpr double upload = 180e3; // bytes per sample at most
    constexpr double download = 2.4e6;
    const auto step = std::make_shared<int>(0);
    statistics.ticks = {ProcessorTicks{}};
    statistics.network = {
        InterfaceEntry{"en0", InterfaceEntry::Counters{.outputBytes = 0, .inputBytes = 0}}};
    statistics.onReadTicks = [=](SimulatedHostStatistics& machine) {
        const double load = wave((*step)++);
        auto& ticks = machine.ticks->front();
        const auto busy = static_cast<std::uint64_t>(60 * load);
        ticks.user += busy;
        ticks.system += busy / 3;
        ticks.idle += 200 - busy - busy / 3;
        machine.memory = VirtualMemoryStatistics{
            static_cast<std::uint64_t>((8.2 + load) * gibi) / machine.pageSize(), 0, 0};
        auto& counters = *machine.network->front().counters;
        counters.outputBytes += static_cast<std::uint32_t>(upload * load);
        counters.inputBytes += static_cast<std::uint32_t>(download * wave(*step + 9));
    };
}

void script(SimulatedSMCService& smc) {
    smc.values["TC0P"] = {"sp78", {52, 0}}; // 52 °C
}

void script(SimulatedFileSystem& files, Date now) {
    struct Entry {
        const char* text;
        bool isCompleted;
        Seconds age;
    };
    constexpr Entry tasks[] = {{"Water the plants", true, 90000},
                               {"Send the slides to Mara", false, 7200},
                               {"Book the train to Vienna", false, 3600},
                               {"Buy oat milk and coffee", false, 600}};
    constexpr Entry notes[] = {{"Wi-Fi of the meeting room: blue door, third floor", false, 1200},
                               {"Idea: draw the ring in the colour of the phase", false, 5400},
                               {"Gate code 4711", false, 86400}};
    const auto fileOf = [&](auto& entries, const char* textKey, bool hasMark) {
        Json::Array list;
        for (const auto& entry : entries) {
            Json::Object record{{"id", UUID::random().text()},
                                {textKey, entry.text},
                                {"createdAt", (now + -entry.age).sinceReference}};
            if (hasMark)
                record["isCompleted"] = entry.isCompleted;
            list.push_back(std::move(record));
        }
        return Json(std::move(list)).text();
    };
    const auto folder = files.applicationSupportDirectory() + "/Orvelle/";
    files.files[folder + "todo_items.json"] = fileOf(tasks, "title", true);
    files.files[folder + "note_items.json"] = fileOf(notes, "text", false);
}

void script(SimulatedPasteboard& pasteboard, SimulatedFrontmostApplication& frontmost) {
    struct Copy {
        const char* text;
        const char* source;
    };
    static constexpr Copy copies[] = {
        {"The quick brown fox jumps over the lazy dog.", "Text Editor"},
        {"https://www.example.org/articles/notch", "Browser"},
        {"let panel = NotchPanel(frame: frame)", "Code"},
        {"mara@mail.example", "Mail"},
        {"3.14159", "Calculator"}};
    pasteboard.onLook = [&frontmost, looks = std::size_t{0}](SimulatedPasteboard& board) mutable {
        // What is there at the first look counts as copied before.
        const auto index = looks++;
        if (index == 0 || index > std::size(copies))
            return;
        const auto& copy = copies[index - 1];
        frontmost.application = ApplicationIdentity{std::nullopt, copy.source};
        board.copy(copy.text);
    };
}

} // namespace orvelle::DemoMachine
