#include "Platform/Linux/IcalEventStore.h"

#include "Platform/PlatformSettings.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace orvelle {

struct IcalEventStore::Place {
    CalendarPlace where;
    std::shared_ptr<CalendarReader> reader;
    std::unique_ptr<FolderWatch> watch; ///< null until it is read
    CalendarDisk::Access access;
    std::vector<CalendarReader::Collection> collections;
    bool isKnown = false; ///< `access` was looked at
    bool isLookDue = true;
    bool isReadDue = true;
    bool isBusy = false;
    std::uint64_t turn = 0; ///< when it was last begun with
    bool isGone = false;    ///< the settings name it no longer
    Timer readTimer;
    Subscription job;
};

struct IcalEventStore::Outcome {
    CalendarDisk::Access access;
    std::optional<CalendarReader::Result> reading;
};

IcalEventStore::IcalEventStore(RunLoop& runLoop, const Formatting& formatting,
                               UserDefaults& defaults, LogSink& log,
                               std::shared_ptr<const CalendarDisk> disk)
    : runLoop_(runLoop), formatting_(formatting), defaults_(defaults), log_(log, "EventStore"),
      disk_(std::move(disk)), lookAgain_([this] {
          lookTimer_.reset();
          look();
      }) {
    findPlaces();
    settingsObserver_ = defaults_.observeChanges([this] {
        if (defaults_.string(PlatformSettings::calendarFolders).value_or("") != furtherFolders_)
            settingsTimer_ = runLoop_.after(readDelay, [this] {
                findPlaces();
                work();
            });
    });
}

IcalEventStore::~IcalEventStore() = default;

EventAuthorizationStatus IcalEventStore::authorizationStatus() const {
    if (!lookTimer_) // questions in quick succession must not put it off
        lookTimer_ = runLoop_.after(0, lookAgain_);
    return status_;
}

Subscription IcalEventStore::observeAuthorizationStatus(std::function<void()> changed) {
    return statusChanged_.observe(std::move(changed));
}

Subscription IcalEventStore::requestFullAccess(std::function<void(bool granted)> completion) {
    const auto request =
        requests_.emplace_back(std::make_shared<Completion>(std::move(completion)));
    requestTimer_ = runLoop_.after(0, [this] {
        look();
        answerRequests();
    });
    return Subscription([request] { *request = nullptr; });
}

std::vector<StoredEvent> IcalEventStore::events(Date from, Date to) {
    std::vector<StoredEvent> found;
    if (status_ == EventAuthorizationStatus::fullAccess)
        std::ranges::copy_if(events_, std::back_inserter(found), [&](const StoredEvent& event) {
            return *event.startDate < to && *event.endDate >= from;
        });
    return found;
}

Subscription IcalEventStore::observeChanges(std::function<void()> changed) {
    if (!isObserved_) {
        isObserved_ = true;
        // The reader knows which files it need not read again.
        refreshTimer_ = runLoop_.every(refreshInterval, [this] { readAll(); });
        readAll();
    }
    return changed_.observe(std::move(changed));
}

/// Those that the settings name now; what is known of the others of before is kept.
void IcalEventStore::findPlaces() {
    furtherFolders_ = defaults_.string(PlatformSettings::calendarFolders).value_or("");
    auto before = std::exchange(places_, {});
    for (auto& where : CalendarPlace::ofUser(furtherFolders_)) {
        const auto known = std::ranges::find_if(
            before, [&](const auto& place) { return place && place->where == where; });
        if (known != before.end()) {
            places_.push_back(std::move(*known));
            continue;
        }
        auto place = std::make_shared<Place>();
        place->reader = std::make_shared<CalendarReader>(where, *disk_);
        place->where = std::move(where);
        places_.push_back(std::move(place));
    }
    bool isAnyGone = false;
    for (const auto& place : before)
        if (place) {
            place->isGone = isAnyGone = true;
            place->watch.reset();
            place->readTimer.reset();
        }
    if (!isAnyGone)
        return;
    updateStatus();
    gatherEvents();
    changed_();
}

