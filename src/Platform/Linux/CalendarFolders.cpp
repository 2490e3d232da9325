#include "Platform/Linux/CalendarFolders.h"

#include "Platform/Linux/BaseFolders.h"
#include "Platform/Linux/SmallFile.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>

namespace orvelle {

namespace {

namespace fs = std::filesystem;

bool exists(const std::string& folder) {
    return access(folder.c_str(), F_OK) == 0;
}

bool mayRead(const std::string& folder) {
    return access(folder.c_str(), R_OK | X_OK) == 0;
}

std::optional<std::string> firstLine(const fs::path& file) {
    auto text = readSmallFile(file.string());
    if (!text)
        return std::nullopt;
    text->erase(std::min(text->find_first_of("\r\n"), text->size()));
    if (text->empty())
        return std::nullopt;
    return text;
}

/// "#RRGGBB", with or without an alpha after it.
std::optional<Color> parseColor(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text[0] != '#')
        return std::nullopt;
    double parts[3];
    for (std::size_t part = 0; part < 3; ++part) {
        int value = 0;
        for (const char digit : text.substr(1 + 2 * part, 2)) {
            constexpr std::string_view digits = "0123456789abcdef";
            const auto found = digits.find(static_cast<char>(digit | 0x20));
            if (found == std::string_view::npos)
                return std::nullopt;
            value = value * 16 + static_cast<int>(found);
        }
        parts[part] = value / 255.0;
    }
    return Color{parts[0], parts[1], parts[2]};
}

StoredEvent::Calendar vdirCalendar(const fs::path& folder) {
    StoredEvent::Calendar calendar;
    calendar.title = firstLine(folder / "displayname").value_or(folder.filename().string());
    if (const auto color = firstLine(folder / "color"))
        calendar.color = parseColor(*color).value_or(calendar.color);
    return calendar;
}

/// A key file with, among others, DisplayName=… and Color=….
StoredEvent::Calendar evolutionCalendar(const CalendarPlaces& places, const std::string& name) {
    StoredEvent::Calendar calendar;
    calendar.title = name;
    const auto source = name == "system" ? "system-calendar" : name;
    constexpr std::size_t limit = 64 << 10;
    const auto text = readSmallFile(places.evolutionSources + '/' + source + ".source", limit);
    std::string_view rest = text ? std::string_view(*text) : std::string_view();
    while (!rest.empty()) {
        const auto line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        constexpr std::string_view nameKey = "DisplayName=";
        constexpr std::string_view colorKey = "Color=";
        if (line.starts_with(nameKey))
            calendar.title = line.substr(nameKey.size());
        else if (line.starts_with(colorKey))
            calendar.color = parseColor(line.substr(colorKey.size())).value_or(calendar.color);
    }
    return calendar;
}

class Search {
public:
    explicit Search(CalendarFolders& found) : found_(found) {}

    /// A folder with iCalendar files is a collection, whatever lies below it.
    template <class Describe>
    void visit(const fs::path& path, int depth, Describe describe) {
        std::error_code missing;
        auto folder = fs::canonical(path, missing); // each folder once, however it is reached
        if (missing)
            folder = path;
        if (found_.visited.size() >= CalendarFolders::maximumFolders ||
            std::ranges::find(found_.visited, folder.string()) != found_.visited.end())
            return;
        found_.visited.push_back(folder.string());
        std::vector<fs::path> folders;
        CalendarCollection collection;
        list(folder, folders, collection.files);
        if (!collection.files.empty()) {
            collection.calendar = describe(folder);
            found_.collections.push_back(std::move(collection));
        }
        if (depth > 0)
            for (const auto& each : folders)
                visit(each, depth - 1, describe);
    }

private:
    void list(const fs::path& folder, std::vector<fs::path>& folders,
              std::vector<std::string>& files) {
        std::error_code failure;
        fs::directory_iterator entries(folder, failure);
        for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
            const auto& path = entries->path();
            if (path.filename().string().starts_with('.'))
                continue;
            std::error_code gone;
            if (path.extension() == ".ics") {
                if (entries->is_regular_file(gone) && fileCount_++ < CalendarFolders::maximumFiles)
                    files.push_back(path.string());
            } else if (entries->is_directory(gone)) {
                folders.push_back(path);
            }
        }
        std::ranges::sort(folders);
        std::ranges::sort(files);
    }

    CalendarFolders& found_;
    std::size_t fileCount_ = 0;
};

} // namespace

CalendarPlaces CalendarPlaces::ofUser(const std::string& further) {
    const auto data = baseFolder("XDG_DATA_HOME", ".local/share");
    CalendarPlaces places{
        {data + "/calendars", data + "/khal/calendars",
         homeFolder() + "/.local/share/khal/calendars", homeFolder() + "/.calendars"},
        data + "/evolution/calendar",
        baseFolder("XDG_CONFIG_HOME", ".config") + "/evolution/sources",
    };
    std::string_view rest = further;
    while (!rest.empty()) {
        const auto folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (folder.starts_with("~/"))
            places.roots.push_back(homeFolder() + std::string(folder.substr(1)));
        else if (folder.starts_with('/'))
            places.roots.emplace_back(folder);
    }
    return places;
}

bool CalendarPlaces::isReadable() const {
    bool isAnyThere = false;
    auto folders = roots;
    folders.push_back(evolutionData);
    for (const auto& folder : folders) {
        if (mayRead(folder))
            return true;
        isAnyThere = isAnyThere || exists(folder);
    }
    return !isAnyThere;
}

CalendarFolders CalendarFolders::find(const CalendarPlaces& places) {
    CalendarFolders found;
    Search search(found);
    for (const auto& root : places.roots)
        search.visit(root, maximumDepth, vdirCalendar);
    search.visit(places.evolutionData, 1, [&](const fs::path& folder) {
        return evolutionCalendar(places, folder.filename().string());
    });
    return found;
}

} // namespace orvelle
