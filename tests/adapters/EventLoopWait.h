#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace orvelle {

/// Runs the event loop until `condition` holds; false when it does not within the bound.
template <class Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds bound = std::chrono::seconds(10)) {
    QTimer wakeUp;
    wakeUp.start(5);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(bound.count()))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace orvelle
