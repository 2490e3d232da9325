#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Log.h"

namespace orvelle {

/// Locks the user's session: through the login manager, which tells whatever locker the session
/// has; without its help through the desktop's screen saver. Main thread; nothing waits.
class SessionLock : public QObject {
public:
    /// `sessionId` is the login session's name ("XDG_SESSION_ID"); empty when unknown, then the
    /// session of this process is asked for.
    SessionLock(RunLoop& runLoop, LogSink& log, BusProvider systemBus, BusProvider sessionBus,
                QString sessionId);

    void lock();

private:
    void lockById(const QDBusConnection& bus);
    void lockByProcess(const QDBusConnection& bus);
    void lockThroughScreenSaver();
    /// Locks the session whose object `find` answers with, or goes on with `otherwise`.
    void lockFound(const QDBusConnection& bus, const QDBusMessage& find,
                   std::function<void()> otherwise);

    RunLoop& runLoop_;
    Logger log_;
    BusProvider systemBus_;
    BusProvider sessionBus_;
    QString sessionId_;
    Subscription systemConnecting_;
    Subscription sessionConnecting_;
};

} // namespace orvelle
