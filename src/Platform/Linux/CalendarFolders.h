#pragma once

#include "Platform/EventStore.h"
#include "Platform/Linux/CalendarDisk.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvelle {

/// A folder where this user's calendars may lie.
struct CalendarPlace {
    /// Of vdir collections, or of folders of them; or a collection itself.
    std::string folder;
    /// For GNOME's local calendars, of which `folder` has a folder each: their names and colours.
    std::string evolutionSources = {};
    bool operator==(const CalendarPlace&) const = default;

    /// The XDG data folder's "calendars" and "khal/calendars", "~/.local/share/khal/calendars",
    /// "~/.calendars", GNOME's own, and `further` folders, separated by colons. Each once.
    static std::vector<CalendarPlace> ofUser(const std::string& further = {});
};

/// One calendar: a folder of iCalendar files.
struct CalendarCollection {
    std::string folder; ///< by its one path
    StoredEvent::Calendar calendar;
    std::vector<std::string> files; ///< by name
};

/// What stands in a place at one moment.
struct CalendarFolders {
    static constexpr int maximumDepth = 3; ///< of folders below a place
    static constexpr std::size_t maximumFolders = 200;
    static constexpr std::size_t maximumFiles = 20000;

    std::vector<CalendarCollection> collections; ///< by path
    std::vector<std::string>
        visited; ///< every folder whose changes matter, a missing place included

    /// Takes as long as the disk does.
    static CalendarFolders find(const CalendarPlace& place, const CalendarDisk& disk);
};

} // namespace orvelle
