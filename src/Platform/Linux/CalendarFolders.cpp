#include "Platform/Linux/CalendarFolders.h"

#include "Platform/Linux/BaseFolders.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace orvelle {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t smallSize = 4096;

std::optional<std::string> firstLine(const CalendarDisk& disk, const fs::path& file) {
    auto text = disk.smallFile(file.string(), smallSize);
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

StoredEvent::Calendar vdirCalendar(const CalendarDisk& disk, const fs::path& folder) {
    StoredEvent::Calendar calendar;
    calendar.title = firstLine(disk, folder / "displayname").value_or(folder.filename().string());
    if (const auto color = firstLine(disk, folder / "color"))
        calendar.color = parseColor(*color).value_or(calendar.color);
    return calendar;
}

/// A key file with, among others, DisplayName=… and Color=….
StoredEvent::Calendar evolutionCalendar(const CalendarDisk& disk, const std::string& sources,
                                        const std::string& name) {
    StoredEvent::Calendar calendar;
    calendar.title = name;
    const auto source = name == "system" ? "system-calendar" : name;
    constexpr std::size_t limit = 64 << 10;
    const auto text = disk.smallFile(sources + '/' + source + ".source", limit);
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
    Search(const CalendarPlace& place, const CalendarDisk& disk, CalendarFolders& found)
        : place_(place), disk_(disk), found_(found) {}

    /// A folder with iCalendar files is a collection, whatever lies below it.
    void visit(const std::string& path, int depth) {
        const auto folder = disk_.canonical(path); // each folder once, however it is reached
        if (found_.visited.size() >= CalendarFolders::maximumFolders ||
            std::ranges::find(found_.visited, folder) != found_.visited.end())
            return;
        found_.visited.push_back(folder);
        auto entries = disk_.entries(folder);
        fileCount_ += entries.calendars.size();
        if (fileCount_ > CalendarFolders::maximumFiles) {
            const auto excess =
                std::min(fileCount_ - CalendarFolders::maximumFiles, entries.calendars.size());
            entries.calendars.resize(entries.calendars.size() - excess);
        }
        if (!entries.calendars.empty())
            found_.collections.push_back({folder, describe(folder), std::move(entries.calendars)});
        if (depth > 0)
            for (const auto& each : entries.folders)
                visit(each, depth - 1);
    }

private:
    StoredEvent::Calendar describe(const fs::path& folder) const {
        if (place_.evolutionSources.empty())
            return vdirCalendar(disk_, folder);
        return evolutionCalendar(disk_, place_.evolutionSources, folder.filename().string());
    }

    const CalendarPlace& place_;
    const CalendarDisk& disk_;
    CalendarFolders& found_;
    std::size_t fileCount_ = 0;
};

} // namespace

std::vector<CalendarPlace> CalendarPlace::ofUser(const std::string& further) {
    const auto data = baseFolder("XDG_DATA_HOME", ".local/share");
    std::vector<CalendarPlace> places;
    const auto add = [&](CalendarPlace place) {
        if (std::ranges::find(places, place) == places.end())
            places.push_back(std::move(place));
    };
    add({data + "/calendars"});
    add({data + "/khal/calendars"});
    add({homeFolder() + "/.local/share/khal/calendars"});
    add({homeFolder() + "/.calendars"});
    add({data + "/evolution/calendar",
         baseFolder("XDG_CONFIG_HOME", ".config") + "/evolution/sources"});
    std::string_view rest = further;
    while (!rest.empty()) {
        const auto folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (folder.starts_with("~/"))
            add({homeFolder() + std::string(folder.substr(1))});
        else if (folder.starts_with('/'))
            add({std::string(folder)});
    }
    return places;
}

CalendarFolders CalendarFolders::find(const CalendarPlace& place, const CalendarDisk& disk) {
    CalendarFolders found;
    Search(place, disk, found)
        .visit(place.folder, place.evolutionSources.empty() ? maximumDepth : 1);
    return found;
}

} // namespace orvelle
