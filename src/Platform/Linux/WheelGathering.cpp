#include "Platform/Linux/WheelGathering.h"

#include "Platform/Linux/X11PanelWindow.h"

#include <chrono>
#include <utility>

namespace orvelle {

namespace {
constexpr std::chrono::milliseconds gatheringTime{50};
}

WheelGathering::WheelGathering(std::function<void(const ScrollEvent&)> deliver)
    : deliver_(std::move(deliver)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(gatheringTime);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { flush(); });
}

void WheelGathering::add(QWindow& window, const QWheelEvent& step) {
    const bool isMomentum = step.phase() == Qt::ScrollMomentum;
    if (timer_.isActive() && (window_ != &window || isMomentum_ != isMomentum))
        flush();
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
    if (!window_ || units.isNull())
        return;
    // Qt's units grow upward and to the left, strokes downward and to the right.
    constexpr double pointsPerUnit = -pointsPerNotch / int{QWheelEvent::DefaultDeltasPerStep};
    ScrollEvent event;
    event.scrollingDeltaX = units.x() * pointsPerUnit;
    event.scrollingDeltaY = units.y() * pointsPerUnit;
    event.momentumPhase = isMomentum_ ? MomentumPhase::changed : MomentumPhase::none;
    event.panel = X11PanelWindow::of(*window_);
    event.locationInWindow = {position_.x(), window_->height() - position_.y()};
    deliver_(event);
}

} // namespace orvelle