void IcalEventStore::look() {
    for (const auto& place : places_)
        place->isLookDue = true;
    work();
}

void IcalEventStore::readAll() {
    for (const auto& place : places_)
        place->isReadDue = true;
    work();
}

void IcalEventStore::work() {
    while (jobs_ < jobsAtOnce) {
        // The one that has waited longest, so that questions in quick succession starve none.
        std::shared_ptr<Place> next;
        for (const auto& place : places_) {
            const bool isDue = place->isLookDue || (place->isReadDue && isObserved_);
            if (isDue && !place->isBusy && (!next || place->turn < next->turn))
                next = place;
        }
        if (!next)
            return;
        begin(next);
    }
}

void IcalEventStore::begin(const std::shared_ptr<Place>& place) {
    const bool reads = place->isReadDue && isObserved_;
    place->isLookDue = false;
    place->isReadDue = place->isReadDue && !reads;
    place->isBusy = true;
    place->turn = ++turns_;
    ++jobs_;
    if (reads && !place->watch)
        place->watch = std::make_unique<FolderWatch>([this, seen = place.get()] {
            seen->readTimer = runLoop_.after(readDelay, [this, seen] {
                seen->isReadDue = true;
                work();
            });
        });
    const auto outcome = std::make_shared<Outcome>();
    place->job = runLoop_.detach(
        [disk = disk_, reader = place->reader, folder = place->where.folder, outcome,
         inotify = reads ? place->watch->inotify() : nullptr, now = runLoop_.now(),
         zone = formatting_.currentTimeZone().identifier] {
            outcome->access = disk->access(folder);
            if (inotify)
                outcome->reading = reader->read(*inotify, now, zone);
        },
        lifetime_.guard([this, place, outcome] { adopt(*place, *outcome); }));
}

void IcalEventStore::adopt(Place& place, Outcome& outcome) {
    --jobs_;
    place.isBusy = false;
    if (!place.isGone) {
        place.access = outcome.access;
        place.isKnown = true;
        if (outcome.reading) {
            for (const auto& complaint : outcome.reading->complaints)
                log_.info(complaint);
            place.collections = std::move(outcome.reading->collections);
            place.watch->adopt(std::move(outcome.reading->watches));
            gatherEvents();
        }
        updateStatus();
        if (outcome.reading)
            changed_();
    }
    work();
    answerRequests();
}

void IcalEventStore::updateStatus() {
    auto status = status_;
    const auto is = [](auto member) {
        return [member](const auto& place) { return place->access.*member; };
    };
    if (std::ranges::any_of(places_, is(&CalendarDisk::Access::isReadable)))
        status = EventAuthorizationStatus::fullAccess;
    else if (std::ranges::all_of(places_, [](const auto& place) { return place->isKnown; }))
        // Where there is no calendar there is nothing to refuse.
        status = std::ranges::any_of(places_, is(&CalendarDisk::Access::isThere))
                     ? EventAuthorizationStatus::denied
                     : EventAuthorizationStatus::fullAccess;
    if (status == status_)
        return;
    status_ = status;
    statusChanged_();
    changed_();
}

/// A collection that is found in two places counts once.
void IcalEventStore::gatherEvents() {
    events_.clear();
    std::set<std::string_view> seen;
    for (const auto& place : places_)
        for (const auto& collection : place->collections)
            if (seen.insert(collection.folder).second)
                events_.insert(events_.end(), collection.events.begin(), collection.events.end());
}

void IcalEventStore::answerRequests() {
    const bool isGranted = status_ == EventAuthorizationStatus::fullAccess;
    const bool isLooking = std::ranges::any_of(
        places_, [](const auto& place) { return place->isLookDue || place->isBusy; });
    if (!isGranted && isLooking)
        return;
    for (const auto& request : std::exchange(requests_, {}))
        if (const auto completion = std::exchange(*request, nullptr))
            completion(isGranted);
}

} // namespace orvelle
