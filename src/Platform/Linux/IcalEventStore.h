#pragma once

#include "Foundation/Published.h"
#include "Platform/EventStore.h"
#include "Platform/Formatting.h"
#include "Platform/Linux/CalendarReader.h"
#include "Platform/Linux/FolderWatch.h"
#include "Platform/Log.h"
#include "Platform/RunLoop.h"
#include "Platform/UserDefaults.h"

#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// The iCalendar files of the user's calendar programs: vdir collections and GNOME's local
/// calendars. Read in the background, watched, and read again as the days go on. Whoever may read
/// the folders has full access.
class IcalEventStore : public EventStore {
public:
    /// A setting of further folders, separated by colons; "~/" stands for the home folder.
    static constexpr std::string_view foldersKey = "calendarFolders";
    /// From a change of a file to its reading, so that several changes give one.
    static constexpr Seconds readDelay = 0.2;
    /// How often it tells that time has gone on.
    static constexpr Seconds refreshInterval = 900;

    IcalEventStore(RunLoop& runLoop, const Formatting& formatting, UserDefaults& defaults,
                   LogSink& log);

    EventAuthorizationStatus authorizationStatus() const override;
    Subscription requestFullAccess(std::function<void(bool granted)> completion) override;
    std::vector<StoredEvent> events(Date from, Date to) override;
    Subscription observeChanges(std::function<void()> changed) override;

private:
    CalendarPlaces places() const;
    void begin();
    void readSoon();
    void read();
    void adopt(CalendarReader::Result result);

    RunLoop& runLoop_;
    const Formatting& formatting_;
    UserDefaults& defaults_;
    const Logger log_;
    std::vector<StoredEvent> events_;
    Event<> changed_;
    std::string furtherFolders_; ///< as they were read last
    std::shared_ptr<CalendarReader> reader_ = std::make_shared<CalendarReader>();
    std::vector<std::string> watchedFolders_;
    std::unique_ptr<FolderWatch> watch_; ///< null until someone observes
    Subscription settingsObserver_;
    Timer refreshTimer_;
    Timer readTimer_;
    Subscription reading_;
    bool isReading_ = false;
    bool isReadingDue_ = false; ///< once the present one is done
};

} // namespace orvelle
