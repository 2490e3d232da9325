#include "Platform/Ical/IcalEvent.h"

#include <algorithm>
#include <string_view>

namespace orvelle {

namespace {

constexpr std::size_t maximumRules = 8;

/// As one line, without the blanks around it; none when nothing is left.
std::optional<std::string> line(const char* text) {
    std::string line = text ? text : "";
    for (char& each : line)
        if (static_cast<unsigned char>(each) < ' ' || each == 0x7f)
            each = ' ';
    const auto first = line.find_first_not_of(' ');
    if (first == std::string::npos)
        return std::nullopt;
    return line.substr(first, line.find_last_not_of(' ') + 1 - first);
}

class PropertyReader {
public:
    PropertyReader(IcalEvent& event, const ZoneTable& zones) : event_(event), zones_(zones) {}

    std::optional<IcalMoment> moment(icalproperty* property, icaltimetype time) {
        constexpr int lastYear = 9999;
        if (icaltime_is_null_time(time) || !icaltime_is_valid_time(time) || time.year < 1 ||
            time.year > lastYear)
            return std::nullopt;
        if (icaltime_is_utc(time))
            time.zone = icaltimezone_get_utc_timezone();
        else
            time.zone = time.is_date ? zones_.local() : zoneOf(property);
        const auto instant =
            icaltime_as_timet_with_zone(time, const_cast<icaltimezone*>(time.zone));
        return IcalMoment{time, instant};
    }
    std::optional<IcalMoment> moment(icalproperty* property) {
        return moment(property, icalvalue_get_datetimedate(icalproperty_get_value(property)));
    }

    /// How long the event lasts from its start on, by this DTEND.
    std::time_t durationUntil(icalproperty* property) {
        const auto end = moment(property);
        if (!end)
            return 0;
        const auto& start = *event_.start;
        if (start.time.is_date && end->time.is_date)
            return (days(end->time) - days(start.time)) * 86400;
        return end->instant - start.instant;
    }

    /// Seconds; a period has an end or a duration.
    std::time_t lengthOf(icalproperty* property, const IcalMoment& start,
                         const icalperiodtype& period) {
        const auto end = moment(property, period.end);
        const auto length =
            end ? end->instant - start.instant : icaldurationtype_as_int(period.duration);
        return std::max<std::time_t>(length, 0);
    }

private:
    icaltimezone* zoneOf(icalproperty* property) {
        auto* parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
        if (!parameter)
            return zones_.local();
        if (auto* zone = zones_.find(icalparameter_get_tzid(parameter)))
            return zone;
        event_.needsLaterZone = true;
        return zones_.local();
    }

    static std::time_t days(icaltimetype date) {
        date.zone = nullptr;
        return icaltime_as_timet(date) / 86400;
    }

    IcalEvent& event_;
    const ZoneTable& zones_;
};

/// Whether the value is of a kind that has a date.
bool hasDate(icalproperty* property) {
    const auto* value = icalproperty_get_value(property);
    if (!value)
        return false;
    const auto kind = icalvalue_isa(value);
    return kind == ICAL_DATE_VALUE || kind == ICAL_DATETIME_VALUE ||
           kind == ICAL_DATETIMEDATE_VALUE;
}

template <class Use>
void forEach(icalcomponent* component, icalproperty_kind kind, Use use) {
    for (auto* property = icalcomponent_get_first_property(component, kind); property;
         property = icalcomponent_get_next_property(component, kind))
        use(property);
}

} // namespace

IcalEvent IcalEvent::read(icalcomponent* component, const ZoneTable& zones) {
    IcalEvent event;
    PropertyReader reader(event, zones);
    const auto first = [&](icalproperty_kind kind) {
        return icalcomponent_get_first_property(component, kind);
    };

    auto* start = first(ICAL_DTSTART_PROPERTY);
    if (start && hasDate(start))
        event.start = reader.moment(start);
    if (!event.start)
        return event;
    if (auto* end = first(ICAL_DTEND_PROPERTY); end && hasDate(end))
        event.duration = reader.durationUntil(end);
    else if (auto* duration = first(ICAL_DURATION_PROPERTY))
        event.duration = icaldurationtype_as_int(icalproperty_get_duration(duration));
    else if (event.isAllDay())
        event.duration = 86400;
    event.duration = std::max<std::time_t>(event.duration, 0);

    if (auto* property = first(ICAL_RECURRENCEID_PROPERTY); property && hasDate(property))
        event.recurrenceId = reader.moment(property);
    forEach(component, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
        if (event.rules.size() < maximumRules)
            event.rules.push_back(icalproperty_get_rrule(property));
    });
    forEach(component, ICAL_RDATE_PROPERTY, [&](icalproperty* property) {
        const auto date = icalproperty_get_rdate(property);
        if (!icaltime_is_null_time(date.time)) {
            if (const auto moment = reader.moment(property, date.time))
                event.furtherDates.push_back({*moment, std::nullopt});
        } else if (const auto moment = reader.moment(property, date.period.start)) {
            event.furtherDates.push_back(
                {*moment, reader.lengthOf(property, *moment, date.period)});
        }
    });
    forEach(component, ICAL_EXDATE_PROPERTY, [&](icalproperty* property) {
        if (!hasDate(property))
            return;
        if (const auto moment = reader.moment(property))
            event.exceptions.push_back(*moment);
    });

    if (auto* property = first(ICAL_UID_PROPERTY))
        event.uid = line(icalproperty_get_uid(property)).value_or("");
    if (auto* property = first(ICAL_SUMMARY_PROPERTY))
        event.title = line(icalproperty_get_summary(property));
    if (auto* property = first(ICAL_LOCATION_PROPERTY))
        event.location = line(icalproperty_get_location(property));
    if (auto* property = first(ICAL_URL_PROPERTY))
        event.url = line(icalproperty_get_url(property));
    if (auto* property = first(ICAL_STATUS_PROPERTY))
        event.isCancelled = icalproperty_get_status(property) == ICAL_STATUS_CANCELLED;
    return event;
}

} // namespace orvelle
