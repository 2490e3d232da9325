#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Log.h"

namespace orvelle {

/// Switches the displays off until the next key or pointer movement: through X power management,
/// or through the desktop where there is none. Main thread; nothing waits.
class DisplaySleep : public QObject {
public:
    /// The tail of the click that asks for it would wake the displays at once.
    static constexpr Seconds delay = 0.5;

    DisplaySleep(RunLoop& runLoop, LogSink& log, BusProvider sessionBus);

    void sleep();

private:
    void askDesktop(const QDBusConnection& bus);

    RunLoop& runLoop_;
    Logger log_;
    BusProvider sessionBus_;
    Timer delay_;
    Subscription connecting_;
};

} // namespace orvelle
