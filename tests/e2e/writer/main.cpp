// Changes one kind of saved thing, on and on, until it is killed: "todo", "notes", "stocks",
// "shelf", "settings" or "weather", under a name of its own, so that several may work on one
// folder. After each save that is on the disk it writes the number of its latest record to its
// output.

#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/Todo/TodoManager.h"
#include "Foundation/FileURL.h"
#include "Platform/FileUserDefaults.h"
#include "Platform/Linux/PosixFileCopier.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <QCoreApplication>

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

using namespace orvelle;

namespace {

/// The largest N of the "NAME-N"s in a text, 0 without one.
int latestIn(std::string_view text, const std::string& name) {
    const auto mark = name + "-";
    int latest = 0;
    for (auto at = text.find(mark); at != text.npos; at = text.find(mark, at + 1)) {
        int number = 0;
        std::from_chars(text.data() + at + mark.size(), text.data() + text.size(), number);
        latest = std::max(latest, number);
    }
    return latest;
}

/// Tells each write that is done.
class TellingFileSystem : public PosixFileSystem {
public:
    explicit TellingFileSystem(std::string name) : name_(std::move(name)) {}

    WriteOutcome write(const std::string& path, std::string_view bytes) override {
        const auto written = PosixFileSystem::write(path, bytes);
        if (written)
            tell(std::to_string(latestIn(bytes, name_)) + "\n");
        return written;
    }

private:
    static void tell(const std::string& line) {
        if (::write(STDOUT_FILENO, line.data(), line.size()) < 0)
            _exit(1);
    }

    std::string name_;
};

struct Machine : SimulatedPlatform {
    explicit Machine(const std::string& name) : files(name) {}

    TellingFileSystem files;
    PosixFileCopier copier;
    QtRunLoop loop;
    SimulatedFileWatch watch;
    FileUserDefaults defaults{files, loop, watch, logPort, unsavedChanges()};

    FileSystem& fileSystem() override { return files; }
    FileCopier& fileCopier() override { return copier; }
    RunLoop& runLoop() override { return loop; }
    UserDefaults& userDefaults() override { return defaults; }
};

/// Adds the record of this text; and those of its kind that are there already, the oldest first,
/// with what removes one.
struct Records {
    std::function<void(const std::string& text)> add;
    std::function<std::vector<std::string>()> texts;
    std::function<void(const std::string& text)> remove;
};

template <class Manager, class Item>
Records listRecords(Machine& machine, Published<std::vector<Item>> Manager::*list,
                    std::string Item::*text, void (Manager::*add)(std::string_view),
                    void (Manager::*remove)(const Item&)) {
    const auto manager = std::make_shared<Manager>(machine);
    return {[=](const std::string& added) { (*manager.*add)(added); },
            [=] {
                std::vector<std::string> texts;
                for (const auto& item : ((*manager).*list).get())
                    texts.push_back(item.*text);
                return texts;
            },
            [=](const std::string& removed) {
                const auto items = ((*manager).*list).get();
                for (const auto& item : items)
                    if (item.*text == removed)
                        ((*manager).*remove)(item);
            }};
}

Records shelfRecords(Machine& machine, const std::string& sources) {
    const auto shelf = std::make_shared<FileShelfManager>(machine);
    return {[=](const std::string& name) {
                std::ofstream(sources + "/" + name) << name;
                shelf->addFile(FileURL::ofPath(sources + "/" + name));
            },
            [=] {
                std::vector<std::string> names;
                for (const auto& item : shelf->items.get())
                    names.push_back(item.name);
                return names;
            },
            [=](const std::string& name) {
                const auto items = shelf->items.get();
                for (const auto& item : items)
                    if (item.name == name)
                        shelf->removeFile(item);
            }};
}

/// One key for each writer, or those of the weather, all of one number.
Records settingRecords(Machine& machine, const std::string& name, bool isWeather) {
    auto& defaults = machine.userDefaults();
    return {
        [&defaults, name, isWeather](const std::string& text) {
            defaults.set(isWeather ? "weather_locationName" : name, text);
            if (!isWeather)
                return;
            const auto number = static_cast<std::int64_t>(latestIn(text, name));
            defaults.set("weather_humidity", number);
            defaults.set("weather_weatherCode", number);
        },
        [&defaults, name] { return std::vector<std::string>{defaults.string(name).value_or("")}; },
        [](const std::string&) {}};
}

Records recordsOf(const std::string& kind, const std::string& name, const std::string& sources,
                  Machine& machine) {
    if (kind == "todo")
        return listRecords(machine, &TodoManager::items, &TodoItem::title, &TodoManager::addItem,
                           &TodoManager::removeItem);
    if (kind == "notes")
        return listRecords(machine, &NotesManager::items, &NoteItem::text, &NotesManager::addItem,
                           &NotesManager::removeItem);
    if (kind == "stocks")
        return listRecords(machine, &StockTickerManager::tickers, &StockTicker::symbol,
                           &StockTickerManager::addTicker, &StockTickerManager::removeTicker);
    if (kind == "shelf")
        return shelfRecords(machine, sources);
    return settingRecords(machine, name, kind == "weather");
}

} // namespace

int main(int count, char** values) {
    const QCoreApplication application(count, values);
    if (count != 4) {
        std::cerr << "Usage: orvelle_list_writer KIND NAME FOLDER\n";
        return 2;
    }
    const std::string kind = values[1];
    const std::string name = values[2];
    Machine machine(name);
    const auto records = recordsOf(kind, name, values[3], machine);
    if (!machine.logPort.lines.empty())
        return 3; // what was left cannot be read
    const std::size_t longest = kind == "shelf" ? 5 : 20;
    int latest = 0;
    for (const auto& text : records.texts())
        latest = std::max(latest, latestIn(text, name));
    const auto timer = machine.loop.every(kind == "shelf" ? 0.005 : 0.0005, [&] {
        records.add(name + "-" + std::to_string(++latest));
        std::vector<int> own;
        for (const auto& text : records.texts())
            if (const int number = latestIn(text, name))
                own.push_back(number);
        if (own.size() > longest)
            records.remove(name + "-" + std::to_string(*std::ranges::min_element(own)));
    });
    return QCoreApplication::exec();
}
