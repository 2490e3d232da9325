#pragma once

#include "App/AppDelegate.h"
#include "Views/Qt/QtViewHost.h"

#include <QObject>
#include <QSocketNotifier>

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
    /// Ends the event loop at SIGTERM, SIGINT and SIGHUP.
    void followSignals();

    Platform& platform_;
    QtViewHost views_;
    AppDelegate delegate_;
    int signals_ = -1;
    std::unique_ptr<QSocketNotifier> signalNotifier_;
};

} // namespace orvelle
