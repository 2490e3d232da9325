#include "Platform/Linux/WheelGathering.h"

#include "Platform/Linux/X11PanelWindow.h"

#include <chrono>
#include <cstdlib>
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

WheelGathering::WheelGathering(Deliver deliver, Scroll scroll)
    : deliver_(std::move(deliver)), scroll_(std::move(scroll)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(gatheringTime);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { flush(); });
}

bool WheelGathering::add(QWindow& window, const QWheelEvent& step) {
    const bool isTurn = isNotch(window, step);
    follow(window, step, isTurn);
    decideOwner(step);
    if (isTurn || stroke_.owner == Owner::window)
        flush();
    if (stroke_.owner != Owner::window && !isTurn)
        gather(window, step);
    window_ = &window;
    position_ = step.position();
    if (stroke_.owner != Owner::window && isTurn)
        deliver(stroke_.units, MomentumPhase::none);
    return stroke_.owner != Owner::undecided;
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

/// Fingers waver: what they do sideways does not end a stroke up or down.
bool WheelGathering::goesOn(const QWindow& window, const QWheelEvent& step, bool isTurn) const {
    if (stroke_.window != &window || step.timestamp() - stroke_.time >= strokePause)
        return false;
    return isTurn ? haveOneDirection(stroke_.units, step.angleDelta())
                  : stroke_.owner == Owner::undecided ||
                        sign(stroke_.units.y()) * sign(step.angleDelta().y()) >= 0;
}

void WheelGathering::follow(QWindow& window, const QWheelEvent& step, bool isTurn) {
    if (!goesOn(window, step, isTurn))
        stroke_ = Stroke{&window, {}, 0, Owner::undecided};
    stroke_.units += step.angleDelta();
    stroke_.time = step.timestamp();
    touchedTime_ = isTurn ? std::nullopt : std::optional(step.timestamp());
}

void WheelGathering::decideOwner(const QWheelEvent& step) {
    const bool isUpright =
        std::abs(stroke_.units.y()) >= std::abs(stroke_.units.x()) && step.angleDelta().y() != 0;
    if (stroke_.owner == Owner::gestures || (stroke_.owner == Owner::undecided && !isUpright))
        return;
    const Answer answer = scroll_(*stroke_.window, step);
    if (stroke_.owner == Owner::window || answer == Answer::notAsked)
        return;
    stroke_.owner = answer == Answer::scrolled ? Owner::window : Owner::gestures;
}

void WheelGathering::gather(QWindow& window, const QWheelEvent& step) {
    const bool isMomentum = step.phase() == Qt::ScrollMomentum;
    if (timer_.isActive() && (window_ != &window || isMomentum_ != isMomentum))
        flush();
    isMomentum_ = isMomentum;
    units_ += step.angleDelta();
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
