#pragma once

#include "Platform/EventMonitors.h"

#include <QPointF>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <functional>

namespace orvelle {

/// Joins the small steps of a stroke into events worth judging: what arrives over one window within
/// 50 ms of the first step is delivered as one event. Inertia and strokes are not mixed.
class WheelGathering {
public:
    /// A wheel's notch, 120 units of Qt's, counts as a stroke of this many points.
    static constexpr double pointsPerNotch = 20;

    explicit WheelGathering(std::function<void(const ScrollEvent&)> deliver);

    void add(QWindow& window, const QWheelEvent& step);

private:
    void flush();

    std::function<void(const ScrollEvent&)> deliver_;
    QTimer timer_; ///< active while something is gathered
    QPointer<QWindow> window_;
    QPointF units_;
    QPointF position_; ///< in the window, from its top left
    bool isMomentum_ = false;
};

} // namespace orvelle
