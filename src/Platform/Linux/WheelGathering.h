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

/// Joins the steps of a stroke into events worth judging, and leaves those strokes out that scroll
/// something in the window.
///
/// Steps in one direction, each within 250 ms of the one before, are one stroke. When a stroke
/// turns up or down, the window is asked to scroll by that step. If it does, the stroke is its own
/// to the end, also where it can scroll no further; if not, it hears no more of this stroke.
///
/// The small steps of a touchpad: what arrives over one window within 50 ms of the first step is
/// delivered as one event. Inertia and strokes are not mixed.
///
/// The notches of a wheel each deliver at once the sum of the stroke so far.
class WheelGathering {
public:
    /// A wheel's notch, 120 units of Qt's, counts as a stroke of this many points.
    static constexpr double pointsPerNotch = 20;

    enum class Answer { scrolled, nothingToScroll, notAsked };
    using Deliver = std::function<void(const ScrollEvent&)>;
    using Scroll = std::function<Answer(const QWindow&, const QWheelEvent&)>;

    WheelGathering(Deliver deliver, Scroll scroll);

    /// True when the step is used up, and nothing in the window is to hear of it.
    bool add(QWindow& window, const QWheelEvent& step);

private:
    enum class Owner { undecided, window, gestures };
    struct Stroke {
        QPointer<QWindow> window;
        QPoint units; ///< so far
        quint64 time = 0;
        Owner owner = Owner::undecided; ///< until it turns up or down
    };

    bool isNotch(const QWindow& window, const QWheelEvent& step) const;
    bool goesOn(const QWindow& window, const QWheelEvent& step, bool isTurn) const;
    void follow(QWindow& window, const QWheelEvent& step, bool isTurn);
    void decideOwner(const QWheelEvent& step);
    void gather(QWindow& window, const QWheelEvent& step);
    void flush();
    void deliver(QPointF units, MomentumPhase phase) const;

    Deliver deliver_;
    Scroll scroll_;
    QTimer timer_; ///< active while something is gathered
    QPointer<QWindow> window_;
    QPointF units_;    ///< gathered
    QPointF position_; ///< in the window, from its top left
    bool isMomentum_ = false;
    Stroke stroke_;                      ///< the latest
    std::optional<quint64> touchedTime_; ///< of a touchpad's latest step
};

} // namespace orvelle
