#pragma once

#include "Platform/EventStore.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvelle {

/// Where this user's calendars may lie.
struct CalendarPlaces {
    /// Folders of vdir collections, or of folders of them; also collections themselves.
    std::vector<std::string> roots;
    std::string evolutionData;    ///< a folder for each of GNOME's local calendars
    std::string evolutionSources; ///< their names and colours

    /// The XDG data folder's "calendars" and "khal/calendars", "~/.local/share/khal/calendars",
    /// "~/.calendars", GNOME's own, and `further` folders, separated by colons.
    static CalendarPlaces ofUser(const std::string& further = {});

    /// Whether any of the folders that exist may be read; also when none exists.
    bool isReadable() const;
};

/// One calendar: a folder of iCalendar files.
struct CalendarCollection {
    StoredEvent::Calendar calendar;
    std::vector<std::string> files; ///< by name
};

/// What stands in the places at one moment.
struct CalendarFolders {
    static constexpr int maximumDepth = 3; ///< of folders below a root
    static constexpr std::size_t maximumFolders = 200;
    static constexpr std::size_t maximumFiles = 20000;

    std::vector<CalendarCollection> collections; ///< by path
    std::vector<std::string> visited; ///< every folder whose changes matter, missing roots included

    /// Takes as long as the disk does.
    static CalendarFolders find(const CalendarPlaces& places);
};

} // namespace orvelle
