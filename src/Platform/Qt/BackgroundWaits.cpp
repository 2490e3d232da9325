#include "Platform/Qt/BackgroundWaits.h"

#include <QEventLoop>
#include <QTimer>

namespace orvelle {

void BackgroundWaits::wait(QEventLoop& loop, std::chrono::milliseconds bound) {
    {
        const std::lock_guard lock(mutex_);
        if (ended_)
            return;
        loops_.insert(&loop);
    }
    QTimer::singleShot(bound, &loop, &QEventLoop::quit);
    loop.exec();
    const std::lock_guard lock(mutex_);
    loops_.erase(&loop);
}

void BackgroundWaits::end() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    // As an event, since a loop that has not begun yet would forget a direct order.
    for (auto* loop : loops_)
        QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
}

} // namespace orvelle
