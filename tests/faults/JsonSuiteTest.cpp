#include "Features/FileShelf/FileShelfManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/Todo/TodoManager.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"
#include "faults/Saves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace orvelle {
namespace {

/// A file of the suite. Its name begins with "y_" when it is JSON, "n_" when not, and "i_" when
/// nobody can say.
struct SuiteFile {
    std::string name;
    std::string bytes;

    bool isJson() const { return name.starts_with("y_"); }
    bool isFirst(char character) const {
        const auto start = bytes.find_first_not_of(" \t\r\n");
        return start != bytes.npos && bytes[start] == character;
    }
    /// As a list.
    bool isEmpty() const {
        std::string text;
        for (const char each : bytes)
            if (std::string_view(" \t\r\n").find(each) == std::string_view::npos)
                text += each;
        return bytes.empty() || text == "[]";
    }
};

/// The package wraps an array of the files into a line of a script, and has the replacement
/// character for what is no UTF-8: the last files here are such.
std::vector<SuiteFile> suiteFiles() {
    std::vector<SuiteFile> files;
    for (const char* part : {"parsing", "transform"}) {
        const auto script = fileBytes(std::string(ORVELLE_JSON_SUITE) + "/" + part + ".js");
        const auto start = std::min(script.find('['), script.size());
        const auto array = Json::parse(std::string_view(script).substr(start));
        if (!array || !array->array())
            continue;
        for (const auto& element : *array->array())
            files.push_back({element.member("name").string().value_or(""),
                             element.member("input").string().value_or("")});
    }
    using namespace std::string_literals;
    files.push_back({"n_string_invalid_utf8", "[\"\xff\"]"});
    files.push_back({"n_string_overlong", "[\"\xc0\xaf\"]"});
    files.push_back({"n_string_lone_surrogate_bytes", "[\"\xed\xa0\x80\"]"});
    files.push_back({"n_string_truncated", "[\"\xe0\xff\"]"});
    files.push_back({"n_utf16le", "\xff\xfe[\0]\0"s});
    files.push_back({"n_utf16be_no_mark", "\0[\0\"\0\xe9\0\"\0]"s});
    files.push_back({"n_nul_bytes", "[\"a\0b\"]"s});
    return files;
}

class JsonSuite : public testing::Test {
protected:
    std::string corruptCopy(const std::string& path) const {
        return fileBytes(folder_ / (path + ".corrupt.1"));
    }
    bool hasCorruptCopy(const std::string& path) const {
        return std::filesystem::exists(folder_ / (path + ".corrupt.1"));
    }
    void clear() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            std::filesystem::remove_all(entry.path());
    }
    /// Starts over the file, saves, starts again. Gives how many files were kept aside.
    template <class Manager>
    int tryAsList(const std::string& path, const std::function<void(Manager&)>& add,
                  const std::function<std::size_t(const Manager&)>& count) {
        int kept = 0;
        for (const auto& file : files_) {
            clear();
            folder_.write(path, file.bytes);
            {
                DiskMachine machine;
                Manager manager(machine);
                EXPECT_EQ(count(manager), 0u) << file.name;
                add(manager);
                machine.settle();
                EXPECT_TRUE(machine.unsavedChanges().files->empty()) << file.name;
            }
            DiskMachine machine;
            EXPECT_EQ(count(Manager(machine)), 1u) << file.name;
            EXPECT_EQ(hasCorruptCopy(path), !file.isEmpty()) << file.name;
            if (!file.isEmpty()) {
                EXPECT_EQ(corruptCopy(path), file.bytes) << file.name;
            }
            kept += hasCorruptCopy(path) ? 1 : 0;
        }
        return kept;
    }
    void tell(const char* kind, int kept) const {
        std::printf("%-10s %4zu files, %4d kept aside\n", kind, files_.size(), kept);
    }

    const std::vector<SuiteFile> files_ = suiteFiles();
    TemporaryFolder folder_;
    TemporaryFolder sources_;
    const TemporaryVariable data_{"XDG_DATA_HOME", (folder_ / "share").c_str()};
    const TemporaryVariable config_{"XDG_CONFIG_HOME", (folder_ / "config").c_str()};
};

TEST_F(JsonSuite, IsThere) {
    const auto count = [this](const char* kind) {
        return std::ranges::count_if(
            files_, [&](const SuiteFile& file) { return file.name.starts_with(kind); });
    };
    EXPECT_GT(count("y_"), 90);
    EXPECT_GT(count("n_"), 180);
    EXPECT_GT(count("i_"), 30);
}

TEST_F(JsonSuite, EachFileAsTheSettingsStartsAndIsKept) {
    const std::string path = "config/orvelle/defaults.json";
    int kept = 0;
    for (const auto& file : files_) {
        clear();
        folder_.write(path, file.bytes);
        {
            DiskMachine machine;
            machine.userDefaults().set("own", true);
            machine.settle();
            EXPECT_TRUE(machine.unsavedChanges().files->empty()) << file.name;
        }
        DiskMachine machine;
        EXPECT_EQ(machine.userDefaults().storedBoolean("own"), true) << file.name;
        const bool isUsed = !hasCorruptCopy(path);
        kept += isUsed ? 0 : 1;
        if (!isUsed) {
            EXPECT_EQ(corruptCopy(path), file.bytes) << file.name;
        }
        if (file.isJson()) {
            EXPECT_EQ(isUsed, file.isFirst('{')) << file.name;
        } else if (file.name.starts_with("n_") && !file.bytes.empty()) {
            EXPECT_FALSE(isUsed) << file.name;
        }
    }
    tell("settings", kept);
}

TEST_F(JsonSuite, EachFileAsTheTasksStartsAndIsKept) {
    tell("todo",
         tryAsList<TodoManager>(
             "share/Orvelle/todo_items.json", [](TodoManager& manager) { manager.addItem("own"); },
             [](const TodoManager& manager) { return manager.items->size(); }));
}

TEST_F(JsonSuite, EachFileAsTheNotesStartsAndIsKept) {
    tell("notes",
         tryAsList<NotesManager>(
             "share/Orvelle/note_items.json", [](NotesManager& manager) { manager.addItem("own"); },
             [](const NotesManager& manager) { return manager.items->size(); }));
}

TEST_F(JsonSuite, EachFileAsTheStocksStartsAndIsKept) {
    tell("stocks", tryAsList<StockTickerManager>(
                       "share/Orvelle/stock_tickers.json",
                       [](StockTickerManager& manager) { manager.addTicker("OWN"); },
                       [](const StockTickerManager& manager) { return manager.tickers->size(); }));
}

TEST_F(JsonSuite, EachFileAsTheShelfsListStartsAndIsKept) {
    sources_.write("own", "text");
    tell("shelf",
         tryAsList<FileShelfManager>(
             "share/Orvelle/FileShelf/.shelf_metadata.json",
             [this](FileShelfManager& shelf) { shelf.addFile("file://" + (sources_ / "own")); },
             [](const FileShelfManager& shelf) { return shelf.items->size(); }));
}

TEST_F(JsonSuite, EachValueOfItInATaskLoads) {
    for (const auto& file : files_) {
        if (!file.isJson())
            continue;
        folder_.write("share/Orvelle/todo_items.json",
                      R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","title":"a",)"
                      R"("isCompleted":false,"createdAt":1,"further":)" +
                          file.bytes + "}]");
        DiskMachine machine;
        EXPECT_EQ(TodoManager(machine).items->size(), 1u) << file.name;
    }
}

} // namespace
} // namespace orvelle
