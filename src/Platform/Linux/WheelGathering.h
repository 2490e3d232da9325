#pragma once

#include "Platform/EventMonitors.h"

#include <QPointF>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <functional>
#include <optional>

namespace orvelle {

/// Joins the steps of a stroke into events worth judging.
///
/// The small steps of a touchpad: what arrives over one window within 50 ms of the first step is
/// delivered as one event. Inertia and strokes are not mixed.
///
/// The notches of a wheel: those in one direction, each within 250 ms of the one before, are one
/// stroke, and each delivers at once the sum of the stroke so far.
class WheelGathering {
public:
    /// A wheel's notch, 120 units of Qt's, counts as a stroke of this many points.
    static constexpr double pointsPerNotch = 20;

    explicit WheelGathering(std::function<void(const ScrollEvent&)> deliver);

    void add(QWindow& window, const QWheelEvent& step);

private:
    struct Turn {
        QPointer<QWindow> window;
        QPoint units; ///< of the whole stroke
        quint64 time = 0;
    };

    bool isNotch(const QWindow& window, const QWheelEvent& step) const;
    void turn(QWindow& window, const QWheelEvent& notch);
    void gather(QWindow& window, const QWheelEvent& step);
    void flush();
    void deliver(QPointF units, MomentumPhase phase) const;

    std::function<void(const ScrollEvent&)> deliver_;
    QTimer timer_; ///< active while something is gathered
    QPointer<QWindow> window_;
    QPointF units_;
    QPointF position_; ///< in the window, from its top left
    bool isMomentum_ = false;
    std::optional<Turn> turn_;           ///< of the wheel, the latest
    std::optional<quint64> touchedTime_; ///< of a touchpad's latest step
};

} // namespace orvelle
