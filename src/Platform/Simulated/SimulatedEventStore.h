#pragma once

#include "Foundation/Published.h"
#include "Platform/EventStore.h"
#include "Platform/RunLoop.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace orvelle {

/// Calendars that hold what they are told.
class SimulatedEventStore : public EventStore {
public:
    explicit SimulatedEventStore(RunLoop& runLoop) : runLoop_(runLoop) {}

    EventAuthorizationStatus status = EventAuthorizationStatus::fullAccess;
    EventAuthorizationStatus statusAfterRequest = EventAuthorizationStatus::fullAccess;
    std::vector<StoredEvent> stored;
    int queryCount = 0;
    int accessRequests = 0;
    /// Called before each query, so that a demonstration can lay its events around the hour.
    std::function<void(SimulatedEventStore&, Date from)> onQuery;
    void notifyChanged() { changed_(); }
    /// As when the user changes it elsewhere.
    void change(EventAuthorizationStatus present) {
        status = present;
        statusChanged_();
        changed_();
    }

    EventAuthorizationStatus authorizationStatus() const override { return status; }
    Subscription observeAuthorizationStatus(std::function<void()> changed) override {
        return statusChanged_.observe(std::move(changed));
    }
    Subscription requestFullAccess(std::function<void(bool)> completion) override {
        ++accessRequests;
        return runLoop_.after(0, [this, completion = std::move(completion)] {
            if (status != statusAfterRequest)
                change(statusAfterRequest);
            completion(status == EventAuthorizationStatus::fullAccess);
        });
    }
    std::vector<StoredEvent> events(Date from, Date to) override {
        ++queryCount;
        if (onQuery)
            onQuery(*this, from);
        std::vector<StoredEvent> found;
        if (status == EventAuthorizationStatus::fullAccess)
            std::ranges::copy_if(stored, std::back_inserter(found), [&](const auto& event) {
                return !event.startDate || !event.endDate ||
                       (*event.startDate < to && *event.endDate >= from);
            });
        return found;
    }
    Subscription observeChanges(std::function<void()> changed) override {
        return changed_.observe(std::move(changed));
    }

private:
    RunLoop& runLoop_;
    Event<> changed_;
    Event<> statusChanged_;
};

} // namespace orvelle
