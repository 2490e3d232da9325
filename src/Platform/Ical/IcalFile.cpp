#include "Platform/Ical/IcalFile.h"

#include "Platform/Ical/ComponentReader.h"
#include "Platform/Ical/IcalEvent.h"
#include "Platform/Ical/Recurrence.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace orvelle {

namespace {

constexpr std::time_t day = 86400;
/// A repeated event longer than this is looked for as if it were so long.
constexpr std::time_t longestRepeated = 400 * day;

std::time_t unixSeconds(Date date) {
    return static_cast<std::time_t>(std::floor(date.sinceUnix()));
}

} // namespace

class IcalFile::Reading {
public:
    explicit Reading(Span span)
        : span_(std::move(span)), from_(unixSeconds(span_.from)), to_(unixSeconds(span_.to)),
          zones_(span_.localZone) {}

    bool feed(std::string_view bytes) {
        reader_.feed(bytes);
        return !isOutOfTime();
    }

    std::vector<StoredEvent> finish() {
        reader_.finish();
        isComplete_ = true;
        for (const auto& text : std::exchange(waiting_, {}))
            takeEvent(text);
        std::vector<StoredEvent> events;
        for (auto& [occurrence, event] : found_)
            if (!occurrence || !changed_.contains(*occurrence))
                events.push_back(std::move(event));
        return events;
    }

private:
    using Occurrence = std::pair<std::string, std::time_t>; ///< UID, and when it was to start

    bool isOutOfTime() const { return std::chrono::steady_clock::now() >= span_.deadline; }

    void take(ComponentReader::Kind kind, const std::string& text) {
        if (isOutOfTime())
            return;
        if (kind == ComponentReader::Kind::timeZone)
            zones_.add(text);
        else
            takeEvent(text);
    }

    void takeEvent(const std::string& text) {
        const IcalHandle<icalcomponent> component(icalcomponent_new_from_string(text.c_str()));
        if (!component || isOutOfTime())
            return;
        const auto event = IcalEvent::read(component.get(), zones_);
        if (!event.start)
            return;
        if (event.needsLaterZone && !isComplete_ && waitingSize_ + text.size() <= maximumWaiting) {
            waitingSize_ += text.size();
            waiting_.push_back(text);
            return;
        }
        if (event.recurrenceId && changed_.size() < maximumChanges)
            changed_.emplace(event.uid, event.recurrenceId->instant);
        if (!event.isCancelled)
            addOccurrences(event);
    }

    void addOccurrences(const IcalEvent& event) {
        if (event.recurrenceId || !event.isRepeated()) {
            add(event, *event.start, event.duration);
            return;
        }
        std::set<std::time_t> starts;
        const auto addDate = [&](const icaltimetype& time, std::time_t duration) {
            const auto instant =
                icaltime_as_timet_with_zone(time, const_cast<icaltimezone*>(time.zone));
            if (!isException(event, time, instant) && starts.insert(instant).second)
                add(event, {time, instant}, duration);
        };
        const auto addStart = [&](const icaltimetype& time) { addDate(time, event.duration); };
        if (event.rules.empty())
            addStart(event.start->time);
        for (const auto& further : event.furtherDates)
            addDate(further.start.time, further.duration.value_or(event.duration));
        const auto lookBack = std::min(event.duration, longestRepeated) + day;
        for (const auto& rule : event.rules)
            if (!isOutOfTime())
                Recurrence::expand(rule, event.start->time, from_ - lookBack, to_, addStart);
    }

    static bool isException(const IcalEvent& event, const icaltimetype& time, std::time_t instant) {
        return std::ranges::any_of(event.exceptions, [&](const IcalMoment& exception) {
            if (exception.time.is_date && !time.is_date) // of a whole day
                return icaltime_compare_date_only(exception.time, time) == 0;
            return exception.instant == instant;
        });
    }

    /// Where it shares time with the span.
    void add(const IcalEvent& event, const IcalMoment& start, std::time_t duration) {
        const auto end = endOf(start, duration);
        if (start.instant >= to_ || end < from_ || found_.size() >= maximumOccurrences)
            return;
        StoredEvent stored;
        std::optional<Occurrence> occurrence;
        if (!event.uid.empty()) {
            stored.eventIdentifier = event.uid;
            if (event.isRepeated() && !event.recurrenceId)
                occurrence.emplace(event.uid, start.instant);
            if (const auto original =
                    event.recurrenceId ? event.recurrenceId->instant : start.instant;
                event.recurrenceId || event.isRepeated())
                *stored.eventIdentifier += '/' + std::to_string(original);
        }
        stored.title = event.title;
        stored.location = event.location;
        stored.url = event.url;
        stored.isAllDay = start.time.is_date != 0;
        stored.startDate = Date::fromUnix(static_cast<Seconds>(start.instant));
        stored.endDate = Date::fromUnix(static_cast<Seconds>(end));
        found_.emplace_back(std::move(occurrence), std::move(stored));
    }

    /// Whole days end at midnight, however long the last of them was.
    std::time_t endOf(const IcalMoment& start, std::time_t duration) const {
        if (!start.time.is_date)
            return start.instant + duration;
        auto end = start.time;
        icaltime_adjust(&end, static_cast<int>(duration / day), 0, 0, 0);
        return icaltime_as_timet_with_zone(end, zones_.local());
    }

    const Span span_;
    const std::time_t from_;
    const std::time_t to_;
    ZoneTable zones_;
    std::vector<std::pair<std::optional<Occurrence>, StoredEvent>> found_;
    std::set<Occurrence> changed_;
    std::vector<std::string> waiting_; ///< events whose zone was not known when they came
    std::size_t waitingSize_ = 0;
    bool isComplete_ = false;
    ComponentReader reader_{
        [this](ComponentReader::Kind kind, const std::string& text) { take(kind, text); }};
};

IcalFile::IcalFile(Span span) : reading_(std::make_unique<Reading>(std::move(span))) {
    icalerror_set_errors_are_fatal(false);
}

IcalFile::~IcalFile() = default;

bool IcalFile::feed(std::string_view bytes) {
    return reading_->feed(bytes);
}

std::vector<StoredEvent> IcalFile::finish() {
    return reading_->finish();
}

} // namespace orvelle
