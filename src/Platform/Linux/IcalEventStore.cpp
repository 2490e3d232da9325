#include "Platform/Linux/IcalEventStore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvelle {

IcalEventStore::IcalEventStore(RunLoop& runLoop, const Formatting& formatting,
                               UserDefaults& defaults, LogSink& log)
    : runLoop_(runLoop), formatting_(formatting), defaults_(defaults), log_(log, "EventStore") {}

CalendarPlaces IcalEventStore::places() const {
    return CalendarPlaces::ofUser(defaults_.string(foldersKey).value_or(""));
}

EventAuthorizationStatus IcalEventStore::authorizationStatus() const {
    return places().isReadable() ? EventAuthorizationStatus::fullAccess
                                 : EventAuthorizationStatus::denied;
}

Subscription IcalEventStore::requestFullAccess(std::function<void(bool granted)> completion) {
    return runLoop_.after(0, [this, completion = std::move(completion)] {
        completion(authorizationStatus() == EventAuthorizationStatus::fullAccess);
    });
}

std::vector<StoredEvent> IcalEventStore::events(Date from, Date to) {
    std::vector<StoredEvent> found;
    if (authorizationStatus() == EventAuthorizationStatus::fullAccess)
        std::ranges::copy_if(events_, std::back_inserter(found), [&](const StoredEvent& event) {
            return *event.startDate < to && *event.endDate >= from;
        });
    return found;
}

Subscription IcalEventStore::observeChanges(std::function<void()> changed) {
    if (!watch_)
        begin();
    return changed_.observe(std::move(changed));
}

void IcalEventStore::begin() {
    watch_ = std::make_unique<FolderWatch>([this] { readSoon(); });
    settingsObserver_ = defaults_.observeChanges([this] {
        if (defaults_.string(foldersKey).value_or("") != furtherFolders_)
            readSoon();
    });
    // The reader knows which files it need not read again.
    refreshTimer_ = runLoop_.every(refreshInterval, [this] { read(); });
    read();
}

void IcalEventStore::readSoon() {
    readTimer_ = runLoop_.after(readDelay, [this] { read(); });
}

void IcalEventStore::read() {
    isReadingDue_ = isReading_;
    if (isReading_)
        return;
    isReading_ = true;
    furtherFolders_ = defaults_.string(foldersKey).value_or("");
    const auto result = std::make_shared<CalendarReader::Result>();
    reading_ = runLoop_.detach(
        [reader = reader_, result, places = places(), now = runLoop_.now(),
         zone = formatting_.currentTimeZone().identifier] {
            *result = reader->read(places, now, zone);
        },
        [this, result] { adopt(std::move(*result)); });
}

void IcalEventStore::adopt(CalendarReader::Result result) {
    isReading_ = false;
    for (const auto& complaint : result.complaints)
        log_.info(complaint);
    events_ = std::move(result.events);
    if (result.folders != watchedFolders_) {
        watch_->setFolders(result.folders);
        watchedFolders_ = std::move(result.folders);
        isReadingDue_ = true; // for what changed before the watch began
    }
    if (isReadingDue_)
        read();
    changed_();
}

} // namespace orvelle
