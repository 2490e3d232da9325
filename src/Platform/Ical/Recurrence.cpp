#include "Platform/Ical/Recurrence.h"

#include <algorithm>
#include <array>
#include <optional>

namespace orvelle::Recurrence {

namespace {

/// Those rules whose every step is one day or less. Looking for the next match of their conditions
/// the library would try each step, up to a far year when none matches; so the conditions are taken
/// from the rule and tried here, on steps inside the span only.
std::time_t stepOf(const icalrecurrencetype& rule) {
    switch (rule.freq) {
    case ICAL_SECONDLY_RECURRENCE:
        return rule.interval;
    case ICAL_MINUTELY_RECURRENCE:
        return rule.interval * std::time_t{60};
    case ICAL_HOURLY_RECURRENCE:
        return rule.interval * std::time_t{3600};
    case ICAL_DAILY_RECURRENCE:
        return rule.interval * std::time_t{86400};
    default:
        return 0;
    }
}

template <std::size_t count>
void take(short (&part)[count], std::array<short, count>& conditions) {
    std::ranges::copy(part, conditions.begin());
    part[0] = ICAL_RECURRENCE_ARRAY_MAX;
}

template <std::size_t count, class Matches>
bool allows(const std::array<short, count>& conditions, Matches matches) {
    if (conditions[0] == ICAL_RECURRENCE_ARRAY_MAX)
        return true;
    for (const short condition : conditions) {
        if (condition == ICAL_RECURRENCE_ARRAY_MAX)
            break;
        if (matches(condition))
            return true;
    }
    return false;
}

/// The parts of a rule that only leave occurrences out.
class Conditions {
public:
    explicit Conditions(icalrecurrencetype& rule) {
        take(rule.by_month, months_);
        take(rule.by_month_day, monthDays_);
        take(rule.by_day, weekDays_);
        take(rule.by_year_day, yearDays_);
        if (rule.freq <= ICAL_HOURLY_RECURRENCE)
            take(rule.by_hour, hours_);
        if (rule.freq <= ICAL_MINUTELY_RECURRENCE)
            take(rule.by_minute, minutes_);
        if (rule.freq == ICAL_SECONDLY_RECURRENCE)
            take(rule.by_second, seconds_);
    }

    bool allow(const icaltimetype& time) const {
        const int monthLength = icaltime_days_in_month(time.month, time.year);
        const int yearDay = icaltime_day_of_year(time);
        const int yearLength = icaltime_days_in_year(time.year);
        const auto is = [](int value) { return [value](short each) { return each == value; }; };
        const auto isFromEnd = [](int value, int length) {
            return [=](short each) { return each == value || each == value - length - 1; };
        };
        return allows(months_, is(time.month)) &&
               allows(monthDays_, isFromEnd(time.day, monthLength)) &&
               allows(yearDays_, isFromEnd(yearDay, yearLength)) &&
               allows(weekDays_,
                      [&](short day) {
                          return static_cast<int>(icalrecurrencetype_day_day_of_week(day)) ==
                                 icaltime_day_of_week(time);
                      }) &&
               allows(hours_, is(time.hour)) && allows(minutes_, is(time.minute)) &&
               allows(seconds_, is(time.second));
    }

private:
    template <std::size_t count>
    static constexpr std::array<short, count> none() {
        return {ICAL_RECURRENCE_ARRAY_MAX};
    }
    std::array<short, ICAL_BY_MONTH_SIZE> months_ = none<ICAL_BY_MONTH_SIZE>();
    std::array<short, ICAL_BY_MONTHDAY_SIZE> monthDays_ = none<ICAL_BY_MONTHDAY_SIZE>();
    std::array<short, ICAL_BY_DAY_SIZE> weekDays_ = none<ICAL_BY_DAY_SIZE>();
    std::array<short, ICAL_BY_YEARDAY_SIZE> yearDays_ = none<ICAL_BY_YEARDAY_SIZE>();
    std::array<short, ICAL_BY_HOUR_SIZE> hours_ = none<ICAL_BY_HOUR_SIZE>();
    std::array<short, ICAL_BY_MINUTE_SIZE> minutes_ = none<ICAL_BY_MINUTE_SIZE>();
    std::array<short, ICAL_BY_SECOND_SIZE> seconds_ = none<ICAL_BY_SECOND_SIZE>();
};

std::time_t instant(const icaltimetype& time) {
    return icaltime_as_timet_with_zone(time, time.zone);
}

/// The same clock time counted as if there were no zones, in which steps are all equally long.
std::time_t clockTime(icaltimetype time) {
    time.zone = nullptr;
    return icaltime_as_timet(time);
}

/// Moves the start on by whole steps to the last one before `from`.
icaltimetype advanced(const icaltimetype& start, std::time_t step, std::time_t from) {
    const auto distance = from - instant(start);
    constexpr std::time_t margin = 86400; // the zone's offset may change between the two
    if (distance <= margin)
        return start;
    const auto target = clockTime(start) + (distance - margin) / step * step;
    auto moved = icaltime_from_timet_with_zone(target, start.is_date, nullptr);
    moved.zone = start.zone;
    return moved;
}

} // namespace

void expand(icalrecurrencetype rule, const icaltimetype& start, std::time_t from, std::time_t to,
            const std::function<void(const icaltimetype& start)>& found) {
    std::optional<Conditions> conditions;
    auto first = start;
    const bool picksFromSets = rule.by_set_pos[0] != ICAL_RECURRENCE_ARRAY_MAX;
    const auto step = stepOf(rule);
    if (step != 0) {
        if (step < 0 || (picksFromSets && rule.freq != ICAL_DAILY_RECURRENCE))
            return;
        if (!picksFromSets)
            conditions.emplace(rule);
        if (rule.count == 0)
            first = advanced(start, step, from);
    }
    int left = rule.count > 0 ? rule.count : -1;
    if (conditions)
        rule.count = 0; // counted here, after the conditions

    const IcalHandle<icalrecur_iterator> iterator(icalrecur_iterator_new(rule, first));
    if (!iterator)
        return;
    if (step == 0 && left < 0 && from > instant(start)) {
        auto near = icaltime_from_timet_with_zone(from, start.is_date,
                                                  const_cast<icaltimezone*>(start.zone));
        near.zone = start.zone;
        icalrecur_iterator_set_start(iterator.get(), near);
    }
    int occurrences = 0;
    for (int steps = 0; steps < maximumSteps && left != 0; ++steps) {
        auto next = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(next))
            return;
        next.zone = start.zone;
        const auto time = instant(next);
        if (time >= to)
            return;
        if (conditions && !conditions->allow(next))
            continue;
        if (left > 0)
            --left;
        if (time < from)
            continue;
        found(next);
        if (++occurrences >= maximumOccurrences)
            return;
    }
}

} // namespace orvelle::Recurrence
