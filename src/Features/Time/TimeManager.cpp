#include "Features/Time/TimeManager.h"

#include "Models/Symbol.h"
#include "Platform/Formatting.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace orvelle {

namespace {

struct Candidate {
    const char* city;
    const char* zone;
};

constexpr Candidate candidates[] = {
    {"Honolulu", "Pacific/Honolulu"},
    {"Anchorage", "America/Anchorage"},
    {"Los Angeles", "America/Los_Angeles"},
    {"Denver", "America/Denver"},
    {"Chicago", "America/Chicago"},
    {"New York", "America/New_York"},
    {"Halifax", "America/Halifax"},
    {"São Paulo", "America/Sao_Paulo"},
    {"Azores", "Atlantic/Azores"},
    {"London", "Europe/London"},
    {"Paris", "Europe/Paris"},
    {"Cairo", "Africa/Cairo"},
    {"Istanbul", "Europe/Istanbul"},
    {"Moscow", "Europe/Moscow"},
    {"Dubai", "Asia/Dubai"},
    {"Karachi", "Asia/Karachi"},
    {"Kolkata", "Asia/Kolkata"},
    {"Dhaka", "Asia/Dhaka"},
    {"Bangkok", "Asia/Bangkok"},
    {"Singapore", "Asia/Singapore"},
    {"Tokyo", "Asia/Tokyo"},
    {"Sydney", "Australia/Sydney"},
    {"Auckland", "Pacific/Auckland"},
};

constexpr std::size_t shownZones = 5;

} // namespace

TimeManager::TimeManager(Platform& platform)
    : FeatureModule("time", "World Clock", std::string("clock"_symbol)),
      currentTime(platform.runLoop().now()), platform_(platform) {}

void TimeManager::start() {
    if (!isEnabled)
        return;
    currentTime = platform_.runLoop().now();
    timer = platform_.runLoop().every(updateInterval,
                                      [this] { currentTime = platform_.runLoop().now(); });
}

std::string TimeManager::compactTimeString() const {
    return localText(compactTimePattern);
}

std::string TimeManager::localTimeString() const {
    return localText("h:mm:ss a");
}

std::string TimeManager::localDateString() const {
    return localText("EEEE, MMMM d");
}

std::string TimeManager::localText(const char* pattern) const {
    const auto& formatting = platform_.formatting();
    return formatting.date(currentTime, pattern, formatting.currentTimeZone());
}

std::string TimeManager::localTimezoneString() const {
    const auto& formatting = platform_.formatting();
    const auto zone = formatting.currentTimeZone();
    const auto name = formatting.standardName(zone).value_or(zone.identifier);
    return name + " (" + utcOffsetLabel(formatting.secondsFromGMT(zone, currentTime)) + ")";
}

std::vector<WorldClockEntry> TimeManager::surroundingTimezones() const {
    const auto& formatting = platform_.formatting();
    const int local = formatting.secondsFromGMT(formatting.currentTimeZone(), currentTime);

    struct Neighbour {
        int offset;
        const Candidate* candidate; ///< compares in the order of the list, which settles ties
        TimeZone zone;
    };
    std::vector<Neighbour> neighbours;
    for (const auto& candidate : candidates) {
        const auto zone = formatting.timeZone(candidate.zone);
        if (!zone)
            continue;
        const int offset = formatting.secondsFromGMT(*zone, currentTime);
        if (offset != local)
            neighbours.push_back({offset, &candidate, *zone});
    }

    std::ranges::sort(neighbours, {}, [local](const Neighbour& neighbour) {
        return std::pair(std::abs(neighbour.offset - local), neighbour.candidate);
    });
    if (neighbours.size() > shownZones)
        neighbours.erase(neighbours.begin() + shownZones, neighbours.end());
    std::ranges::sort(neighbours, {}, [](const Neighbour& neighbour) {
        return std::pair(neighbour.offset, neighbour.candidate);
    });

    std::vector<WorldClockEntry> entries;
    entries.reserve(neighbours.size());
    for (const auto& neighbour : neighbours)
        entries.push_back({neighbour.candidate->zone, neighbour.candidate->city, neighbour.zone});
    return entries;
}

} // namespace orvelle
