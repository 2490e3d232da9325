#include "Platform/Ical/ZoneTable.h"

#include <string_view>
#include <utility>

namespace orvelle {

namespace {

/// Changes that come once a year, between the years that a zone's history spans.
bool isPlausible(icalcomponent* observance) {
    const auto start = icalcomponent_get_dtstart(observance);
    if (icaltime_is_null_time(start) || start.year < 1600)
        return false;
    int rules = 0;
    for (auto* property = icalcomponent_get_first_property(observance, ICAL_RRULE_PROPERTY);
         property; property = icalcomponent_get_next_property(observance, ICAL_RRULE_PROPERTY)) {
        const auto rule = icalproperty_get_rrule(property);
        const bool isYearly = rule.freq == ICAL_YEARLY_RECURRENCE &&
                              rule.by_hour[0] == ICAL_RECURRENCE_ARRAY_MAX &&
                              rule.by_minute[0] == ICAL_RECURRENCE_ARRAY_MAX &&
                              rule.by_second[0] == ICAL_RECURRENCE_ARRAY_MAX &&
                              rule.by_year_day[0] == ICAL_RECURRENCE_ARRAY_MAX &&
                              rule.by_week_no[0] == ICAL_RECURRENCE_ARRAY_MAX &&
                              rule.by_set_pos[0] == ICAL_RECURRENCE_ARRAY_MAX;
        if (!isYearly || ++rules > 1)
            return false;
    }
    return true;
}

bool isPlausibleZone(icalcomponent* zone) {
    constexpr int maximumParts = 200;
    int parts = 0;
    for (auto* part = icalcomponent_get_first_component(zone, ICAL_ANY_COMPONENT); part;
         part = icalcomponent_get_next_component(zone, ICAL_ANY_COMPONENT))
        if (!isPlausible(part) || ++parts > maximumParts)
            return false;
    return parts > 0;
}

icaltimezone* systemZone(const char* identifier) {
    if (std::string_view(identifier) == "Etc/UTC")
        return icaltimezone_get_utc_timezone();
    return icaltimezone_get_builtin_timezone(identifier);
}

/// "/vendor/prefix/Europe/Berlin" names the system's "Europe/Berlin".
icaltimezone* zoneAtEnd(std::string_view identifier) {
    while (!identifier.empty()) {
        const auto slash = identifier.find('/');
        if (slash == std::string_view::npos)
            return nullptr;
        identifier.remove_prefix(slash + 1);
        if (identifier.find('/') == std::string_view::npos)
            return nullptr;
        if (auto* zone = systemZone(std::string(identifier).c_str()))
            return zone;
    }
    return nullptr;
}

} // namespace

ZoneTable::ZoneTable(const std::string& local) : local_(systemZone(local.c_str())) {
    if (!local_)
        local_ = icaltimezone_get_utc_timezone();
}

void ZoneTable::add(const std::string& text) {
    IcalHandle<icalcomponent> component(icalcomponent_new_from_string(text.c_str()));
    if (!component || own_.size() >= capacity || !isPlausibleZone(component.get()))
        return;
    auto* property = icalcomponent_get_first_property(component.get(), ICAL_TZID_PROPERTY);
    const char* identifier = property ? icalproperty_get_tzid(property) : nullptr;
    if (!identifier || own_.contains(identifier))
        return;
    const std::string name = identifier;
    IcalHandle<icaltimezone> zone(icaltimezone_new());
    if (zone && icaltimezone_set_component(zone.get(), component.get())) {
        static_cast<void>(component.release()); // the zone owns it now
        own_.emplace(name, std::move(zone));
    }
}

icaltimezone* ZoneTable::find(const char* identifier) const {
    if (!identifier)
        return nullptr;
    if (auto* zone = systemZone(identifier))
        return zone;
    if (const auto found = own_.find(std::string_view(identifier)); found != own_.end())
        return found->second.get();
    return zoneAtEnd(identifier);
}

} // namespace orvelle
