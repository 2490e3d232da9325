#include "Views/Qt/SpringValue.h"

#include <QAbstractAnimation>

#include <cmath>

namespace orvelle {

/// Ticks with the frames.
class SpringValue::Movement : public QAbstractAnimation {
public:
    explicit Movement(SpringValue& spring) : spring_(spring) {}
    int duration() const override { return -1; }

protected:
    void updateCurrentTime(int milliseconds) override {
        spring_.moveTo(milliseconds / 1000.0 - spring_.delay_);
    }

private:
    SpringValue& spring_;
};

SpringValue::SpringValue(QObject* parent)
    : QObject(parent), movement_(std::make_unique<Movement>(*this)) {
    connect(movement_.get(), &QAbstractAnimation::stateChanged, this, &SpringValue::runningChanged);
}

SpringValue::~SpringValue() {
    movement_->disconnect(this);
}

bool SpringValue::isRunning() const {
    return movement_->state() == QAbstractAnimation::Running;
}

void SpringValue::setTarget(double target) {
    if (target == target_)
        return;
    target_ = target;
    Q_EMIT targetChanged();
    if (isComplete_)
        start();
}

void SpringValue::setResponse(double response) {
    if (response == spring_.response)
        return;
    spring_.response = response;
    bend();
}

void SpringValue::setDampingFraction(double dampingFraction) {
    if (dampingFraction == spring_.dampingFraction)
        return;
    spring_.dampingFraction = dampingFraction;
    bend();
}

void SpringValue::bend() {
    if (isRunning())
        start();
    Q_EMIT curveChanged();
}

void SpringValue::componentComplete() {
    isComplete_ = true;
    jump(target_);
}

void SpringValue::jump(double value) {
    movement_->stop();
    velocity_ = 0;
    if (value != target_) {
        target_ = value;
        Q_EMIT targetChanged();
    }
    setValue(value);
}

void SpringValue::start() {
    movement_->stop();
    initial_ = {value_ - target_, velocity_};
    if (initial_.displacement != 0 || velocity_ != 0)
        movement_->start();
}

void SpringValue::moveTo(Seconds time) {
    if (time <= 0)
        return;
    const auto motion = spring_.at(time, initial_);
    const double speedAtRest = restDistance_ / spring_.response;
    if (std::abs(motion.displacement) < restDistance_ && std::abs(motion.velocity) < speedAtRest) {
        velocity_ = 0;
        setValue(target_);
        movement_->stop();
        return;
    }
    velocity_ = motion.velocity;
    setValue(target_ + motion.displacement);
}

void SpringValue::setValue(double value) {
    if (value == value_)
        return;
    value_ = value;
    Q_EMIT valueChanged();
}

} // namespace orvelle
