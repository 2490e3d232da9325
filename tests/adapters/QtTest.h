#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orvelle {

/// The one application object of the test's process.
inline QCoreApplication& application() {
    static int argumentCount = 1;
    static char name[] = "orvelle_adapter_tests";
    static char* arguments[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new QCoreApplication(argumentCount, arguments); // lives as long as the process
    return *QCoreApplication::instance();
}

/// Runs the event loop until the condition holds; false when it does not within the bound.
inline bool waitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds bound = std::chrono::seconds(5)) {
    application();
    QTimer end;
    end.setSingleShot(true);
    end.start(bound);
    while (!condition() && end.isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

} // namespace orvelle
