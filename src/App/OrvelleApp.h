#pragma once

#include "App/AppDelegate.h"
#include "App/TerminationSignals.h"
#include "Platform/RunLoop.h"
#include "Views/Qt/QtViewHost.h"

namespace orvelle {

class ProcessInstance;

/// The program on a desktop: a platform, the views and the delegate, from launch to the end of the
/// event loop.
class OrvelleApp {
public:
    explicit OrvelleApp(Platform& platform);
    ~OrvelleApp();

    /// Answers other starts of the program; `instance` must outlive this object.
    void listen(ProcessInstance& instance);
    void launch();

    AppDelegate& delegate() { return delegate_; }

private:
    QtViewHost views_;
    AppDelegate delegate_;
    Timer ending_;
    TerminationSignals signals_; ///< end the event loop
};

} // namespace orvelle
