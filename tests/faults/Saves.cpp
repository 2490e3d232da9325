#include "faults/Saves.h"

#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/Todo/TodoManager.h"
#include "Features/Weather/WeatherManager.h"
#include "Foundation/FileURL.h"
#include "Support/Replies.h"
#include "Support/TemporaryFolder.h"

#include <algorithm>

namespace orvelle {

namespace {

constexpr int removal = 3; ///< the number of the change that removes the record of the first

class SettingsSaving : public Saving {
public:
    explicit SettingsSaving(DiskMachine& machine) : defaults_(machine.userDefaults()) {}
    void change(int number, Records& kept) override {
        if (number == removal) {
            defaults_.remove("key0");
            kept.erase("key0=0");
            return;
        }
        defaults_.set("key" + std::to_string(number), std::int64_t{number});
        kept.insert("key" + std::to_string(number) + "=" + std::to_string(number));
    }
    Records records() override {
        Records found;
        for (const auto& key : defaults_.keys())
            found.insert(key + "=" + std::to_string(defaults_.integer(key)));
        return found;
    }

private:
    UserDefaults& defaults_;
};

/// A list of texts, in a manager's own words.
template <class Manager, class Item, std::string Item::*text>
class ListRecords : public Saving {
public:
    using Add = void (*)(Manager&, const std::string&);
    using Remove = void (*)(Manager&, const Item&);
    using List = const std::vector<Item>& (*)(const Manager&);

    ListRecords(DiskMachine& machine, Add add, Remove remove, List list)
        : manager_(machine), add_(add), remove_(remove), list_(list) {}

    void change(int number, Records& kept) override {
        if (number != removal) {
            add_(manager_, "T" + std::to_string(number));
            kept.insert("T" + std::to_string(number));
            return;
        }
        const auto list = list_(manager_);
        const auto found =
            std::ranges::find_if(list, [](const Item& item) { return item.*text == "T0"; });
        if (found == list.end())
            return;
        remove_(manager_, *found);
        kept.erase("T0");
    }
    Records records() override {
        Records found;
        for (const auto& item : list_(manager_))
            found.insert(item.*text);
        return found;
    }

private:
    Manager manager_;
    Add add_;
    Remove remove_;
    List list_;
};

class ShelfSaving : public Saving {
public:
    ShelfSaving(DiskMachine& machine, std::string sources)
        : machine_(machine), sources_(std::move(sources)), shelf_(machine) {}
    void change(int number, Records& kept) override {
        if (number == removal) {
            const auto items = shelf_.items.get();
            const auto found = std::ranges::find(items, "0", &ShelfItem::name);
            if (found == items.end())
                return;
            shelf_.removeFile(*found);
            kept.erase(record(*found));
            return;
        }
        const auto name = std::to_string(number);
        shelf_.addFile(FileURL::ofPath(sources_ + "/" + name));
        machine_.settle();
        for (const auto& item : shelf_.items.get())
            if (item.name == name)
                kept.insert(name + ":" + fileBytes(sources_ + "/" + name));
    }
    Records records() override {
        Records found;
        for (const auto& item : shelf_.items.get())
            found.insert(record(item));
        return found;
    }

private:
    static std::string record(const ShelfItem& item) {
        return item.name + ":" + fileBytes(FileURL::path(item.url).value_or(""));
    }

    DiskMachine& machine_;
    std::string sources_;
    FileShelfManager shelf_;
};

class WeatherSaving : public Saving {
public:
    explicit WeatherSaving(DiskMachine& machine) : machine_(machine), weather_(machine) {}
    void change(int number, Records& kept) override {
        machine_.httpClientPort.respond = [number](const HttpRequest&) {
            return Replies::ok(Replies::forecast(number + 1, 1, number + 1));
        };
        weather_.lastLocation = Coordinate{48.0, 2.25};
        weather_.refreshWeather();
        machine_.settle();
        kept = records();
    }
    Records records() override {
        const auto& now = weather_.weather.get();
        if (now.temperature == 0)
            return {};
        return {std::to_string(now.temperature) + "/" + std::to_string(now.weatherCode)};
    }

private:
    DiskMachine& machine_;
    WeatherManager weather_;
};

} // namespace

std::vector<SavingKind> savingKinds(const std::string& sources) {
    using Todo = ListRecords<TodoManager, TodoItem, &TodoItem::title>;
    using Notes = ListRecords<NotesManager, NoteItem, &NoteItem::text>;
    using Stocks = ListRecords<StockTickerManager, StockTicker, &StockTicker::symbol>;
    return {
        {"settings",
         [](DiskMachine& machine) { return std::make_unique<SettingsSaving>(machine); }},
        {"todo",
         [](DiskMachine& machine) {
             return std::make_unique<Todo>(
                 machine,
                 [](TodoManager& manager, const std::string& text) { manager.addItem(text); },
                 [](TodoManager& manager, const TodoItem& item) { manager.removeItem(item); },
                 [](const TodoManager& manager) -> const std::vector<TodoItem>& {
                     return manager.items.get();
                 });
         }},
        {"notes",
         [](DiskMachine& machine) {
             return std::make_unique<Notes>(
                 machine,
                 [](NotesManager& manager, const std::string& text) { manager.addItem(text); },
                 [](NotesManager& manager, const NoteItem& item) { manager.removeItem(item); },
                 [](const NotesManager& manager) -> const std::vector<NoteItem>& {
                     return manager.items.get();
                 });
         }},
        {"stocks",
         [](DiskMachine& machine) {
             return std::make_unique<Stocks>(
                 machine,
                 [](StockTickerManager& manager, const std::string& symbol) {
                     manager.addTicker(symbol);
                 },
                 [](StockTickerManager& manager, const StockTicker& ticker) {
                     manager.removeTicker(ticker);
                 },
                 [](const StockTickerManager& manager) -> const std::vector<StockTicker>& {
                     return manager.tickers.get();
                 });
         }},
        {"shelf copy and list",
         [sources](DiskMachine& machine) {
             return std::make_unique<ShelfSaving>(machine, sources);
         }},
        {"weather cache",
         [](DiskMachine& machine) { return std::make_unique<WeatherSaving>(machine); }},
    };
}

} // namespace orvelle
