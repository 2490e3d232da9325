#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace orvelle {

/// Runs the event loop until `condition` holds; false when it does not within ten seconds.
template <class Condition>
bool waitUntil(Condition condition) {
    constexpr int bound = 10000;
    QTimer wakeUp;
    wakeUp.start(5);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(bound))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace orvelle
