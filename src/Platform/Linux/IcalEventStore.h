#pragma once

#include "Foundation/Published.h"
#include "Platform/EventStore.h"
#include "Platform/Formatting.h"
#include "Platform/Linux/CalendarReader.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/UserDefaults.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// The iCalendar files of the user's calendar programs: vdir collections and GNOME's local
/// calendars. Read in the background, watched, and read again as the days go on. Whoever may read
/// the folders has full access. Each place is read by itself, so that a slow one holds up no other.
class IcalEventStore : public EventStore {
public:
    /// From a change of a file to its reading, so that several changes give one.
    static constexpr Seconds readDelay = 0.2;
    /// How often it tells that time has gone on.
    static constexpr Seconds refreshInterval = 900;
    /// Places that are read at once; many of them may be on disks that hang.
    static constexpr int jobsAtOnce = 16;

    IcalEventStore(RunLoop& runLoop, const Formatting& formatting, UserDefaults& defaults,
                   LogSink& log,
                   std::shared_ptr<const CalendarDisk> disk = std::make_shared<CalendarDisk>());
    ~IcalEventStore() override;

    EventAuthorizationStatus authorizationStatus() const override;
    Subscription observeAuthorizationStatus(std::function<void()> changed) override;
    Subscription requestFullAccess(std::function<void(bool granted)> completion) override;
    std::vector<StoredEvent> events(Date from, Date to) override;
    Subscription observeChanges(std::function<void()> changed) override;

private:
    struct Place;
    struct Outcome;
    using Completion = std::function<void(bool)>;

    void findPlaces();
    void look();
    void readAll();
    void work();
    void begin(const std::shared_ptr<Place>& place);
    void adopt(Place& place, Outcome& outcome);
    void updateStatus();
    void gatherEvents();
    void answerRequests();

    RunLoop& runLoop_;
    const Formatting& formatting_;
    UserDefaults& defaults_;
    const Logger log_;
    std::shared_ptr<const CalendarDisk> disk_;
    std::string furtherFolders_;
    std::vector<std::shared_ptr<Place>> places_;
    int jobs_ = 0; ///< under way
    std::uint64_t turns_ = 0;
    bool isObserved_ = false;
    EventAuthorizationStatus status_ = EventAuthorizationStatus::notDetermined;
    std::vector<StoredEvent> events_;
    std::vector<std::shared_ptr<Completion>> requests_; ///< empty ones were given up
    Event<> changed_;
    Event<> statusChanged_;
    Subscription settingsObserver_;
    Timer settingsTimer_;
    Timer refreshTimer_;
    Timer requestTimer_;
    const std::function<void()> lookAgain_;
    mutable Timer lookTimer_; ///< a question for the status begins another look
    Lifetime lifetime_;
};

} // namespace orvelle
