#include "Platform/Linux/WheelGathering.h"

#include "Platform/Linux/X11PanelWindow.h"

#include <chrono>
#include <utility>

namespace orvelle {

namespace {

constexpr std::chrono::milliseconds gatheringTime{50};
/// A pause this long, in the display server's milliseconds, ends a stroke.
constexpr quint64 strokePause = 250;

int sign(int units) {
    return (units > 0) - (units < 0);
}

bool haveOneDirection(QPoint one, QPoint other) {
    return sign(one.x()) == sign(other.x()) && sign(one.y()) == sign(other.y());
}

} // namespace

WheelGathering::WheelGathering(std::function<void(const ScrollEvent&)> deliver)
    : deliver_(std::move(deliver)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(gatheringTime);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { flush(); });
}

void WheelGathering::add(QWindow& window, const QWheelEvent& step) {
    if (isNotch(window, step))
        turn(window, step);
    else
        gather(window, step);
}

/// The toolkit does not tell which device an event is of. Only a wheel steps by whole notches; a
/// touchpad does so by chance, amid other steps.
bool WheelGathering::isNotch(const QWindow& window, const QWheelEvent& step) const {
    constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
    const QPoint units = step.angleDelta();
    const bool isWhole = !units.isNull() && units.x() % notch == 0 && units.y() % notch == 0;
    const bool isAmidOthers =
        touchedTime_ && window_ == &window && step.timestamp() - *touchedTime_ < strokePause;
    return isWhole && step.phase() == Qt::NoScrollPhase && !isAmidOthers;
}

void WheelGathering::turn(QWindow& window, const QWheelEvent& notch) {
    flush();
    touchedTime_.reset();
    const bool goesOn = turn_ && turn_->window == &window &&
                        notch.timestamp() - turn_->time < strokePause &&
                        haveOneDirection(turn_->units, notch.angleDelta());
    const QPoint before = goesOn ? turn_->units : QPoint();
    turn_ = Turn{&window, before + notch.angleDelta(), notch.timestamp()};
    window_ = &window;
    position_ = notch.position();
    deliver(turn_->units, MomentumPhase::none);
}

void WheelGathering::gather(QWindow& window, const QWheelEvent& step) {
    const bool isMomentum = step.phase() == Qt::ScrollMomentum;
    if (timer_.isActive() && (window_ != &window || isMomentum_ != isMomentum))
        flush();
    turn_.reset();
    touchedTime_ = step.timestamp();
    window_ = &window;
    isMomentum_ = isMomentum;
    units_ += step.angleDelta();
    position_ = step.position();
    if (!timer_.isActive())
        timer_.start();
}

void WheelGathering::flush() {
    timer_.stop();
    const QPointF units = std::exchange(units_, {});
    if (!units.isNull())
        deliver(units, isMomentum_ ? MomentumPhase::changed : MomentumPhase::none);
}

void WheelGathering::deliver(QPointF units, MomentumPhase phase) const {
    if (!window_)
        return;
    // Qt's units grow upward and to the left, strokes downward and to the right.
    constexpr double pointsPerUnit = -pointsPerNotch / int{QWheelEvent::DefaultDeltasPerStep};
    ScrollEvent event;
    event.scrollingDeltaX = units.x() * pointsPerUnit;
    event.scrollingDeltaY = units.y() * pointsPerUnit;
    event.momentumPhase = phase;
    event.panel = X11PanelWindow::of(*window_);
    event.locationInWindow = {position_.x(), window_->height() - position_.y()};
    deliver_(event);
}

} // namespace orvelle
