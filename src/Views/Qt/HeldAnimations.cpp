#include "Views/Qt/HeldAnimations.h"

#include <QCoreApplication>

namespace orvelle {

HeldAnimations::HeldAnimations() {
    install();
}

HeldAnimations::~HeldAnimations() {
    uninstall();
}

void HeldAnimations::start() {
    time_ = 0;
    QAnimationDriver::start();
}

void HeldAnimations::step(int milliseconds) {
    // A movement that was asked for begins with an event of its own.
    QCoreApplication::sendPostedEvents();
    time_ += milliseconds;
    advance();
}

} // namespace orvelle
